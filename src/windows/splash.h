#pragma once

#include <QDialog>
#include <QTimer>

namespace quillon::windows {

/// The splash window: closes after a moment or on a click.
class Splash : public QDialog {
 public:
  explicit Splash(QWidget* parent = nullptr);

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QTimer* timer_;
};

}  // namespace quillon::windows

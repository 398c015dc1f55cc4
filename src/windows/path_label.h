#pragma once

#include <QLabel>

namespace quillon::windows {

/// A path in one line, elided in the middle where it has no room; then its tool tip has all of it.
class PathLabel : public QLabel {
 public:
  explicit PathLabel(QWidget* parent = nullptr);

  /// `text` stays whole, whatever of it is shown.
  void setPath(const QString& path);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillon::windows

#pragma once

#include <QLabel>
#include <functional>

namespace quillon::windows {

/// A path on one line, elided in the middle if it does not fit; the tool tip then shows all of it.
class PathLabel : public QLabel {
 public:
  explicit PathLabel(QWidget* parent = nullptr);

  /// text() keeps the whole path; only the display is elided.
  void setPath(const QString& path);
  QSize minimumSizeHint() const override;

  std::function<void()> onChanged;  ///< by setPath()

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillon::windows

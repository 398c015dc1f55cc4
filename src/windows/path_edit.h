#pragma once

#include <QLineEdit>
#include <functional>

namespace quillon::windows {

/// A path field. Without focus it shows the path in upper case; where file names are case-sensitive
/// this affects only the display, not the path.
class PathEdit : public QLineEdit {
 public:
  explicit PathEdit(QWidget* parent = nullptr);

  QString path() const { return path_; }
  void setPath(const QString& path);

  std::function<void()> onTyped;  ///< called after each change not made by setPath

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void display(const QString& text);

  QString path_;
  bool displaying_ = false;
};

}  // namespace quillon::windows

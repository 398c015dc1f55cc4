#pragma once

#include <QLineEdit>
#include <functional>

namespace quillon::windows {

/// A field for a path. When it loses focus it shows the path in upper case; where file names have
/// case that is the display alone, and the path itself stays as it was given.
class PathEdit : public QLineEdit {
 public:
  explicit PathEdit(QWidget* parent = nullptr);

  QString path() const { return path_; }
  void setPath(const QString& path);

  std::function<void()> onTyped;  ///< called after each change that setPath did not make

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void display(const QString& text);

  QString path_;
  bool displaying_ = false;
};

}  // namespace quillon::windows

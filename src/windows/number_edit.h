#pragma once

#include <QLineEdit>

namespace quillon::windows {

/// A field for a number. A comma that is the only sign in it becomes a decimal point when the field
/// loses focus or Enter is pressed in it.
class NumberEdit : public QLineEdit {
 public:
  explicit NumberEdit(QWidget* parent = nullptr);

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void pointForComma();
};

}  // namespace quillon::windows

#pragma once

#include <QLineEdit>

namespace quillon::windows {

/// A numeric field. A single comma becomes a decimal point when the field loses focus or on Enter,
/// unless the text has another comma or a point.
class NumberEdit : public QLineEdit {
 public:
  explicit NumberEdit(QWidget* parent = nullptr);

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void pointForComma();
};

}  // namespace quillon::windows

#include "windows/number_edit.h"

#include <QFocusEvent>

namespace quillon::windows {

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::returnPressed, this, [this] { pointForComma(); });
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
  pointForComma();
  QLineEdit::focusOutEvent(event);
}

/// Several commas, or a comma and a point, may be digit grouping: such a text is left to the
/// warning.
void NumberEdit::pointForComma() {
  const QString typed = text();
  if (typed.count(',') != 1 || typed.contains('.')) return;
  setText(QString(typed).replace(',', '.'));
}

}  // namespace quillon::windows

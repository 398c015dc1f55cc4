#include "windows/question.h"

#include <QAbstractButton>

namespace quillon::windows {

QMessageBox::StandardButton askQuestion(const AppContext& context, QWidget* parent,
                                        const QString& title, const QString& text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton preset) {
  QMessageBox box(QMessageBox::Warning, title, text, buttons, parent);
  box.setObjectName("question");
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(preset);
  box.setEnabled(true);  // also usable above a disabled window
  const auto caption = [&box](QMessageBox::StandardButton button, const QString& label) {
    if (box.button(button) != nullptr) box.button(button)->setText(label);
  };
  caption(QMessageBox::Yes, context.text(3155));
  caption(QMessageBox::No, context.text(3156));
  caption(QMessageBox::Cancel, context.text(1101));
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace quillon::windows

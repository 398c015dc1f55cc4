#include "windows/question.h"

#include <QAbstractButton>

namespace quillon::windows {

using texts::TextId;

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
  caption(QMessageBox::Yes, context.text(TextId::AnswerYes));
  caption(QMessageBox::No, context.text(TextId::AnswerNo));
  caption(QMessageBox::Cancel, context.text(TextId::EditorCancel));
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace quillon::windows

#pragma once

#include <QMessageBox>

#include "windows/app_context.h"

namespace quillon::windows {

/// Asks a question, with buttons in the program's language.
QMessageBox::StandardButton askQuestion(const AppContext& context, QWidget* parent,
                                        const QString& title, const QString& text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton preset);

}  // namespace quillon::windows

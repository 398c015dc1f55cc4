#pragma once

#include <QMessageBox>

#include "windows/app_context.h"

namespace quillon::windows {

/// Asks a question; its buttons are in the language of the windows.
QMessageBox::StandardButton askQuestion(const AppContext& context, QWidget* parent,
                                        const QString& title, const QString& text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton preset);

}  // namespace quillon::windows

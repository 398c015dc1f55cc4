#pragma once

#include <QMessageBox>

#include "ui/windows/app_context.h"

namespace quillon::ui {

/// Asks a question; its buttons are in the language of the windows.
QMessageBox::StandardButton askQuestion(const AppContext& context, QWidget* parent,
                                        const QString& title, const QString& text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton preset);

}  // namespace quillon::ui

#pragma once

#include <QWidget>

#include "ui/windows/app_context.h"

namespace quillon::ui {

/// Tells the user that the settings could not be saved.
void showSaveFailure(const AppContext& context, QWidget* parent);

}  // namespace quillon::ui

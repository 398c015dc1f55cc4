#pragma once

#include <QWidget>

#include "windows/app_context.h"

namespace quillon::windows {

/// Tells the user that the settings could not be saved.
void showSaveFailure(const AppContext& context, QWidget* parent);

}  // namespace quillon::windows

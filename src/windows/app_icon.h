#pragma once

#include <QIcon>

namespace quillon::windows {

/// The program's picture, drawn in the sizes that windows and task bars ask for.
QIcon appIcon();

}  // namespace quillon::windows

#pragma once

#include <QIcon>

namespace quillon::windows {

/// The program's icon in the sizes that windows and task bars use.
QIcon appIcon();

}  // namespace quillon::windows

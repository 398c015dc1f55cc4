#include "windows/system_help.h"

namespace quillon::windows {

bool showSystemHelp(const QString&, int, QWidget*) { return false; }

}  // namespace quillon::windows

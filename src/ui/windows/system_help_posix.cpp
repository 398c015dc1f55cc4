#include "ui/windows/system_help.h"

namespace quillon::ui {

bool showSystemHelp(const QString&, int, QWidget*) { return false; }

}  // namespace quillon::ui

#include <QtGlobal>

#include "app/window/system_colours.h"

namespace quillon::window {

const bool kSystemStyleIsLight = true;

/// Qt 6.4 leaves dark colours to programs that say that they can have them: 1 would be for the
/// frames of windows, and 2 is for what is in them too.
void askForSystemColours() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");
  }
}

}  // namespace quillon::window

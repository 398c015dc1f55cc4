#pragma once

#include <QPushButton>

namespace quillon::windows {

/// Lets Enter press a button that has the focus, without the button becoming the one that Enter
/// presses elsewhere in its window. For windows in which Enter means nothing outside their buttons;
/// those with a default button have it from Qt.
void pressOnEnter(QPushButton& button);

}  // namespace quillon::windows

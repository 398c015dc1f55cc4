#pragma once

#include <QPushButton>

namespace quillon::windows {

/// Lets Enter press a button that has the focus without making it the default button. For windows
/// in which Enter does nothing else; in windows with a default button Qt already does this.
void pressOnEnter(QPushButton& button);

}  // namespace quillon::windows

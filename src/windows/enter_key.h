#pragma once

#include <QAbstractItemView>
#include <QPushButton>

namespace quillon::windows {

/// Lets Enter press a button that has the focus without making it the default button. For windows
/// in which Enter does nothing else; in windows with a default button Qt already does this.
void pressOnEnter(QPushButton& button);

/// Lets Enter activate the current entry of a list, and not press the window's default button too.
void keepEnter(QAbstractItemView& list);

}  // namespace quillon::windows

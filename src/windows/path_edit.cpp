#include "windows/path_edit.h"

#include <QFocusEvent>

#include "base/encoding.h"
#include "files/paths.h"
#include "windows/app_context.h"

namespace quillon::windows {
namespace {

/// Leaving for a context menu or another program is not leaving the field.
bool isLeft(Qt::FocusReason reason) {
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

}  // namespace

PathEdit::PathEdit(QWidget* parent) : QLineEdit(parent) {
  setAcceptDrops(false);  // the window takes a file that is dropped; as text it would be an address
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (displaying_) return;
    path_ = text;
    if (onTyped) onTyped();
  });
}

void PathEdit::setPath(const QString& path) {
  if (path == path_) return;  // also in capitals it is shown already
  path_ = path;
  display(path);
}

void PathEdit::focusInEvent(QFocusEvent* event) {
  // However the focus comes: what is edited has to be the path, not its capitals.
  display(path_);
  QLineEdit::focusInEvent(event);
}

void PathEdit::focusOutEvent(QFocusEvent* event) {
  if (isLeft(event->reason())) {
    const QString upper = toQt(base::upperCase(fromQt(path_), base::Encoding::Utf8));
    if (!files::namesHaveCase()) path_ = upper;
    display(upper);
  }
  QLineEdit::focusOutEvent(event);
}

void PathEdit::display(const QString& text) {
  if (text == this->text()) return;
  displaying_ = true;
  setText(text);
  displaying_ = false;
}

}  // namespace quillon::windows

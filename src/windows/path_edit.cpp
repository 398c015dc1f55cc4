#include "windows/path_edit.h"

#include <QFocusEvent>

#include "base/encoding.h"
#include "files/paths.h"
#include "windows/app_context.h"

namespace quillon::windows {
namespace {

/// Switching to a context menu or another program does not count as leaving the field.
bool isLeft(Qt::FocusReason reason) {
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

}  // namespace

PathEdit::PathEdit(QWidget* parent) : QLineEdit(parent) {
  setAcceptDrops(false);  // the window accepts dropped files; as text they would be URLs
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (displaying_) return;
    path_ = text;
    if (onTyped) onTyped();
  });
}

void PathEdit::setPath(const QString& path) {
  if (path == path_) return;  // already displayed, if only in capitals
  path_ = path;
  display(path);
}

void PathEdit::focusInEvent(QFocusEvent* event) {
  // However the field gets the focus, edit the path itself, not its capitals.
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

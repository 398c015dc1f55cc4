#include "windows/path_label.h"

#include <QPainter>
#include <QStyle>

#include "windows/screen_fit.h"

namespace quillon::windows {

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void PathLabel::setPath(const QString& path) {
  if (path == text()) return;
  setText(path);
  setToolTip(wholeToolTip(path));
  if (onChanged) onChanged();
}

QSize PathLabel::minimumSizeHint() const {
  constexpr int kLeastCharacters = 12;
  return {fontMetrics().averageCharWidth() * kLeastCharacters, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect room = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
  style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        shown, foregroundRole());
}

}  // namespace quillon::windows

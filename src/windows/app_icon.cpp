#include "windows/app_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace quillon::windows {
namespace {

const QColor kBoard(0x1f, 0x8a, 0x5b);
const QColor kEdge(0x0b, 0x5d, 0x3b);
const QColor kCopper(0xf2, 0xc1, 0x4e);
const QColor kFeather(0xfb, 0xf8, 0xec);

QPen pen(const QColor& colour, qreal width) {
  return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// The board: rounded corners and a hole with a copper ring.
void drawBoard(QPainter& painter) {
  const QPointF hole(46.0, 45.0);
  QPainterPath board;  // its fill leaves the hole out
  board.addRoundedRect(QRectF(4.0, 14.0, 54.0, 44.0), 8.0, 8.0);
  board.addEllipse(hole, 6.0, 6.0);
  painter.setPen(pen(kEdge, 4.0));
  painter.setBrush(kBoard);
  painter.drawPath(board);
  painter.setPen(pen(kCopper, 5.0));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(hole, 6.5, 6.5);
}

/// The line of ink and the quill.
void drawQuill(QPainter& painter) {
  painter.setPen(pen(kCopper, 4.0));
  painter.drawLine(QPointF(14.0, 50.0), QPointF(28.0, 50.0));
  QPainterPath feather(QPointF(12.0, 51.0));
  feather.cubicTo(14.0, 26.0, 34.0, 8.0, 61.0, 4.0);
  feather.cubicTo(59.0, 24.0, 44.0, 38.0, 22.0, 40.0);
  feather.closeSubpath();
  painter.setPen(pen(kEdge, 2.0));
  painter.setBrush(kFeather);
  painter.drawPath(feather);
  QPainterPath vein(QPointF(23.0, 37.0));
  vein.cubicTo(29.0, 28.0, 37.0, 20.0, 47.0, 14.0);
  painter.setPen(pen(kEdge, 1.6));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(vein);
}

/// Draws the picture in packaging/quillon.svg, the icon of the executable and the menu entry.
QPixmap draw(int size) {
  constexpr qreal kField = 64.0;
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kField, size / kField);
  drawBoard(painter);
  drawQuill(painter);
  return pixmap;
}

}  // namespace

QIcon appIcon() {
  QIcon icon;
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128, 256}) icon.addPixmap(draw(size));
  return icon;
}

}  // namespace quillon::windows

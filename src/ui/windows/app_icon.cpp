#include "ui/windows/app_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace quillon::ui {
namespace {

/// A board with two holes and the stroke of a quill, on a field of 64 by 64.
QPixmap draw(int size) {
  constexpr qreal kField = 64.0;
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kField, size / kField);
  painter.setPen(QPen(QColor(0x0b, 0x5d, 0x3b), 3.0));
  painter.setBrush(QColor(0x1f, 0x8a, 0x5b));
  painter.drawRoundedRect(QRectF(4.0, 10.0, 56.0, 44.0), 8.0, 8.0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xf4, 0xf1, 0xde));
  painter.drawEllipse(QPointF(14.0, 20.0), 4.0, 4.0);
  painter.drawEllipse(QPointF(50.0, 44.0), 4.0, 4.0);
  QPainterPath quill(QPointF(14.0, 46.0));
  quill.cubicTo(24.0, 34.0, 34.0, 22.0, 52.0, 16.0);
  quill.cubicTo(50.0, 30.0, 36.0, 38.0, 22.0, 42.0);
  quill.closeSubpath();
  painter.drawPath(quill);
  return pixmap;
}

}  // namespace

QIcon appIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(draw(size));
  return icon;
}

}  // namespace quillon::ui

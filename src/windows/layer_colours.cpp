#include "windows/layer_colours.h"

#include <QColor>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include "base/number_text.h"
#include "windows/app_context.h"
#include "windows/picture_plane.h"

namespace quillon::windows {
namespace {

QIcon swatchOf(const QColor& colour) {
  constexpr int kSize = 12;
  QPixmap swatch(kSize, kSize);
  swatch.fill(Qt::darkGray);  // a frame, so that white and black are visible on any background
  QPainter(&swatch).fillRect(swatch.rect().adjusted(1, 1, -1, -1), colour);
  return QIcon(swatch);
}

}  // namespace

QIcon layerSwatch(const QString& entry) {
  bool fits = false;
  const int layer = base::roundedInteger16(base::numberValue(fromQt(entry)), fits);
  if (layer < 1) return {};
  return layerSwatch(layer, themeOf(QGuiApplication::palette()));
}

preview::Theme themeOf(const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  return isDark ? preview::Theme::Dark : preview::Theme::Light;
}

QIcon layerSwatch(int layer, preview::Theme theme) {
  return swatchOf(toQt(preview::colourOfLayer(layer, theme)));
}

}  // namespace quillon::windows

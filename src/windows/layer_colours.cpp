#include "windows/layer_colours.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <array>
#include <map>

#include "base/number_text.h"
#include "windows/app_context.h"

namespace quillon::windows {
namespace {

/// Palette indices of the layers that are not EAGLE's grey.
constexpr int kGrey = 7;
const std::map<int, int>& layerColours() {
  static const std::map<int, int> colours = {
      {1, 4},  {16, 1}, {17, 2}, {18, 2}, {19, 6}, {20, 15}, {25, 7}, {39, 4}, {40, 1}, {41, 4},
      {42, 1}, {43, 2}, {45, 2}, {46, 3}, {47, 6}, {48, 8},  {91, 2}, {92, 1}, {93, 2}, {94, 4}};
  return colours;
}

QColor paletteColour(int number) {
  static const std::array<QColor, 16> palette = {
      QColor(0, 0, 0),       QColor(50, 50, 200),  QColor(50, 200, 50),  QColor(50, 200, 200),
      QColor(200, 50, 50),   QColor(200, 50, 200), QColor(200, 200, 50), QColor(200, 200, 200),
      QColor(100, 100, 100), QColor(0, 0, 255),    QColor(0, 255, 0),    QColor(0, 255, 255),
      QColor(255, 0, 0),     QColor(255, 0, 255),  QColor(255, 255, 0),  QColor(255, 255, 255)};
  return palette[static_cast<std::size_t>(number)];
}

}  // namespace

QIcon layerSwatch(const QString& entry) {
  constexpr int kSize = 12;
  bool fits = false;
  const int layer = base::roundedInteger16(base::numberValue(fromQt(entry)), fits);
  if (layer < 1) return {};
  const auto found = layerColours().find(layer);
  QPixmap swatch(kSize, kSize);
  swatch.fill(Qt::darkGray);  // a frame, so that white and black are visible on any background
  QPainter(&swatch).fillRect(swatch.rect().adjusted(1, 1, -1, -1),
                             paletteColour(found == layerColours().end() ? kGrey : found->second));
  return QIcon(swatch);
}

}  // namespace quillon::windows

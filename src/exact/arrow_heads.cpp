#include "exact/arrow_heads.h"

#include <utility>

#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// Of an arrow's length.
constexpr double kArrowWidth = 1.0 / 3.0;

bool isTriangleArrow(std::string_view block) {
  return block.empty() || block == "." || block == "_CLOSEDFILLED";
}

void drawTriangle(const Item& item, double size, const ArrowPlace& place, const Affine& map,
                  Canvas& canvas) {
  const Point end = place.tip - place.direction * size;
  const Point aside = geometry::leftOf(place.direction) * (0.5 * kArrowWidth * size);
  const Point corners[] = {map(place.tip), map(end + aside), map(end - aside)};
  for (const Point& corner : corners) {
    if (!geometry::usable(corner)) return canvas.lose(item, LossRule::UnusableNumbers);
  }
  canvas.area(item, {{{corners[0]}, {corners[1]}, {corners[2]}}, true});
}

}  // namespace

void drawArrows(const Item& item, std::string_view block, double size,
                const std::vector<ArrowPlace>& places, const Affine& map, Canvas& canvas,
                BlockDrawer& blocks) {
  if (!(size > 0.0) || block == "_NONE" || places.empty()) return;
  if (!isTriangleArrow(block)) {
    std::vector<Affine> maps;
    maps.reserve(places.size());
    for (const ArrowPlace& place : places) {
      maps.push_back(map * Affine::shift(place.tip) * Affine::turnTo(place.direction) *
                     Affine::scaling(size, size));
    }
    if (blocks.drawBlock(item, block, std::move(maps))) return;
    canvas.lose(item, LossRule::ArrowReplaced, map(places.front().tip));
  }
  for (const ArrowPlace& place : places) {
    if (canvas.step()) return;
    drawTriangle(item, size, place, map, canvas);
  }
}

}  // namespace quillon::exact

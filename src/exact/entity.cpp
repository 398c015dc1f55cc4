#include "exact/entity.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/number_text.h"
#include "geometry/object_coordinates.h"

namespace quillon::exact {

bool EntityGroups::nextOfLines(dxf::Group& group) { return cursor_.next(group); }

Affine Item::objectMap(double elevation) const {
  const bool isFlat = entity.normalX == 0.0 && entity.normalY == 0.0 && entity.normalZ == 1.0;
  const bool isSeenFromAbove = depth == Point{};
  if (isFlat && isSeenFromAbove) return map;
  const Affine plane =
      map * geometry::objectCoordinates(entity.normalX, entity.normalY, entity.normalZ, elevation);
  if (isSeenFromAbove) return plane;
  const geometry::PlaneHeight height =
      geometry::objectHeight(entity.normalX, entity.normalY, entity.normalZ, elevation);
  return {plane.xx + depth.x * height.perX,     plane.xy + depth.x * height.perY,
          plane.yx + depth.y * height.perX,     plane.yy + depth.y * height.perY,
          plane.dx + depth.x * height.atOrigin, plane.dy + depth.y * height.atOrigin};
}

Affine Item::mapAt(double height) const {
  return depth == Point{} ? map : Affine::shift(depth * height) * map;
}

PlacedPoints placedPoints(const Item& item, std::vector<Point> points,
                          std::span<const double> heights) {
  if (item.depth == Point{} || heights.empty()) return {std::move(points), item.map};
  const auto isFirstHeight = [&](double height) { return height == heights.front(); };
  if (std::all_of(heights.begin(), heights.end(), isFirstHeight)) {
    return {std::move(points), item.mapAt(heights.front())};
  }
  for (std::size_t i = 0; i < points.size(); ++i) points[i] = item.seen(points[i], heights[i]);
  return {std::move(points), {}, true};
}

void readNumbers(EntityGroups groups, std::initializer_list<NumberField> fields) {
  // Most groups are none of these.
  constexpr unsigned kBits = 64;
  std::uint64_t wanted = 0;
  for (const NumberField& field : fields)
    wanted |= std::uint64_t{1} << (static_cast<unsigned>(field.code) % kBits);
  for (dxf::Group group; groups.next(group);) {
    if ((wanted >> (static_cast<std::uint16_t>(group.code) % kBits) & 1U) == 0) continue;
    for (const NumberField& field : fields) {
      if (field.code != group.code) continue;
      *field.value = base::numberValue(group.value);
      break;
    }
  }
}

}  // namespace quillon::exact

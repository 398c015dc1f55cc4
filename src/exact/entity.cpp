#include "exact/entity.h"

#include "base/number_text.h"
#include "geometry/object_coordinates.h"

namespace quillon::exact {

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

void readNumbers(EntityGroups groups, std::initializer_list<NumberField> fields) {
  for (dxf::Group group; groups.next(group);) {
    for (const NumberField& field : fields) {
      if (field.code != group.code) continue;
      *field.value = base::numberValue(group.value);
      break;
    }
  }
}

}  // namespace quillon::exact

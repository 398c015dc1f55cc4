#include "exact/entity.h"

#include "base/number_text.h"
#include "geometry/object_coordinates.h"

namespace quillon::exact {

Affine Item::objectMap(double elevation) const {
  if (entity.normalX == 0.0 && entity.normalY == 0.0 && entity.normalZ == 1.0) return map;
  return map *
         geometry::objectCoordinates(entity.normalX, entity.normalY, entity.normalZ, elevation);
}

void readNumbers(dxf::GroupCursor groups, std::initializer_list<NumberField> fields) {
  for (dxf::Group group; groups.next(group);) {
    for (const NumberField& field : fields) {
      if (field.code == group.code) *field.value = base::numberValue(group.value);
    }
  }
}

}  // namespace quillon::exact

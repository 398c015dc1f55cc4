#include "exact/insert_values.h"

#include <algorithm>

#include "base/number_text.h"

namespace quillon::exact {
namespace {

/// The number of columns or rows.
std::size_t cellsOf(double number) {
  constexpr double kMost = 32767.0;
  return static_cast<std::size_t>(std::clamp(number, 1.0, kMost));
}

void takeNumber(const dxf::Group& group, InsertValues& values) {
  const double number = base::numberValue(group.value);
  const double scale = number == 0.0 ? 1.0 : number;
  switch (group.code) {
    case 10:
      values.at.x = number;
      break;
    case 20:
      values.at.y = number;
      break;
    case 30:
      values.elevation = number;
      break;
    case 41:
      values.scaleX = scale;
      break;
    case 42:
      values.scaleY = scale;
      break;
    case 43:
      values.scaleZ = scale;
      break;
    case 44:
      values.columnStep = number;
      break;
    case 45:
      values.rowStep = number;
      break;
    case 50:
      values.angle = number;
      break;
    case 70:
      values.columns = cellsOf(number);
      break;
    case 71:
      values.rows = cellsOf(number);
      break;
    default:
      break;
  }
}

}  // namespace

InsertValues readInsert(const Item& item, const Canvas& canvas) {
  constexpr int kFirstNumber = 10;
  constexpr int kLastNumber = 71;
  InsertValues values;
  bool isInDictionary = false;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    if (group.code == 2) values.block = group.value;
    if (group.code == 102) isInDictionary = group.value == "{ACAD_XDICTIONARY";
    if (group.code == 360 && isInDictionary) values.dictionary = group.value;
    if (group.code >= kFirstNumber && group.code <= kLastNumber) takeNumber(group, values);
  }
  return values;
}

}  // namespace quillon::exact

#include "exact/dimension_values.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "geometry/object_coordinates.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// Numbers of a DIMENSION that do not go into its values as they are.
struct DimensionGroups {
  double flags = 0.0;
  double attachment = 5.0;
  double spacingStyle = 1.0;
  Point text;
  Point blockShift;
  double blockElevation = 0.0;
};

DimensionGroups readDimensionNumbers(const Item& item, const Canvas& canvas,
                                     DimensionValues& values) {
  DimensionGroups groups;
  readNumbers(
      canvas.groupsOf(item),
      {{10, &values.place.x},      {20, &values.place.y},        {11, &groups.text.x},
       {21, &groups.text.y},       {31, &values.elevation},      {12, &groups.blockShift.x},
       {22, &groups.blockShift.y}, {32, &groups.blockElevation}, {13, &values.first.x},
       {23, &values.first.y},      {14, &values.second.x},       {24, &values.second.y},
       {15, &values.third.x},      {25, &values.third.y},        {16, &values.arc.x},
       {26, &values.arc.y},        {41, &values.lineSpacing},    {50, &values.angle},
       {51, &values.horizontal},   {52, &values.oblique},        {53, &values.textAngle},
       {70, &groups.flags},        {71, &groups.attachment},     {72, &groups.spacingStyle}});
  return groups;
}

/// Reads lines, not groups, whose values have no blanks around them.
void readDimensionTexts(const Item& item, const Canvas& canvas, DimensionValues& values) {
  bool hasText = false;
  dxf::LineCursor lines(item.entity.groups, canvas.drawing().lineEnds);
  while (!lines.atEnd()) {
    const std::string_view code = base::trimBlanks(lines.next());
    if (code == "0" || lines.atEnd()) return;
    const std::string_view line = lines.next();
    const std::string_view value = base::trimBlanks(line);
    if (code == "2" && values.block.empty()) values.block = value;
    if (code == "1" && !hasText) {
      hasText = true;
      values.text = value;
      values.hasNoText = value.empty() && !line.empty();
    }
  }
}

Point unmapped(const Affine& map, Point p) {
  const double determinant = map.determinant();
  const Point v{p.x - map.dx, p.y - map.dy};
  return {(map.yy * v.x - map.xy * v.y) / determinant, (map.xx * v.y - map.yx * v.x) / determinant};
}

/// Those of its points that are in world coordinates; the plane is that of the others.
void toObjectCoordinates(const Entity& entity, DimensionValues& values) {
  if (entity.normalX == 0.0 && entity.normalY == 0.0 && entity.normalZ > 0.0) return;
  const Affine plane =
      geometry::objectCoordinates(entity.normalX, entity.normalY, entity.normalZ, values.elevation);
  for (Point* const point : {&values.place, &values.first, &values.second, &values.third}) {
    *point = unmapped(plane, *point);
  }
}

}  // namespace

bool DimensionValues::usable() const {
  const std::initializer_list<Point> points = {place, first, second,
                                               third, arc,   textPlace.value_or(Point{})};
  return std::all_of(points.begin(), points.end(), [](Point p) { return geometry::usable(p); }) &&
         geometry::usable({angle, oblique}) && geometry::usable({textAngle, horizontal});
}

DimensionValues readDimension(const Item& item, const Canvas& canvas) {
  constexpr int kTypes = 7;
  constexpr int kMeasuresX = 64;
  constexpr int kOwnTextPlace = 128;
  DimensionValues values;
  const DimensionGroups groups = readDimensionNumbers(item, canvas, values);
  readDimensionTexts(item, canvas, values);
  const int flags = static_cast<int>(std::clamp(groups.flags, 0.0, 1e6));
  values.type = static_cast<DimensionType>(flags & kTypes);
  values.measuresX = (flags & kMeasuresX) != 0;
  // Programs that leave the place to others write (0 0).
  if (groups.text != Point{} || (flags & kOwnTextPlace) != 0) values.textPlace = groups.text;
  values.attachment = static_cast<int>(std::clamp(groups.attachment, 1.0, 9.0));
  values.exactSpacing = groups.spacingStyle == 2.0;
  const Point shift = item.objectMap(groups.blockElevation)(groups.blockShift) - item.map(Point{});
  values.blockMap = Affine::shift(shift) * item.map;
  toObjectCoordinates(item.entity, values);
  return values;
}

}  // namespace quillon::exact

#include "preview/lettering.h"

#include "geometry/affine.h"
#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::preview {
namespace {

using geometry::Affine;
using geometry::Point;

bool has(std::string_view words, std::string_view word) {
  return words.find(word) != std::string_view::npos;
}

/// The lower left corner of the text's box, whose height is that of a capital.
Point cornerOf(std::string_view align, double width) {
  Point corner;
  const bool centred = has(align, "Center");
  const bool toSide = has(align, "Left") || has(align, "Right");
  const bool upOrDown = has(align, "Top") || has(align, "Bottom");
  if (has(align, "Right")) corner.x = -width;
  if (centred && !toSide) corner.x = -0.5 * width;
  if (has(align, "Top")) corner.y = -1.0;
  if (centred && !upOrDown) corner.y = -0.5;
  return corner;
}

/// What EAGLE would not show like this.
bool isUpsideDown(double degrees) {
  constexpr double kFirst = 90.0;
  constexpr double kLast = 270.0;
  return degrees > kFirst && degrees <= kLast;
}

}  // namespace

Strokes letteringOf(const eagle::RecordedText& text, std::string_view utf8) {
  Strokes strokes = strokesOf(utf8);
  const double width = widthOf(utf8);
  Affine map = Affine::shift(cornerOf(text.align, width));
  if (!text.spin && isUpsideDown(text.degrees)) {
    map = map * Affine{-1.0, 0.0, 0.0, -1.0, width, 1.0};
  }
  map = Affine::turnTo(geometry::unitVector(text.degrees)) * map;
  if (text.mirrored) map = Affine::scaling(-1.0, 1.0) * map;
  map = Affine::shift(text.at) * Affine::scaling(text.size, text.size) * map;
  for (Point& point : strokes.points) point = map(point);
  return strokes;
}

}  // namespace quillon::preview

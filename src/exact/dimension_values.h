#pragma once

#include <optional>
#include <string_view>

#include "exact/canvas.h"

namespace quillon::exact {

enum class DimensionType : int {
  Linear = 0,
  Aligned = 1,
  Angular = 2,  ///< between two lines
  Diameter = 3,
  Radius = 4,
  AngularByPoints = 5,
  Ordinate = 6,
};

/// The groups of a DIMENSION. Points are in its object coordinates, and angles in degrees. Texts
/// are views into the drawing.
struct DimensionValues {
  DimensionType type = DimensionType::Linear;
  bool measuresX = false;  ///< an ordinate's
  std::string_view block;
  std::string_view text;           ///< its own; empty: the measure
  bool hasNoText = false;          ///< a blank as its text
  Point place;                     ///< 10: on the dimension line; what it is depends on the type
  Point first;                     ///< 13
  Point second;                    ///< 14
  Point third;                     ///< 15
  Point arc;                       ///< 16
  std::optional<Point> textPlace;  ///< 11; none: to be found
  double angle = 0.0;              ///< of the dimension line
  double oblique = 0.0;            ///< of the extension lines; 0: square to the dimension line
  double textAngle = 0.0;          ///< 0: along the line
  double horizontal =
      0.0;  ///< from the x axis that ordinates are measured along to that of the plane
  int attachment = 5;
  double lineSpacing = 1.0;
  bool exactSpacing = false;
  double elevation = 0.0;
  Affine blockMap;  ///< from the block's coordinates to the script

  bool usable() const;
};

DimensionValues readDimension(const Item& item, const Canvas& canvas);

}  // namespace quillon::exact

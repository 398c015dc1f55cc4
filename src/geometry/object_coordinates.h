#pragma once

#include "geometry/affine.h"

namespace quillon::geometry {

/// From a plane in space to the plane seen from above. The first plane is square to (nx ny nz) and
/// lies `elevation` above the origin along it; its x axis is found by the arbitrary axis rule: the
/// world's y axis x N where N is within 1/64 of the z axis, else the world's z axis x N. (0 0 1) at
/// any elevation gives the map that changes nothing, (0 0 -1) that from x to -x.
///
/// The vector may have any length. One without length, or with a part that is not finite, counts as
/// (0 0 1), and an elevation that is not finite as 0. A plane seen from its edge gives a map onto a
/// line, whose determinant is 0 but for rounding.
Affine objectCoordinates(double nx, double ny, double nz, double elevation = 0.0);

/// How high (x y) of such a plane is in space: atOrigin + x perX + y perY.
struct PlaneHeight {
  double perX = 0.0;
  double perY = 0.0;
  double atOrigin = 0.0;
};
PlaneHeight objectHeight(double nx, double ny, double nz, double elevation = 0.0);

}  // namespace quillon::geometry

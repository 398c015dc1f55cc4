#pragma once

#include <array>
#include <cstddef>
#include <functional>

#include "geometry/path.h"

namespace quillon::geometry {

// Curves in the plane that a parameter runs along, and what drawing them as a path takes and tells.

/// Which piece of a curve is meant where two of them meet: the one before or that after.
enum class Side { kBefore, kAfter };

/// A point of a curve, and how it goes on there.
struct CurveSample {
  Point at;
  Point derivative;  ///< by the parameter; of any length, (0 0) where the curve has no direction
};

/// A curve by its parameter. The side matters only where the curve has a kink.
using Curve = std::function<CurveSample(double parameter, Side side)>;

/// How many points between its ends a part of a curve is looked at in.
inline constexpr std::size_t kPointsInPart = 15;

/// These points, by coordinates, so that several are worked out at once: the first, the last, the
/// second, the last but one, and so on up to the one in the middle.
struct PartPoints {
  std::array<double, kPointsInPart> x{};
  std::array<double, kPointsInPart> y{};

  /// Where a point is in both, by its index on the way from start to end.
  static constexpr std::size_t placeOf(std::size_t index) {
    const std::size_t fromEnd = kPointsInPart - 1 - index;
    return index <= fromEnd ? 2 * index : 2 * fromEnd + 1;
  }
  Point operator[](std::size_t index) const { return {x[placeOf(index)], y[placeOf(index)]}; }
  void set(std::size_t index, Point p) {
    x[placeOf(index)] = p.x;
    y[placeOf(index)] = p.y;
  }
};

/// Points of a curve for less than a sample costs, and as exact but for some rounding.
class CurvePoints {
 public:
  virtual ~CurvePoints() = default;
  /// Gives the points of a part of the curve without kinks that divide it at equal steps of the
  /// parameter. `start` is where the curve is at `from`.
  virtual void divide(double from, double to, const CurveSample& start, PartPoints& points) = 0;
  /// The one in the middle of them alone.
  virtual Point middle(double from, double to, const CurveSample& start) = 0;
  virtual Point at(double parameter) = 0;
  /// The size of the largest number that was rounded on the way.
  virtual double size() const = 0;
};

/// Lengths are in the unit of the coordinates.
struct CurveSettings {
  double tolerance;   ///< largest distance between the curve and its path; above 0
  double resolution;  ///< points closer than this are the same point; above 0
  /// The work that a curve may cause. What is left then is drawn with one line for each piece.
  std::size_t maxVertices = 200'000;
};

/// What is wrong with the path of a curve.
struct CurveReport {
  bool limitReached = false;  ///< after CurveSettings::maxVertices vertices
  bool coarse = false;    ///< a part is further off than the tolerance, however short it was made
  bool gap = false;       ///< the curve itself jumps; a line bridges that
  bool unusable = false;  ///< some coordinates are huge or no numbers; they are left out

  bool operator==(const CurveReport&) const = default;
};

struct CurvePath {
  Path path;
  CurveReport report;
};

}  // namespace quillon::geometry

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "exact/canvas.h"
#include "geometry/hatch_lines.h"
#include "geometry/loops.h"

namespace quillon::exact {

/// One edge of a loop; numbers that are not given are none.
struct HatchEdge {
  enum class Kind : std::uint8_t { Unknown, Line, Arc, Ellipse, Spline };
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

  Kind kind = Kind::Unknown;
  bool isClockwise = false;
  Point from{kNone, kNone};  ///< start, or centre
  Point to{kNone, kNone};    ///< end, or end of the major axis from the centre
  double radius = kNone;     ///< of an arc; of an ellipse the ratio of its axes
  double start = 0.0;        ///< degrees as seen from the centre; of an ellipse from its major axis
  double end = 360.0;
  std::size_t spline = 0;  ///< index into the loop's splines
};

struct HatchSpline {
  int degree = 3;
  bool isPeriodic = false;
  std::vector<double> knots{};
  std::vector<double> weights{};
  std::vector<Point> controlPoints{};
  std::vector<Point> fitPoints{};
  Point startTangent{};
  Point endTangent{};
};

/// A loop as the drawing has it: corners with bulges, or edges.
struct HatchLoop {
  bool isPolyline = false;
  bool isTextBox = false;
  Path polyline{{}, true};
  std::vector<HatchEdge> edges{};
  std::vector<HatchSpline> splines{};
};

/// The groups of a HATCH or MPOLYGON, in its own coordinates.
struct HatchGroups {
  double elevation = 0.0;
  Point offset{};  ///< of the loops of an MPOLYGON
  bool isSolid = false;
  bool isGradient = false;
  geometry::NestedFill nesting = geometry::NestedFill::everySecond;
  std::vector<HatchLoop> loops{};
  std::vector<geometry::HatchFamily> families{};
};

/// Reads all groups in one pass. None of the counts is believed: what follows decides.
HatchGroups readHatch(const Item& item, Canvas& canvas);

}  // namespace quillon::exact

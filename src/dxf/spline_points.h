#pragma once

#include <string_view>
#include <vector>

#include "dxf/group_cursor.h"

namespace quillon::dxf {

struct SplinePoint {
  std::string_view x;
  std::string_view y;
};

/// The points of one SPLINE, texts as found. Fit points are never stored: see FitPointRule.
struct SplineRec {
  std::vector<std::string_view> knots;
  std::vector<SplinePoint> controlPoints;
  std::vector<std::string_view> weights;  ///< at most one element: the last weight wins
};

SplineRec readSpline(GroupCursor groups);

/// Pairs group 11 with group 12 as a fit point, which cannot be stored and so raises an error; kept
/// so that scripts stay the same. Ordinary drawings have the start tangent (12) before the fit
/// points (11).
class FitPointRule {
 public:
  /// Throws RunTimeError (TooManyPoints) when the group completes a pair.
  void visit(const Group& group);

 private:
  std::string_view x_;
};

}  // namespace quillon::dxf

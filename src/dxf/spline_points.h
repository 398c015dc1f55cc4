#pragma once

#include <string_view>
#include <vector>

#include "dxf/group_cursor.h"

namespace quillon::dxf {

struct SplinePoint {
  std::string_view x;
  std::string_view y;
};

/// The control points of a SPLINE in file order, texts as found. Fit points are never stored: see
/// FitPointRule.
std::vector<SplinePoint> readControlPoints(GroupReplay groups);

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

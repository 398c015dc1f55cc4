#include "dxf/spline_points.h"

#include "base/run_time_error.h"

namespace quillon::dxf {

SplineRec readSpline(GroupCursor groups) {
  SplineRec spline;
  std::string_view x;
  for (Group group; groups.next(group);) {
    switch (group.code) {
      case 10:
        x = group.value;
        break;
      case 20:
        if (!x.empty() && !group.value.empty()) spline.controlPoints.push_back({x, group.value});
        break;
      case 40:
        if (!group.value.empty()) spline.knots.push_back(group.value);
        break;
      case 41:
        spline.weights.assign(1, group.value);
        break;
      default:
        break;
    }
  }
  return spline;
}

void FitPointRule::visit(const Group& group) {
  switch (group.code) {
    case 10:
      x_ = {};
      break;
    case 11:
    case 41:
      x_ = group.value;
      break;
    case 12:
      if (!x_.empty() && !group.value.empty()) {
        throw base::RunTimeError(base::Fault::TooManyPoints, group.value, group.value.data());
      }
      break;
    default:
      break;
  }
}

}  // namespace quillon::dxf

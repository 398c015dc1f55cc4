#include "dxf/spline_points.h"

#include "base/run_time_error.h"

namespace quillon::dxf {

std::vector<SplinePoint> readControlPoints(GroupReplay groups) {
  std::vector<SplinePoint> points;
  std::string_view x;
  for (Group group; groups.next(group);) {
    if (group.code == 10) x = group.value;
    if (group.code == 20 && !x.empty() && !group.value.empty()) points.push_back({x, group.value});
  }
  return points;
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

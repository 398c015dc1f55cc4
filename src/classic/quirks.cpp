#include "classic/quirks.h"

#include <cmath>
#include <utility>

#include "base/number_text.h"

namespace quillon::classic {

using geometry::Mirror;
using geometry::Placement;
using geometry::Point;

bool isNegativeText(std::string_view text) {
  constexpr double kSmallest = 1e-5;
  return text.find('-') != std::string_view::npos &&
         std::fabs(base::numberValue(text)) >= kSmallest;
}

double textRotation(double degrees, const Placement& placement) {
  return degrees + placement.rotation;
}

Point textPosition(double x, double y, const Mirror& mirror, const Placement& placement) {
  return {x * mirror.x * placement.scaleX + placement.dx,
          y * mirror.y * placement.scaleY + placement.dy};
}

Point blockTranslation(Point insertion, Point base, const Placement& placement) {
  return {insertion.x - base.x * placement.scaleX, insertion.y - base.y * placement.scaleY};
}

void mirrorArc(const Mirror& mirror, double& startAngle, double& endAngle) {
  constexpr double kHalfTurn = 180.0;
  if (mirror.x != -1.0 && mirror.y != -1.0) return;
  std::swap(startAngle, endAngle);
  startAngle = kHalfTurn - startAngle;
  endAngle = kHalfTurn - endAngle;
}

std::size_t splineOrder(std::size_t n) {
  constexpr std::size_t kLongSpline = 14;
  constexpr std::size_t kOrderOfLongSplines = 7;
  if (n < 2) return 2;
  return n < kLongSpline ? n + 1 : kOrderOfLongSplines;
}

std::size_t splineSamples(std::size_t n) {
  constexpr std::size_t kPointsForEach = 10;
  return n * kPointsForEach;
}

}  // namespace quillon::classic

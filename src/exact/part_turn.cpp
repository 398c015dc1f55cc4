#include "exact/part_turn.h"

#include <cmath>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

using geometry::Affine;
using geometry::Point;

/// How much scales along x and y may differ, and how far from square to each other the axes may be.
constexpr double kSameScale = 1e-6;
constexpr double kSameDegrees = 0.001;
constexpr int kTenthsOfTurn = 3600;

}  // namespace

std::optional<PartTurn> partTurnOf(const Affine& map, const Options& options) {
  const Point alongX{map.xx, map.yx};
  const Point alongY{map.xy, map.yy};
  if (!geometry::usable(alongX) || !geometry::usable(alongY)) return std::nullopt;
  const double x = geometry::norm(alongX);
  const double y = geometry::norm(alongY);
  if (!(x > 0.0) || std::fabs(x - y) > kSameScale * x) return std::nullopt;
  if (std::fabs(geometry::dot(alongX, alongY)) > kSameScale * x * y) return std::nullopt;
  PartTurn turn;
  turn.mirrored = map.mirrors();
  turn.scale = map.scale() / options.factor;
  const double degrees = geometry::directionOf(turn.mirrored ? -alongX : alongX);
  const double step = options.turnsFreely() ? 0.1 : 90.0;
  const double steps = std::round(degrees / step);
  if (std::fabs(degrees - step * steps) > kSameDegrees) return std::nullopt;
  const auto tenths = static_cast<int>(std::lround(step * steps * 10.0));
  turn.tenths = (tenths + kTenthsOfTurn) % kTenthsOfTurn;
  return turn;
}

Affine partContent(const PartTurn& turn, Point base, const Options& options) {
  const double scale = turn.scale * options.factor;
  return Affine::scaling(turn.mirrored ? -scale : scale, scale) * Affine::shift(-base);
}

Affine partPlace(const PartTurn& turn, Point at) {
  return Affine::shift(at) * Affine::turnTo(geometry::unitVector(turn.tenths / 10.0));
}

}  // namespace quillon::exact

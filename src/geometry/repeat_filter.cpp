#include "geometry/repeat_filter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/overlaps.h"

namespace quillon::geometry {
namespace {

/// Numbers of grids for one layer; those of other layers are multiples of kGrids higher.
constexpr std::uint64_t kMiddles = 0;
constexpr std::uint64_t kLines = 1;
constexpr std::uint64_t kCircles = 2;
constexpr std::uint64_t kGrids = 4;

std::uint64_t gridOf(const Stroke& stroke, std::uint64_t kind) {
  return (stroke.layer * kGrids + kind) * 0xd6e8feb86659fd93U;
}

bool isLine(const Stroke& stroke) { return stroke.edge.curve == 0.0 && !stroke.isCircle; }

/// No stroke of which nothing would be left; some that would stay are not counted.
bool hasSize(const Stroke& stroke, double resolution) {
  const Edge& edge = stroke.edge;
  constexpr double kClearly = 1.0 + 1e-9;
  return usable(edge.from) && usable(edge.to) && std::fabs(edge.curve) < 360.0 &&
         norm(edge.to - edge.from) > resolution * kClearly;
}

}  // namespace

RepeatFilter::RepeatFilter(std::size_t strokes, const Box& box, double resolution, int round)
    : resolution_(resolution),
      origin_(box.empty() ? Point{} : box.low + (box.high - box.low) * 0.5),
      offsetCell_(overlapOffsetCell(resolution, box.diagonal())),
      crowds_(strokes * 3, round) {}

void RepeatFilter::addTo(Box& box, const Stroke& stroke, double resolution) {
  if (isNothing(stroke, resolution)) return;
  box.add(stroke.edge.from);
  box.add(stroke.edge.to);
}

void RepeatFilter::add(const Stroke& stroke) {
  const auto addCell = [this](std::uint64_t hash) { crowds_.add(hash); };
  forEachMiddleCell(stroke, addCell);
  forEachCarrierCell(stroke, addCell);
}

bool RepeatFilter::mayRepeat(const Stroke& stroke) const {
  if (isFar(stroke) || !hasSize(stroke, resolution_)) return true;
  bool shares = false;
  const auto look = [&](std::uint64_t hash) { shares = shares || crowds_.isShared(hash); };
  forEachMiddleCell(stroke, look);
  if (!shares) forEachCarrierCell(stroke, look);
  return shares;
}

void RepeatFilter::addCarrier(const Stroke& stroke) {
  forEachCarrierCell(stroke, [this](std::uint64_t hash) { crowds_.add(hash); });
}

bool RepeatFilter::mayBeOnCarrier(const Stroke& stroke) const {
  bool isNear = false;
  forEachCarrierCell(stroke, [&](std::uint64_t hash) { isNear = isNear || crowds_.has(hash); });
  return isNear;
}

bool RepeatFilter::areOnOneCarrier(const Stroke& one, const Stroke& other) const {
  std::uint64_t sum = 0;
  const auto mix = [&sum](std::uint64_t hash) { sum = mixedBits(sum ^ hash); };
  forEachCarrierCell(one, mix);
  const std::uint64_t first = std::exchange(sum, 0);
  forEachCarrierCell(other, mix);
  return first == sum;
}

/// Where coordinates are so large that equal cells mean little.
bool RepeatFilter::isFar(const Stroke& stroke) const {
  const double most = kMostUnits * resolution_;
  const auto isWithin = [most](Point p) { return std::fabs(p.x) < most && std::fabs(p.y) < most; };
  if (!isWithin(stroke.edge.from) || !isWithin(stroke.edge.to) || !isWithin(origin_)) return true;
  if (isLine(stroke)) return false;
  const Circle circle = overlapCircleOf(stroke);
  return !isWithin(circle.centre) || !(circle.radius < most);
}

/// Equal strokes have equal middles, in either sense.
template <typename Function>
void RepeatFilter::forEachMiddleCell(const Stroke& stroke, Function&& function) const {
  constexpr double kWidth = 64.0;
  // Unless they are short, equal lines have nearly the same direction as well.
  constexpr double kLong = 1e5;
  if (isLine(stroke) && norm(stroke.edge.to - stroke.edge.from) >= kLong * resolution_) return;
  const Point at = stroke.isCircle ? stroke.edge.from : middle(stroke.edge.from, stroke.edge.to);
  forEachCell(gridOf(stroke, kMiddles), WideCell(at.x / resolution_, kWidth),
              WideCell(at.y / resolution_, kWidth), function);
}

template <typename Function>
void RepeatFilter::forEachCarrierCell(const Stroke& stroke, Function&& function) const {
  return isLine(stroke) ? forEachLineCell(stroke, function) : forEachCircleCell(stroke, function);
}

/// By the direction of the line, without a sense, and its distance from the origin. The direction
/// is told by a number that grows with the angle, but never faster.
template <typename Function>
void RepeatFilter::forEachLineCell(const Stroke& stroke, Function&& function) const {
  constexpr double kWidth = 2.0;
  Point way = unit(stroke.edge.to - stroke.edge.from);
  if (way.x < 0.0) way = -way;
  const double sum = std::fabs(way.x) + std::fabs(way.y);
  const double slope = sum > 0.0 ? way.y / sum : 0.0;
  const double offset = cross(way, stroke.edge.from - origin_) / offsetCell_;
  const std::uint64_t grid = gridOf(stroke, kLines);
  forEachCell(grid, WideCell(slope / kOverlapAngleCell, kWidth), WideCell(offset, kWidth),
              function);
  // Those that are almost upright may lean to either side: upwards is next to downwards.
  if (slope > 1.0 - 2.0 * kOverlapAngleCell) {
    forEachCell(grid, WideCell((slope - 2.0) / kOverlapAngleCell, kWidth),
                WideCell(-offset, kWidth), function);
  }
}

template <typename Function>
void RepeatFilter::forEachCircleCell(const Stroke& stroke, Function&& function) const {
  constexpr double kWidth = 16.0;
  const Circle circle = overlapCircleOf(stroke);
  const double cell = overlapCircleCell(resolution_);
  const WideCell x((circle.centre.x - origin_.x) / cell, kWidth);
  const WideCell y((circle.centre.y - origin_.y) / cell, kWidth);
  const WideCell radius(circle.radius / cell, kWidth);
  const std::uint64_t grid = gridOf(stroke, kCircles);
  forEachCell(grid + bitsOf(radius.own), x, y, function);
  if (radius.isInPrevious) forEachCell(grid + bitsOf(radius.own - 1.0), x, y, function);
}

}  // namespace quillon::geometry

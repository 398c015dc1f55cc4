#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "geometry/box.h"
#include "geometry/degrees.h"
#include "geometry/duplicates.h"
#include "geometry/overlaps.h"
#include "geometry/vectors.h"
#include "geometry/wide_cell.h"

namespace quillon::geometry {

/// Cells of grids that strokes are in. Those that equal or overlap share one of them.
class StrokeCells {
 public:
  /// For strokes within the box.
  StrokeCells(const Box& box, double resolution);

  double resolution() const { return resolution_; }

  /// Calls function(hash) for each cell of where the stroke is, and of the line or circle that it
  /// is on. False where coordinates are so large that equal cells mean little.
  template <typename Function>
  bool forEach(const Stroke& stroke, Function&& function) const;
  /// The same for the line or circle alone.
  template <typename Function>
  void forEachCarrier(const Stroke& stroke, Function&& function) const;
  /// Whether a stroke is so little off another one that it is near to nothing else.
  bool areOnOne(const Stroke& one, const Stroke& other) const;

 private:
  /// Numbers of grids for one layer; those of other layers are multiples of kGrids higher.
  static constexpr std::uint64_t kMiddles = 0;
  static constexpr std::uint64_t kLines = 1;
  static constexpr std::uint64_t kCircles = 2;
  static constexpr std::uint64_t kGrids = 4;

  static std::uint64_t gridOf(const Stroke& stroke, std::uint64_t kind) {
    return (stroke.layer * kGrids + kind) * 0xd6e8feb86659fd93U;
  }

  static bool isLine(const Stroke& stroke) { return stroke.edge.curve == 0.0 && !stroke.isCircle; }

  template <typename Function>
  void forEachMiddle(const Stroke& stroke, Function&& function) const;
  template <typename Function>
  void forEachOfLine(const Stroke& stroke, Function&& function) const;
  template <typename Function>
  void forEachOfCircle(const Stroke& stroke, const Circle& circle, Function&& function) const;

  double resolution_;
  Point origin_;
  double offsetCell_;
};

inline StrokeCells::StrokeCells(const Box& box, double resolution)
    : resolution_(resolution),
      origin_(box.empty() ? Point{} : box.low + (box.high - box.low) * 0.5),
      offsetCell_(overlapOffsetCell(resolution, box.diagonal())) {}

inline bool StrokeCells::areOnOne(const Stroke& one, const Stroke& other) const {
  std::uint64_t sum = 0;
  const auto mix = [&sum](std::uint64_t hash) { sum = mixedBits(sum ^ hash); };
  forEachCarrier(one, mix);
  const std::uint64_t first = std::exchange(sum, 0);
  forEachCarrier(other, mix);
  return first == sum;
}

template <typename Function>
bool StrokeCells::forEach(const Stroke& stroke, Function&& function) const {
  const double most = kMostUnits * resolution_;
  const auto isWithin = [most](Point p) { return std::fabs(p.x) < most && std::fabs(p.y) < most; };
  const bool isNearby = isWithin(stroke.edge.from) && isWithin(stroke.edge.to) && isWithin(origin_);
  forEachMiddle(stroke, function);
  if (isLine(stroke)) {
    forEachOfLine(stroke, function);
    return isNearby;
  }
  const Circle circle = overlapCircleOf(stroke);
  forEachOfCircle(stroke, circle, function);
  return isNearby && isWithin(circle.centre) && circle.radius < most;
}

/// Equal strokes have equal middles, in either sense. Unless they are short, equal lines have
/// nearly the same direction as well, and an arc that equals one hardly bends.
template <typename Function>
void StrokeCells::forEachMiddle(const Stroke& stroke, Function&& function) const {
  constexpr double kWidth = 64.0;
  constexpr double kLong = 1e5;
  const double length = norm(stroke.edge.to - stroke.edge.from) / resolution_;
  if (isLine(stroke) && length >= kLong) return;
  const Point at = stroke.isCircle ? stroke.edge.from : middle(stroke.edge.from, stroke.edge.to);
  forEachCell(gridOf(stroke, kMiddles), WideCell(at.x / resolution_, kWidth),
              WideCell(at.y / resolution_, kWidth), function);
  // The sagitta is an eighth of this for such arcs; that of one that equals a line is 1 at most.
  constexpr double kMostBend = 16.0;
  const bool mayBeLongLine = !stroke.isCircle && length >= 0.5 * kLong && !isLine(stroke);
  if (mayBeLongLine && length * radiansOf(std::fabs(stroke.edge.curve)) <= kMostBend) {
    forEachOfLine(stroke, function);
  }
}

template <typename Function>
void StrokeCells::forEachCarrier(const Stroke& stroke, Function&& function) const {
  if (isLine(stroke)) return forEachOfLine(stroke, function);
  forEachOfCircle(stroke, overlapCircleOf(stroke), function);
}

/// By the direction of the line, without a sense, and its distance from the origin. The direction
/// is told by a number that grows with the angle, but never faster.
template <typename Function>
void StrokeCells::forEachOfLine(const Stroke& stroke, Function&& function) const {
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
void StrokeCells::forEachOfCircle(const Stroke& stroke, const Circle& circle,
                                  Function&& function) const {
  constexpr double kWidth = 16.0;
  const double cell = overlapCircleCell(resolution_);
  const WideCell x((circle.centre.x - origin_.x) / cell, kWidth);
  const WideCell y((circle.centre.y - origin_.y) / cell, kWidth);
  const WideCell radius(circle.radius / cell, kWidth);
  const std::uint64_t grid = gridOf(stroke, kCircles);
  forEachCell(grid + bitsOf(radius.own), x, y, function);
  if (radius.isInPrevious) forEachCell(grid + bitsOf(radius.own - 1.0), x, y, function);
}

}  // namespace quillon::geometry

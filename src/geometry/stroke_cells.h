#pragma once

#include <algorithm>
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
  /// On the coarse grid, all of a line is one cell; on the fine one, each of its parts of a certain
  /// length, of which a stroke is in those that it reaches to.
  enum class Grid { Coarse, Fine };

  /// For strokes within the box. `meanLength` is the one of lines, about: it keeps the cells of the
  /// fine grid few.
  StrokeCells(const Box& box, double resolution, double meanLength = 0.0);

  double resolution() const { return resolution_; }

  /// Calls function(hash) for each cell of where the stroke is, and of the line or circle that it
  /// is on. False where coordinates are so large that equal cells mean little, and for what is not
  /// clearly longer than the resolution.
  template <typename Function>
  bool forEach(const Stroke& stroke, Grid grid, Function&& function) const;
  /// The same for the line or circle alone.
  template <typename Function>
  void forEachCarrier(const Stroke& stroke, Grid grid, Function&& function) const;
  /// To how many parts of its line a stroke reaches.
  double countOfParts(const Stroke& stroke) const;
  /// Whether strokes are on one line or circle of the coarse grid, and near to nothing but what is
  /// there as well.
  bool areOnOne(const Stroke& one, const Stroke& other) const;
  /// Whether strokes that are on one reach to the same parts of it.
  bool reachToSame(const Stroke& one, const Stroke& other) const;

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

  /// The parts of a line, by their numbers, that a stroke reaches to.
  struct Reach {
    double first;
    double last;

    bool operator==(const Reach&) const = default;
  };

  /// 1 for a line that leads to the right, -1 for its reverse: lines have no sense.
  static double senseOf(Point way) { return std::copysign(1.0, way.x); }
  static Point wayOf(const Stroke& stroke) {
    const Point way = stroke.edge.to - stroke.edge.from;
    return unit(way) * senseOf(way);
  }
  Reach reachOf(const Stroke& stroke, bool isTurned) const;

  /// From one end to the other.
  struct Chord {
    explicit Chord(const Stroke& stroke)
        : way(stroke.edge.to - stroke.edge.from), length(norm(way)) {}

    Point way;
    double length;
  };

  template <typename Function>
  void forEachMiddle(const Stroke& stroke, const Chord& chord, Grid grid,
                     Function&& function) const;
  template <typename Function>
  void forEachOfLine(const Stroke& stroke, const Chord& chord, Grid grid,
                     Function&& function) const;
  template <typename Function>
  void forEachOfWholeLine(const Stroke& stroke, const Chord& chord, Grid grid,
                          Function&& function) const;
  template <typename Function>
  void forEachOfCircle(const Stroke& stroke, const Circle& circle, Function&& function) const;

  bool isWithin(const Point& p) const { return std::fabs(p.x) < most_ && std::fabs(p.y) < most_; }

  double resolution_;
  double most_;   ///< coordinates beyond are too large
  double least_;  ///< what is longer has a size
  double long_;   ///< equal lines that are longer have nearly the same direction
  Point origin_;
  bool isOriginWithin_;
  double offsetCell_;
  double margin_;  ///< how much farther strokes are taken to reach than they do
  double partLength_;
};

inline StrokeCells::StrokeCells(const Box& box, double resolution, double meanLength)
    : resolution_(resolution),
      most_(std::min(kMostUnits * resolution, kLargestCoordinate)),
      least_(resolution * (1.0 + 1e-9)),
      long_(1e5 * resolution),
      origin_(box.empty() ? Point{} : box.low + (box.high - box.low) * 0.5),
      isOriginWithin_(isWithin(origin_)),
      offsetCell_(overlapOffsetCell(resolution, box.diagonal())),
      // Where a point within the box is along two lines whose directions share a cell of overlaps
      // differs by less than half of this.
      margin_(offsetCell_),
      partLength_(std::max(0.5 * meanLength, 2.0 * margin_)) {}

inline bool StrokeCells::areOnOne(const Stroke& one, const Stroke& other) const {
  std::uint64_t sum = 0;
  const auto mix = [&sum](std::uint64_t hash) { sum = mixedBits(sum ^ hash); };
  forEachCarrier(one, Grid::Coarse, mix);
  const std::uint64_t first = std::exchange(sum, 0);
  forEachCarrier(other, Grid::Coarse, mix);
  return first == sum;
}

inline bool StrokeCells::reachToSame(const Stroke& one, const Stroke& other) const {
  if (!isLine(one) || !isLine(other)) return true;
  return reachOf(one, false) == reachOf(other, false);
}

inline double StrokeCells::countOfParts(const Stroke& stroke) const {
  if (!isLine(stroke)) return 1.0;
  const Reach reach = reachOf(stroke, false);
  return reach.last - reach.first + 1.0;
}

inline StrokeCells::Reach StrokeCells::reachOf(const Stroke& stroke, bool isTurned) const {
  const Point way = isTurned ? -wayOf(stroke) : wayOf(stroke);
  const auto [low, high] =
      std::minmax({dot(way, stroke.edge.from - origin_), dot(way, stroke.edge.to - origin_)});
  return {std::floor((low - margin_) / partLength_), std::floor((high + margin_) / partLength_)};
}

template <typename Function>
bool StrokeCells::forEach(const Stroke& stroke, Grid grid, Function&& function) const {
  const Chord chord(stroke);
  const bool isNearby = isWithin(stroke.edge.from) && isWithin(stroke.edge.to) && isOriginWithin_;
  const bool isTold = isNearby && chord.length > least_;
  if (isLine(stroke)) {
    if (!(chord.length >= long_)) forEachMiddle(stroke, chord, grid, function);
    forEachOfLine(stroke, chord, grid, function);
    return isTold;
  }
  forEachMiddle(stroke, chord, grid, function);
  const Circle circle = overlapCircleOf(stroke);
  forEachOfCircle(stroke, circle, function);
  return isTold && std::fabs(stroke.edge.curve) < 360.0 && isWithin(circle.centre) &&
         circle.radius < most_;
}

/// Equal strokes have equal middles, in either sense. Unless they are short, equal lines have
/// nearly the same direction as well, and an arc that equals one hardly bends.
template <typename Function>
void StrokeCells::forEachMiddle(const Stroke& stroke, const Chord& chord, Grid grid,
                                Function&& function) const {
  constexpr double kWidth = 64.0;
  const Point at = stroke.isCircle ? stroke.edge.from : middle(stroke.edge.from, stroke.edge.to);
  forEachCell(gridOf(stroke, kMiddles), WideCell(at.x / resolution_, kWidth),
              WideCell(at.y / resolution_, kWidth), function);
  // The sagitta is an eighth of this for such arcs; that of one that equals a line is 1 at most.
  constexpr double kMostBend = 16.0;
  const bool mayBeLongLine = !stroke.isCircle && !isLine(stroke) && chord.length >= 0.5 * long_;
  if (mayBeLongLine &&
      chord.length * radiansOf(std::fabs(stroke.edge.curve)) <= kMostBend * resolution_) {
    forEachOfLine(stroke, chord, grid, function);
  }
}

template <typename Function>
void StrokeCells::forEachCarrier(const Stroke& stroke, Grid grid, Function&& function) const {
  if (isLine(stroke)) return forEachOfLine(stroke, Chord(stroke), grid, function);
  forEachOfCircle(stroke, overlapCircleOf(stroke), function);
}

template <typename Function>
void StrokeCells::forEachOfLine(const Stroke& stroke, const Chord& chord, Grid grid,
                                Function&& function) const {
  if (grid == Grid::Coarse) {
    return forEachOfWholeLine(stroke, chord, grid,
                              [&](std::uint64_t hash, bool) { function(hash); });
  }
  forEachOfWholeLine(stroke, chord, grid, [&](std::uint64_t hash, bool isTurned) {
    // No stroke within the box reaches to more parts.
    constexpr double kMostReached = 8192.0;
    const Reach reach = reachOf(stroke, isTurned);
    if (!(reach.last - reach.first < kMostReached)) return;
    const std::int64_t first = wholeBelow(reach.first);
    const std::int64_t parts = static_cast<std::int64_t>(reach.last - reach.first) + 1;
    for (std::int64_t i = 0; i < parts; ++i) function(hashOfCell(hash, first + i, 0));
  });
}

/// Calls function(hash, isTurned): by the direction of the line, without a sense, and its distance
/// from the origin. The direction is told by a number that grows with the angle, but never faster.
template <typename Function>
void StrokeCells::forEachOfWholeLine(const Stroke& stroke, const Chord& chord, Grid grid,
                                     Function&& function) const {
  constexpr double kPerAngle = 1.0 / kOverlapAngleCell;
  // On the coarse grid, few lines are in more than one cell, and few of those in one cell would be
  // near each other if they were many.
  const double angleWidth = grid == Grid::Coarse ? 8.0 : 2.0;
  const double offsetWidth = grid == Grid::Coarse ? 4.0 : 2.0;
  const double sense = senseOf(chord.way);
  const double sum = std::fabs(chord.way.x) + std::fabs(chord.way.y);
  const double slope = sum > 0.0 ? sense * chord.way.y / sum : 0.0;
  const double offset =
      sense * cross(chord.way, stroke.edge.from - origin_) / (chord.length * offsetCell_);
  const std::uint64_t number = gridOf(stroke, kLines);
  // Lines along the axes, and those through the middle, are amid a cell.
  const auto ofAngle = [=](double turn) {
    return WideCell(turn * kPerAngle + 0.5 * angleWidth, angleWidth);
  };
  const auto ofOffset = [=](double units) {
    return WideCell(units + 0.5 * offsetWidth, offsetWidth);
  };
  forEachCell(number, ofAngle(slope), ofOffset(offset),
              [&](std::uint64_t hash) { function(hash, false); });
  // Those that are almost upright may lean to either side: upwards is next to downwards.
  if (slope > 1.0 - 2.0 * kOverlapAngleCell) {
    forEachCell(number, ofAngle(slope - 2.0), ofOffset(-offset),
                [&](std::uint64_t hash) { function(hash, true); });
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
  const auto gridOfRadius = [grid](std::int64_t cells) {
    return grid + static_cast<std::uint64_t>(cells) * 0xa0761d6478bd642fU;
  };
  forEachCell(gridOfRadius(radius.own), x, y, function);
  if (radius.isInPrevious) forEachCell(gridOfRadius(radius.own - 1), x, y, function);
}

}  // namespace quillon::geometry

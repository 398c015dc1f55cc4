#include "geometry/fit_spline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "geometry/biarcs.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// One slope's share in the equation that makes the curve smooth at its point.
struct Row {
  double before;
  double own;
  double after;
  Point right;
};

/// Solves rows of which each holds its own unknown and those beside it; the unknown outweighs both.
std::vector<Point> solve(std::vector<Row> rows) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const double factor = rows[i].before / rows[i - 1].own;
    rows[i].own -= factor * rows[i - 1].after;
    rows[i].right = rows[i].right - rows[i - 1].right * factor;
  }
  std::vector<Point> unknowns(rows.size());
  for (std::size_t i = rows.size(); i-- > 0;) {
    const Point next = i + 1 < rows.size() ? unknowns[i + 1] : Point{};
    unknowns[i] = (rows[i].right - next * rows[i].after) * (1.0 / rows[i].own);
  }
  return unknowns;
}

/// The row of a point between chords of these lengths and directions.
Row between(double lengthBefore, double lengthAfter, Point before, Point after) {
  const double share = lengthAfter / (lengthBefore + lengthAfter);
  return {share, 2.0, 1.0 - share, (before * share + after * (1.0 - share)) * 3.0};
}

/// The direction, if it is one, as a slope.
std::optional<Point> slopeOf(const std::optional<Point>& direction) {
  if (!direction || !usable(*direction) || *direction == Point{}) return std::nullopt;
  return unit(*direction);
}

}  // namespace

FitSpline::FitSpline(const std::vector<Point>& points, const FitEnds& ends) {
  if (!std::all_of(points.begin(), points.end(), [](Point p) { return geometry::usable(p); })) {
    return;
  }
  points_.reserve(points.size() + 1);
  const auto take = [this](Point p) {
    if (points_.empty() || distance(points_.back(), p) > 0.0) points_.push_back(p);
  };
  std::for_each(points.begin(), points.end(), take);
  const bool loop = ends.closed && points_.size() > 2;
  if (loop) take(points_.front());
  for (std::size_t i = 1; i < points_.size(); ++i) {
    lengths_.push_back(distance(points_[i - 1], points_[i]));
  }
  if (points_.size() < 2) return;
  // A loop of two points there and back has no smooth curve of its own either.
  const bool directed = slopeOf(ends.startDirection) || slopeOf(ends.endDirection);
  if (points_.size() == 2) {
    slopes_.assign(2, unit(points_[1] - points_[0]));
  } else if (loop && !directed && points_.size() > 3) {
    solvePeriodic();
  } else {
    solveOpen(ends);
  }
}

void FitSpline::solveOpen(const FitEnds& ends) {
  const std::size_t last = points_.size() - 1;
  const auto direction = [this](std::size_t i) { return unit(points_[i + 1] - points_[i]); };
  const auto start = slopeOf(ends.startDirection);
  const auto end = slopeOf(ends.endDirection);
  std::vector<Row> rows;
  rows.reserve(points_.size());
  rows.push_back(start ? Row{0.0, 1.0, 0.0, *start} : Row{0.0, 2.0, 1.0, direction(0) * 3.0});
  for (std::size_t i = 1; i < last; ++i) {
    rows.push_back(between(lengths_[i - 1], lengths_[i], direction(i - 1), direction(i)));
  }
  rows.push_back(end ? Row{0.0, 1.0, 0.0, *end} : Row{1.0, 2.0, 0.0, direction(last - 1) * 3.0});
  slopes_ = solve(std::move(rows));
}

void FitSpline::solvePeriodic() {
  const std::size_t count = points_.size() - 1;  // the last point is the first one
  const auto direction = [this](std::size_t i) { return unit(points_[i + 1] - points_[i]); };
  std::vector<Row> rows;
  rows.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t before = i == 0 ? count - 1 : i - 1;
    rows.push_back(between(lengths_[before], lengths_[i], direction(before), direction(i)));
  }
  // The first and the last row hold each other's unknown. Both shares are taken out as a product of
  // two vectors, and the solution is corrected for that.
  const double firstShare = rows.front().before;
  const double lastShare = rows.back().after;
  const double pivot = -rows.front().own;
  rows.front().own -= pivot;
  rows.back().own -= firstShare * lastShare / pivot;
  std::vector<Row> correction = rows;
  for (Row& row : correction) row.right = {};
  correction.front().right = {pivot, 0.0};
  correction.back().right = {lastShare, 0.0};
  slopes_ = solve(std::move(rows));
  const std::vector<Point> by = solve(std::move(correction));
  const double ratio = firstShare / pivot;
  const Point excess = (slopes_.front() + slopes_.back() * ratio) *
                       (1.0 / (1.0 + by.front().x + ratio * by.back().x));
  for (std::size_t i = 0; i < count; ++i) slopes_[i] = slopes_[i] - excess * by[i].x;
  slopes_.push_back(slopes_.front());
}

CurveSample FitSpline::sample(double parameter) const {
  const double t = parameter > 0.0 ? std::min(parameter, last()) : 0.0;
  const std::size_t i = std::min(static_cast<std::size_t>(t), lengths_.size() - 1);
  const double s = t - static_cast<double>(i);
  const double r = 1.0 - s;
  const Point from = points_[i];
  const Point to = points_[i + 1];
  const Point start = slopes_[i] * lengths_[i];
  const Point end = slopes_[i + 1] * lengths_[i];
  const Point at = from * (r * r * (1.0 + 2.0 * s)) + to * (s * s * (3.0 - 2.0 * s)) +
                   start * (s * r * r) - end * (s * s * r);
  const Point derivative =
      (to - from) * (6.0 * s * r) + start * (r * (1.0 - 3.0 * s)) + end * (s * (3.0 * s - 2.0));
  return {at, derivative};
}

std::vector<double> FitSpline::cuts() const {
  constexpr std::size_t kMostSpans = 8;
  std::vector<double> cuts;
  for (std::size_t i = 0; i < lengths_.size(); i += kMostSpans) {
    cuts.push_back(static_cast<double>(i));
  }
  cuts.push_back(last());
  return cuts;
}

std::vector<double> FitSpline::checks() const {
  std::vector<double> checks;
  checks.reserve(3 * lengths_.size());
  for (std::size_t i = 0; i < lengths_.size(); ++i) {
    for (const double share : {0.2, 0.5, 0.8}) checks.push_back(static_cast<double>(i) + share);
  }
  return checks;
}

Box bounds(const FitSpline& spline) {
  Box box;
  if (!spline.usable()) return box;
  constexpr int kSamplesPerSpan = 16;
  const int count = static_cast<int>(spline.last()) * kSamplesPerSpan;
  for (int i = 0; i <= count; ++i)
    box.add(spline.sample(static_cast<double>(i) / kSamplesPerSpan).at);
  return box;
}

CurvePath fitSplinePath(const FitSpline& spline, const CurveSettings& settings) {
  CurvePath result;
  if (!spline.usable()) {
    result.report.unusable = true;
    return result;
  }
  const Curve curve = [&spline](double t, Side) { return spline.sample(t); };
  result.report = appendBiarcs(curve, spline.cuts(), spline.checks(), settings, result.path);
  closeWhereEndsMeet(result.path, settings.resolution);
  return result;
}

}  // namespace quillon::geometry

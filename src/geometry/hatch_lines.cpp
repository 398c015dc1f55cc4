#include "geometry/hatch_lines.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

struct Crossing {
  double line;   ///< number of the line
  double along;  ///< from the line's own point
};

bool isUsable(const HatchFamily& family) {
  return std::fabs(family.angle) <= 1e9 && usable(family.origin) && usable(family.step) &&
         base::ranges::all_of(family.dashes, [](double d) { return std::fabs(d) <= 1e100; });
}

Point wayAtAngle(double angle) {
  // Level and upright lines are so to the last bit.
  const double quarters = angle / 90.0;
  if (quarters == std::floor(quarters)) {
    const double turn = quarters - 4.0 * std::floor(quarters / 4.0);
    if (turn == 0.0) return {1.0, 0.0};
    if (turn == 1.0) return {0.0, 1.0};
    return turn == 2.0 ? Point{-1.0, 0.0} : Point{0.0, -1.0};
  }
  return {std::cos(radiansOf(angle)), std::sin(radiansOf(angle))};
}

class FamilyCutter {
 public:
  FamilyCutter(const HatchFamily& family, std::size_t limit, HatchLines& result)
      : family_(family), limit_(limit), result_(result), way_(wayAtAngle(family.angle)) {
    spacing_ = cross(way_, family.step);
    bool hasGap = false;
    for (const double length : family.dashes) {
      hasGap = hasGap || length < 0.0;
      period_ += std::fabs(length);
    }
    if (!hasGap) period_ = 0.0;
  }

  double spacing() const { return std::fabs(spacing_); }

  /// False when there are too many pieces.
  bool cut(std::span<const Edge> edges) {
    for (const Edge& edge : edges) {
      if (!addCrossings(edge)) return false;
    }
    base::ranges::sort(crossings_, {}, [](const Crossing& crossing) {
      return std::tuple(crossing.line, crossing.along);
    });
    for (std::size_t i = 0; i + 1 < crossings_.size(); i += 2) {
      if (crossings_[i].line != crossings_[i + 1].line) return true;  // never with closed loops
      if (!addPieces(startOf(crossings_[i].line), crossings_[i].along, crossings_[i + 1].along)) {
        return false;
      }
    }
    return true;
  }

 private:
  Point startOf(double line) const { return family_.origin + family_.step * line; }

  bool addCrossings(const Edge& edge) {
    // The lines between the edge's lowest and highest point, and one more for rounding.
    double low = cross(way_, edge.from - family_.origin) / spacing_;
    double high = low;
    const auto reach = [&](double fraction) {
      const double at = cross(way_, pointAt(edge, fraction) - family_.origin) / spacing_;
      low = std::min(low, at);
      high = std::max(high, at);
    };
    reach(1.0);
    for (const double at : fractionsWithDirection(edge, std::atan2(way_.y, way_.x))) reach(at);
    low = std::ceil(low) - 1.0;
    high = std::floor(high) + 1.0;
    // Each line inside of the loops has two crossings; some may touch corners alone.
    const double most = 4.0 * static_cast<double>(limit_) + 1000.0;
    if (!(high - low <= std::min(most, 1e9)) || !(std::fabs(low) < 1e15)) return false;
    const int lines = static_cast<int>(high - low);
    for (int i = 0; i <= lines; ++i) {
      const double line = low + i;
      for (const double at : fractionsOnLine(edge, startOf(line), way_)) {
        crossings_.push_back({line, dot(way_, pointAt(edge, at) - startOf(line))});
      }
    }
    return static_cast<double>(crossings_.size()) <= most;
  }

  std::size_t pieces() const { return result_.lines.size() + result_.dots.size(); }

  bool addPieces(Point start, double from, double to) {
    if (!(period_ > 0.0)) {
      addLine(start, from, to);
      return pieces() <= limit_;
    }
    const double first = std::floor(from / period_);
    const double last = std::floor(to / period_);
    if (!(last - first <= std::min(static_cast<double>(limit_), 1e9)) || !(std::fabs(first) < 1e15))
      return false;
    const int repeats = static_cast<int>(last - first);
    for (int i = 0; i <= repeats; ++i) {
      double at = (first + i) * period_;
      for (const double length : family_.dashes) {
        const double end = at + std::fabs(length);
        if (length > 0.0) addLine(start, std::max(at, from), std::min(end, to));
        if (length == 0.0 && at >= from && at <= to) result_.dots.push_back(start + way_ * at);
        at = end;
      }
      if (pieces() > limit_) return false;
    }
    return true;
  }

  void addLine(Point start, double from, double to) {
    if (from < to) result_.lines.push_back({start + way_ * from, start + way_ * to, 0.0});
  }

  const HatchFamily& family_;
  std::size_t limit_;
  HatchLines& result_;
  Point way_;
  double spacing_ = 0.0;
  double period_ = 0.0;  ///< 0: solid
  std::vector<Crossing> crossings_;
};

}  // namespace

HatchLines hatchLines(std::span<const Path> loops, std::span<const HatchFamily> families,
                      const HatchLimits& limits) {
  std::vector<Edge> edges;
  for (const Path& loop : loops) {
    if (!isUsable(loop)) continue;
    Path closed = loop;
    closed.closed = true;
    for (std::size_t i = 0; i < edgeCount(closed); ++i) edges.push_back(edgeAt(closed, i));
  }
  HatchLines result;
  for (const HatchFamily& family : families) {
    if (!isUsable(family)) continue;
    FamilyCutter cutter(family, limits.pieces, result);
    if (!(cutter.spacing() >= limits.spacing) || cutter.spacing() == 0.0) {
      return {.lines = {}, .dots = {}, .tooMany = false, .tooDense = true};
    }
    if (!cutter.cut(edges)) {
      return {.lines = {}, .dots = {}, .tooMany = true, .tooDense = false};
    }
  }
  return result;
}

}  // namespace quillon::geometry

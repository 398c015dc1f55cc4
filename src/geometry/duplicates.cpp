#include "geometry/duplicates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "geometry/hash_index.h"
#include "geometry/overlaps.h"

namespace quillon::geometry {
namespace {

/// Three points that tell a stroke from others, within a distance.
using Features = std::array<Point, 3>;

Features featuresOf(const Stroke& stroke) {
  const Edge& edge = stroke.edge;
  if (stroke.isCircle) {
    const Point right{edge.from.x + norm(edge.to - edge.from), edge.from.y};
    return {edge.from, edge.from, right};
  }
  return {edge.from, edge.to, pointAt(edge, 0.5)};
}

/// Strokes by the cells that their features are in. Cells are much larger than the resolution, and
/// their limits are not where coordinates are round, so that few strokes have to be looked for in
/// more than one.
class StrokeIndex {
 public:
  /// For up to `most` strokes.
  StrokeIndex(const std::vector<Stroke>& strokes, std::size_t most, double resolution)
      : strokes_(strokes),
        resolution_(resolution),
        cell_(resolution * 16.0),
        filter_(most),
        byHash_(most) {
    nextWithHash_.reserve(most);
  }

  bool hasEqual(const Stroke& stroke) const {
    Features features = featuresOf(stroke);
    if (hasEqual(stroke, features)) return true;
    std::swap(features[0], features[1]);
    return hasEqual(stroke, features);
  }

  /// Strokes are added in their order.
  void add(std::size_t index) {
    std::array<double, 6> cells{};
    const Features features = featuresOf(strokes_[index]);
    for (std::size_t i = 0; i < 3; ++i) {
      cells[2 * i] = cellOf(features[i].x);
      cells[2 * i + 1] = cellOf(features[i].y);
    }
    const std::uint64_t hash = hashOf(strokes_[index], cells);
    filter_.add(hash);
    nextWithHash_.push_back(std::exchange(byHash_.at(hash), index));
  }

 private:
  double cellOf(double coordinate) const {
    constexpr double kShift = 0.382;
    return std::floor(coordinate / cell_ + kShift);
  }

  static std::uint64_t hashOf(const Stroke& stroke, const std::array<double, 6>& cells) {
    std::uint64_t hash = stroke.layer * 2 + (stroke.isCircle ? 1 : 0);
    for (const double cell : cells) {
      hash = (hash ^ bitsOf(cell)) * 0x9e3779b97f4a7c15U;
      hash ^= hash >> 29;
    }
    return hash;
  }

  bool hasEqual(const Stroke& stroke, const Features& features) const {
    std::array<double, 6> cells{};
    return searchFrom(0, stroke, features, cells);
  }

  /// Tries each cell that the coordinate, and then those after it, may be in.
  bool searchFrom(std::size_t coordinate, const Stroke& stroke, const Features& features,
                  std::array<double, 6>& cells) const {
    if (coordinate == cells.size()) return isIn(hashOf(stroke, cells), stroke, features);
    const Point p = features[coordinate / 2];
    const double value = coordinate % 2 == 0 ? p.x : p.y;
    const double low = cellOf(value - resolution_);
    const double high = cellOf(value + resolution_);
    cells[coordinate] = low;
    if (searchFrom(coordinate + 1, stroke, features, cells)) return true;
    if (low == high) return false;
    cells[coordinate] = high;
    return searchFrom(coordinate + 1, stroke, features, cells);
  }

  bool isIn(std::uint64_t hash, const Stroke& stroke, const Features& features) const {
    if (!filter_.mayHave(hash)) return false;
    for (std::size_t i = byHash_.find(hash); i != kNoIndex; i = nextWithHash_[i]) {
      const Stroke& other = strokes_[i];
      if (other.layer != stroke.layer || other.isCircle != stroke.isCircle) continue;
      const Features others = featuresOf(other);
      if (norm(others[0] - features[0]) <= resolution_ &&
          norm(others[1] - features[1]) <= resolution_ &&
          norm(others[2] - features[2]) <= resolution_) {
        return true;
      }
    }
    return false;
  }

  const std::vector<Stroke>& strokes_;
  double resolution_;
  double cell_;
  HashFilter filter_;
  HashIndex byHash_;
  std::vector<std::size_t> nextWithHash_;
};

}  // namespace

bool isNothing(const Stroke& stroke, double resolution) {
  if (!usable(stroke.edge.from) || !usable(stroke.edge.to)) return true;
  if (stroke.isCircle) return norm(stroke.edge.to - stroke.edge.from) < resolution;
  if (!(std::fabs(stroke.edge.curve) < 360.0)) return true;
  // An arc is no shorter than its chord.
  constexpr double kClearly = 1.0 + 1e-9;
  if (norm(stroke.edge.to - stroke.edge.from) > kClearly * resolution) return false;
  return stroke.edge.from == stroke.edge.to || lengthOf(stroke.edge) < resolution;
}

Cleaned withoutDuplicates(std::span<const Stroke> strokes, double resolution, const Box& others,
                          const StopCheck& stop) {
  constexpr std::size_t kStrokesPerCheck = 64;
  Cleaned result;
  result.strokes.reserve(strokes.size());
  result.from.reserve(strokes.size());
  StrokeIndex index(result.strokes, strokes.size(), resolution);
  for (std::size_t i = 0; i < strokes.size(); ++i) {
    if (i % kStrokesPerCheck == 0 && stop()) return result;
    if (isNothing(strokes[i], resolution)) {
      ++result.zeroLength;
    } else if (index.hasEqual(strokes[i])) {
      ++result.equal;
    } else {
      result.strokes.push_back(strokes[i]);
      result.from.push_back(i);
      index.add(result.strokes.size() - 1);
    }
  }
  const std::vector<bool> kept =
      mergeOverlaps(result.strokes, resolution, others, result.unions, stop);
  for (Union& joined : result.unions) joined.index = result.from[joined.index];
  std::size_t next = 0;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (!kept[i]) continue;
    result.strokes[next] = result.strokes[i];
    result.from[next++] = result.from[i];
  }
  result.merged = kept.size() - next;
  result.strokes.resize(next);
  result.from.resize(next);
  return result;
}

}  // namespace quillon::geometry

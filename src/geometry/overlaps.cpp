#include "geometry/overlaps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <optional>
#include <span>
#include <tuple>

#include "base/ranges.h"
#include "geometry/hash_index.h"

namespace quillon::geometry {
namespace {

constexpr std::size_t kMostOpen = 16;
constexpr std::size_t kPartsPerCheck = 64;

/// A stroke by the line or circle that it is part of, and from where to where.
struct Part {
  std::array<double, 3> carrier{};
  double low = 0.0;
  double high = 0.0;
  std::size_t stroke = 0;
};

/// A part by its cell; those of one cell are compared.
struct Member {
  std::uint64_t hash = 0;
  double low = 0.0;
  double high = 0.0;
  std::size_t stroke = 0;
};
/// A stroke that those after it in its cell are compared with.
struct OpenStroke {
  std::size_t stroke = 0;
  double high = 0.0;  ///< as of its part; infinite where that does not tell how far it reaches
};
/// Members are sorted in so many heaps, so that each takes little time.
constexpr std::size_t kBuckets = 64;
constexpr std::uint64_t kHashesPerBucket = ~std::uint64_t{0} / kBuckets + 1;

/// Lines without a sense point to the right, or upwards: what is near the limit of one is not near
/// that of the other.
Point rightOrUpwards(const Edge& edge, bool upwards) {
  const Point way = directionAt({edge.from, edge.to, 0.0}, 0.0);
  return (upwards ? way.y : way.x) < 0.0 ? way * -1.0 : way;
}

/// One line when both ends of the shorter one are as near to the longer one as the resolution.
std::optional<Edge> unionOfLines(const Edge& one, const Edge& other, double resolution) {
  const bool longer = norm(one.to - one.from) >= norm(other.to - other.from);
  const Edge& base = longer ? one : other;
  const Point way = directionAt(base, 0.0);
  const auto isNear = [&](Point p) { return std::fabs(cross(way, p - base.from)) <= resolution; };
  const Edge& shorter = longer ? other : one;
  if (!isNear(shorter.from) || !isNear(shorter.to)) return std::nullopt;
  const auto along = [&](Point p) { return dot(way, p - base.from); };
  const auto [low, high] = std::minmax({along(shorter.from), along(shorter.to)});
  const double length = along(base.to);
  if (std::min(high, length) - std::max(low, 0.0) <= resolution) return std::nullopt;
  std::array<Point, 4> points{base.from, base.to, shorter.from, shorter.to};
  base::ranges::stable_sort(points, {}, along);
  const bool forward = dot(way, one.to - one.from) > 0.0;
  return forward ? Edge{points[0], points[3], 0.0} : Edge{points[3], points[0], 0.0};
}

struct Round {
  Circle circle;
  double start = 0.0;  ///< radians; counter-clockwise
  double sweep = 0.0;  ///< 2 pi for circles
  Point from;
  Point to;
};

/// The same arc, counter-clockwise.
Edge leftwards(const Edge& edge) { return edge.curve < 0.0 ? reversed(edge) : edge; }

Round roundOf(const Stroke& stroke) {
  const Circle circle = overlapCircleOf(stroke);
  if (stroke.isCircle) return {circle, 0.0, 2.0 * std::numbers::pi, {}, {}};
  const Edge left = leftwards(stroke.edge);
  const Point out = left.from - circle.centre;
  return {circle, std::atan2(out.y, out.x), radiansOf(left.curve), left.from, left.to};
}

/// The union of two arcs of one circle that overlap.
std::optional<Stroke> unionOfArcs(const Stroke& one, const Stroke& other, double resolution) {
  const Round a = roundOf(one);
  const Round b = roundOf(other);
  if (norm(a.circle.centre - b.circle.centre) > resolution ||
      std::fabs(a.circle.radius - b.circle.radius) > resolution) {
    return std::nullopt;
  }
  if (one.isCircle) return one;
  if (other.isCircle) return Stroke{other.edge, one.layer, true};
  const double least = resolution / a.circle.radius;
  const auto after = [](double from, double to) {
    const double turn = std::fmod(to - from, 2.0 * std::numbers::pi);
    return turn < 0.0 ? turn + 2.0 * std::numbers::pi : turn;
  };
  // Where each one starts, seen from the start of the other.
  const double toOther = after(a.start, b.start);
  const double toOne = after(b.start, a.start);
  const bool otherStartsInside = toOther < a.sweep - least;
  const bool oneStartsInside = toOne < b.sweep - least;
  if (!otherStartsInside && !oneStartsInside) return std::nullopt;
  if (otherStartsInside && oneStartsInside && toOther > least && toOne > least) {
    return Stroke{{a.circle.centre, a.from, 0.0}, one.layer, true};
  }
  const Round& first = otherStartsInside ? a : b;
  const Round& second = otherStartsInside ? b : a;
  const double way = otherStartsInside ? toOther : toOne;
  const bool reaches = way + second.sweep > first.sweep;
  const double sweep = reaches ? way + second.sweep : first.sweep;
  if (sweep > 2.0 * std::numbers::pi - least) {
    return Stroke{{a.circle.centre, a.from, 0.0}, one.layer, true};
  }
  Edge edge{first.from, reaches ? second.to : first.to, degreesOf(sweep)};
  if (one.edge.curve < 0.0) edge = reversed(edge);
  return Stroke{edge, one.layer, false};
}

class Merger {
 public:
  Merger(std::vector<Stroke>& strokes, double resolution, const Box& others,
         std::vector<Union>& unions, const StopCheck& stop)
      : strokes_(strokes),
        resolution_(resolution),
        unions_(unions),
        stop_(stop),
        kept_(strokes.size(), true),
        isChanged_(strokes.size(), false) {
    Box box = others;
    for (const Stroke& stroke : strokes) {
      box.add(stroke.edge.from);
      box.add(stroke.edge.to);
    }
    if (!box.empty()) origin_ = box.low + (box.high - box.low) * 0.5;
    offsetCell_ = overlapOffsetCell(resolution, box.diagonal());
  }

  /// Strokes that are near each other are in the same cell of one of several grids at least, each
  /// of which is moved by half a cell in some of the coordinates. Lines have two coordinates, in
  /// either of two senses, arcs three.
  std::vector<bool> merge() {
    findParts(false, false);
    for (unsigned shift = 0; shift < 8; ++shift) mergeIn(shift);
    for (const bool upwards : {false, true}) {
      findParts(true, upwards);
      for (unsigned shift = 0; shift < 4; ++shift) mergeIn(shift);
    }
    return kept_;
  }

 private:
  bool isLine(std::size_t i) const {
    return strokes_[i].edge.curve == 0.0 && !strokes_[i].isCircle;
  }

  Part partOfLine(std::size_t i) const {
    const Edge& edge = strokes_[i].edge;
    const Point way = rightOrUpwards(edge, upwards_);
    const auto [low, high] =
        std::minmax({dot(way, edge.from - origin_), dot(way, edge.to - origin_)});
    return {{std::atan2(way.y, way.x) / kOverlapAngleCell,
             cross(way, edge.from - origin_) / offsetCell_, 0.0},
            low,
            high,
            i};
  }

  Part partOfArc(std::size_t i) const {
    const Round turn = roundOf(strokes_[i]);
    const double cell = overlapCircleCell(resolution_);
    const Point centre = (turn.circle.centre - origin_) * (1.0 / cell);
    return {
        {centre.x, centre.y, turn.circle.radius / cell}, turn.start, turn.start + turn.sweep, i};
  }

  Part partOf(std::size_t i) const { return lines_ ? partOfLine(i) : partOfArc(i); }

  void findParts(bool lines, bool upwards) {
    lines_ = lines;
    upwards_ = upwards;
    parts_.clear();
    for (std::size_t i = 0; i < strokes_.size(); ++i) {
      if (kept_[i] && isLine(i) == lines) parts_.push_back(partOf(i));
    }
    hashes_.resize(parts_.size());
  }

  /// Where merging has left something else of a stroke than its part says.
  void renewParts() {
    if (!hasMerged_) return;
    hasMerged_ = false;
    std::size_t next = 0;
    for (const Part& part : parts_) {
      if (kept_[part.stroke]) parts_[next++] = isChanged_[part.stroke] ? partOf(part.stroke) : part;
    }
    parts_.resize(next);
    std::fill(isChanged_.begin(), isChanged_.end(), false);
  }

  /// A hash of the part's cell in a moved grid.
  std::uint64_t hashOf(const Part& part, unsigned shift) const {
    std::uint64_t hash = strokes_[part.stroke].layer;
    for (unsigned k = 0; k < 3; ++k) {
      const double cell = std::floor(part.carrier[k] + ((shift >> k) & 1U) * 0.5);
      hash = hash * 0x9e3779b97f4a7c15U + bitsOf(cell);
    }
    return mixedBits(hash);
  }

  /// Most parts are alone in their cells: the others, and few more, by the first bits of their
  /// hashes.
  std::array<std::vector<Member>, kBuckets> crowdedParts(unsigned shift) {
    HashFilter once(parts_.size());
    HashFilter twice(parts_.size());
    std::array<std::vector<Member>, kBuckets> crowded;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      if (i % kPartsPerCheck == 0 && stop_()) return crowded;
      hashes_[i] = hashOf(parts_[i], shift);
      if (once.add(hashes_[i])) twice.add(hashes_[i]);
    }
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      if (!twice.mayHave(hashes_[i])) continue;
      crowded[hashes_[i] / kHashesPerBucket].push_back(
          {hashes_[i], parts_[i].low, parts_[i].high, parts_[i].stroke});
    }
    return crowded;
  }

  void mergeIn(unsigned shift) {
    renewParts();
    for (std::vector<Member>& members : crowdedParts(shift)) {
      if (stop_()) return;
      base::ranges::sort(members, [](const Member& a, const Member& b) {
        return std::tie(a.hash, a.low, a.stroke) < std::tie(b.hash, b.low, b.stroke);
      });
      for (std::size_t first = 0; first < members.size();) {
        std::size_t last = first + 1;
        while (last < members.size() && members[last].hash == members[first].hash) ++last;
        if (last - first > 1) {
          mergeParts(std::span<const Member>(members).subspan(first, last - first));
        }
        first = last;
      }
    }
  }

  /// Compares each part with the last ones that may reach to it; arcs once more across the angle at
  /// which their circle starts.
  void mergeParts(std::span<const Member> parts) {
    open_.clear();
    farthest_ = -std::numeric_limits<double>::infinity();
    const std::size_t rounds = lines_ ? 1 : 2;
    for (std::size_t k = 0; k < rounds * parts.size(); ++k) {
      if (k % kPartsPerCheck == 0 && stop_()) return;
      const Member& part = parts[k % parts.size()];
      if (!kept_[part.stroke]) continue;
      if (!lines_) {
        std::erase_if(open_, [&](const OpenStroke& open) {
          return open.stroke == part.stroke || !kept_[open.stroke];
        });
      }
      keepOpen(mergedWithOpen(part));
    }
  }

  /// Merges with a part all of those that overlap with it, or then with the union.
  OpenStroke mergedWithOpen(const Member& part) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    OpenStroke merged{part.stroke, kFar};
    if (lines_) merged.high = part.high;
    // Along two lines of one cell, a point is at places that differ by less than half of this.
    double least = lines_ ? part.low - offsetCell_ : -kFar;
    if (farthest_ < least) return merged;
    for (std::size_t i = 0; i < open_.size(); ++i) {
      const OpenStroke& open = open_[i];
      if (open.high < least || !mergePair(merged.stroke, open.stroke)) continue;
      // The union may reach to others.
      merged = {std::min(merged.stroke, open.stroke), kFar};
      least = -kFar;
      open_.erase(open_.begin() + std::ptrdiff_t(i));
      i = std::size_t(-1);
    }
    return merged;
  }

  void keepOpen(const OpenStroke& stroke) {
    open_.push_back(stroke);
    farthest_ = std::max(farthest_, stroke.high);
    if (open_.size() <= kMostOpen) return;
    const double gone = open_.front().high;
    open_.erase(open_.begin());
    if (gone < farthest_) return;
    farthest_ = base::ranges::max_element(open_, {}, &OpenStroke::high)->high;
  }

  /// Into the one that comes first.
  bool mergePair(std::size_t a, std::size_t b) {
    const std::size_t first = std::min(a, b);
    const std::size_t second = std::max(a, b);
    if (lines_) {
      const auto edge = unionOfLines(strokes_[first].edge, strokes_[second].edge, resolution_);
      if (!edge) return false;
      strokes_[first].edge = *edge;
    } else {
      const auto stroke = unionOfArcs(strokes_[first], strokes_[second], resolution_);
      if (!stroke) return false;
      strokes_[first] = *stroke;
    }
    kept_[second] = false;
    unions_.push_back({first, strokes_[first]});
    isChanged_[first] = true;
    hasMerged_ = true;
    return true;
  }

  std::vector<Stroke>& strokes_;
  double resolution_;
  std::vector<Union>& unions_;
  const StopCheck& stop_;
  std::vector<bool> kept_;
  std::vector<bool> isChanged_;  ///< since parts_ was up to date
  bool hasMerged_ = false;
  // What is being merged.
  bool lines_ = false;
  bool upwards_ = false;
  std::vector<Part> parts_;
  std::vector<std::uint64_t> hashes_;  ///< of each of them
  std::vector<OpenStroke> open_;       ///< of the cell
  double farthest_ = 0.0;              ///< to which one of these reaches
  Point origin_;
  double offsetCell_ = 0.0;
};

}  // namespace

double overlapOffsetCell(double resolution, double size) {
  return 16.0 * resolution + kOverlapAngleCell * size;
}

double overlapCircleCell(double resolution) { return 16.0 * resolution; }

Circle overlapCircleOf(const Stroke& stroke) {
  const Edge& edge = stroke.edge;
  if (stroke.isCircle) return {edge.from, norm(edge.to - edge.from)};
  return circleOf(leftwards(edge));
}

std::vector<bool> mergeOverlaps(std::vector<Stroke>& strokes, double resolution, const Box& others,
                                std::vector<Union>& unions, const StopCheck& stop) {
  return Merger(strokes, resolution, others, unions, stop).merge();
}

}  // namespace quillon::geometry

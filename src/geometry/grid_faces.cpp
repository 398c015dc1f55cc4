#include "geometry/grid_faces.h"

#include <algorithm>
#include <utility>

#include "base/ranges.h"
#include "geometry/no_index.h"
#include "geometry/stabbing_tree.h"

namespace quillon::geometry {
namespace {

/// Each segment is two ways: 2 i to its greater end and 2 i + 1 back. A way has a face at its left,
/// and the ways around a face on one side of it are a cycle.
class Net {
 public:
  explicit Net(const std::vector<GridSegment>& segments) : segments_(segments) {
    sortWays();
    traceCycles();
    findComponents();
  }

  std::vector<GridFace> oddFaces() {
    findParities();
    std::vector<GridFace> faces;
    std::vector<std::size_t> faceOf(cycles_.size(), kNoIndex);
    for (std::size_t i = 0; i < cycles_.size(); ++i) {
      if (cycles_[i].outside || !cycles_[i].odd) continue;
      faceOf[i] = faces.size();
      faces.push_back({pointsOf(i), {}});
    }
    for (std::size_t i = 0; i < cycles_.size(); ++i) {
      const Cycle& cycle = cycles_[i];
      if (!cycle.outside || !cycle.odd || cycle.around == kNoIndex) continue;
      faces[faceOf[cycle.around]].holes.push_back(pointsOf(i));
    }
    return faces;
  }

 private:
  struct Cycle {
    std::size_t firstWay;
    bool outside;  ///< around a component, which is at its right
    bool odd = false;
    std::size_t around = kNoIndex;  ///< of an outside cycle: the cycle of the face that it is in
  };
  struct Component {
    GridPoint lowest;  ///< its first point
    std::size_t outside;
  };

  GridPoint startOf(std::size_t way) const {
    return way % 2 == 0 ? segments_[way / 2].from : segments_[way / 2].to;
  }
  GridPoint directionOf(std::size_t way) const { return startOf(way ^ 1) - startOf(way); }

  /// By angle from -90 degrees, exclusive, to 270.
  static bool turnsBefore(GridPoint a, GridPoint b) {
    const auto half = [](GridPoint p) { return p.x > 0 || (p.x == 0 && p.y > 0) ? 0 : 1; };
    if (half(a) != half(b)) return half(a) < half(b);
    return cross(a, b) > 0;
  }

  void sortWays() {
    ways_.resize(2 * segments_.size());
    for (std::size_t i = 0; i < ways_.size(); ++i) ways_[i] = i;
    base::ranges::sort(ways_, [this](std::size_t a, std::size_t b) {
      if (startOf(a) != startOf(b)) return startOf(a) < startOf(b);
      return turnsBefore(directionOf(a), directionOf(b));
    });
    // After a way, the next one clockwise from the way back goes on around the same face.
    next_.resize(ways_.size());
    for (std::size_t first = 0; first < ways_.size();) {
      std::size_t last = first;
      while (last + 1 < ways_.size() && startOf(ways_[last + 1]) == startOf(ways_[first])) ++last;
      for (std::size_t i = first; i <= last; ++i) {
        next_[ways_[i] ^ 1] = ways_[i == first ? last : i - 1];
      }
      first = last + 1;
    }
  }

  void traceCycles() {
    cycleOf_.assign(ways_.size(), kNoIndex);
    for (std::size_t way = 0; way < ways_.size(); ++way) {
      if (cycleOf_[way] != kNoIndex) continue;
      const GridPoint origin = startOf(way);
      double area = 0.0;
      for (std::size_t at = way; cycleOf_[at] == kNoIndex; at = next_[at]) {
        cycleOf_[at] = cycles_.size();
        area += double(cross(startOf(at) - origin, startOf(at ^ 1) - origin));
      }
      cycles_.push_back({way, area < 0.0});
    }
  }

  /// Cycles that are connected through ways and their ways back.
  void findComponents() {
    componentOf_.assign(cycles_.size(), kNoIndex);
    for (std::size_t i = 0; i < cycles_.size(); ++i) {
      if (componentOf_[i] != kNoIndex) continue;
      Component component{{kLargestStep * 2, 0}, kNoIndex};
      eachConnected(i, [&](std::size_t cycle, std::size_t) {
        componentOf_[cycle] = components_.size();
        if (cycles_[cycle].outside) component.outside = cycle;
        forEachWay(cycle, [&](std::size_t way) {
          component.lowest = std::min(component.lowest, startOf(way));
        });
      });
      components_.push_back(component);
    }
  }

  template <typename Visit>
  void forEachWay(std::size_t cycle, const Visit& visit) const {
    const std::size_t first = cycles_[cycle].firstWay;
    std::size_t way = first;
    do {
      visit(way);
      way = next_[way];
    } while (way != first);
  }

  /// Visits a cycle and all connected ones, each with the one that it was reached from.
  template <typename Visit>
  void eachConnected(std::size_t start, const Visit& visit) {
    ++visits_;
    visited_.resize(cycles_.size(), 0);
    std::vector<std::pair<std::size_t, std::size_t>> open{{start, kNoIndex}};
    visited_[start] = visits_;
    while (!open.empty()) {
      const auto [cycle, from] = open.back();
      open.pop_back();
      visit(cycle, from);
      forEachWay(cycle, [&, current = cycle](std::size_t way) {
        const std::size_t beyond = cycleOf_[way ^ 1];
        if (visited_[beyond] == visits_) return;
        visited_[beyond] = visits_;
        open.emplace_back(beyond, current);
      });
    }
  }

  void findParities() {
    std::vector<StabbingTree::Span> spans;
    spans.reserve(segments_.size());
    for (const GridSegment& s : segments_) {
      const auto [low, high] = std::minmax(s.from.y, s.to.y);
      spans.push_back({double(s.from.x), double(s.to.x), {double(low), double(high)}});
    }
    const StabbingTree tree(std::move(spans));
    std::vector<std::size_t> order(components_.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    base::ranges::sort(order, [this](std::size_t a, std::size_t b) {
      return components_[a].lowest < components_[b].lowest;
    });
    for (const std::size_t i : order) {
      const Component& component = components_[i];
      if (component.outside == kNoIndex) continue;
      Cycle& outside = cycles_[component.outside];
      outside.around = cycleBelow(tree, i);
      outside.odd = outside.around != kNoIndex && cycles_[outside.around].odd;
      eachConnected(component.outside, [&](std::size_t cycle, std::size_t from) {
        if (from != kNoIndex) cycles_[cycle].odd = !cycles_[from].odd;
      });
    }
  }

  /// The cycle of the face that a component is in: that above the next segment below it. Components
  /// further left have theirs already.
  std::size_t cycleBelow(const StabbingTree& tree, std::size_t component) const {
    const GridPoint p = components_[component].lowest;
    std::size_t best = kNoIndex;
    std::pair<double, double> highest;
    StabbingTree::Span wanted{double(p.x), double(p.x), {.high = double(p.y)}};
    tree.visitBackwards(wanted, [&](std::size_t hit) {
      const GridSegment& s = segments_[hit];
      if (s.to.x <= p.x || componentOf_[cycleOf_[2 * hit]] == component) return;
      const GridPoint along = s.to - s.from;
      if (cross(along, p - s.from) <= 0) return;
      const double slope = double(along.y) / double(along.x);
      const std::pair height{double(s.from.y) + slope * double(p.x - s.from.x), slope};
      if (best != kNoIndex && height <= highest) return;
      best = hit;
      highest = height;
      // By more than rounding.
      wanted.across.low = height.first - 1.0;
    });
    if (best == kNoIndex) return kNoIndex;
    const std::size_t cycle = cycleOf_[2 * best];
    return cycles_[cycle].outside ? cycles_[cycle].around : cycle;
  }

  std::vector<GridPoint> pointsOf(std::size_t cycle) const {
    std::vector<GridPoint> points;
    forEachWay(cycle, [&](std::size_t way) { points.push_back(startOf(way)); });
    return points;
  }

  const std::vector<GridSegment>& segments_;
  std::vector<std::size_t> ways_;  ///< by start and angle
  std::vector<std::size_t> next_;
  std::vector<std::size_t> cycleOf_;
  std::vector<Cycle> cycles_;
  std::vector<std::size_t> componentOf_;
  std::vector<Component> components_;
  std::vector<int> visited_;
  int visits_ = 0;
};

}  // namespace

std::vector<GridFace> oddFaces(const std::vector<GridSegment>& segments) {
  return Net(segments).oddFaces();
}

}  // namespace quillon::geometry

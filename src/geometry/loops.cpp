#include "geometry/loops.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/ranges.h"
#include "geometry/area.h"

namespace quillon::geometry {
namespace {

constexpr std::size_t kMostTries = 64;

/// Containers of each loop. A point of the loop decides that is on no other loop, if there is one.
class Nesting {
 public:
  explicit Nesting(std::span<const Path> loops) : loops_(loops), locator_(loops) {}

  std::vector<std::size_t> containersOf(std::size_t loop) const {
    const Path& path = loops_[loop];
    std::vector<std::size_t> around;
    if (!isUsable(path)) return around;
    const std::size_t tries = std::min(edgeCount(path), kMostTries);
    for (std::size_t i = 0; i < tries; ++i) {
      // The middles of edges are on other loops less often than vertices.
      PointLocator::Rings rings = locator_.ringsAt(pointAt(edgeAt(path, i), 0.5));
      std::erase(rings.through, loop);
      std::erase(rings.around, loop);
      if (i == 0 || rings.through.empty()) around = std::move(rings.around);
      if (rings.through.empty()) break;
    }
    return around;
  }

 private:
  std::span<const Path> loops_;
  PointLocator locator_;
};

Path turnedTo(const Path& path, bool counterClockwise) {
  Path turned = isCounterClockwise(path) == counterClockwise ? path : reversed(path);
  turned.closed = true;
  return turned;
}

std::vector<Path> withArea(std::span<const Path> loops) {
  std::vector<Path> kept;
  for (const Path& loop : loops) {
    Path clean = isUsable(loop) ? withoutShortEdges(loop, 0.0) : Path{};
    clean.closed = true;
    const Box box = boundsOf(clean);
    const Point size = box.high - box.low;
    // What is left of an area by rounding alone is none.
    if (!(std::fabs(signedArea(clean)) > 1e-14 * dot(size, size))) continue;
    kept.push_back(std::move(clean));
  }
  return kept;
}

}  // namespace

std::vector<std::size_t> depths(std::span<const Path> loops) {
  const Nesting nesting(loops);
  std::vector<std::size_t> result;
  for (std::size_t i = 0; i < loops.size(); ++i) result.push_back(nesting.containersOf(i).size());
  return result;
}

NestedLoops nestLoops(std::span<const Path> loops, NestedFill fill) {
  const std::vector<Path> kept = withArea(loops);
  NestedLoops result{.regions = {}, .dropped = loops.size() - kept.size()};
  const Nesting nesting(kept);
  std::vector<std::vector<std::size_t>> containers;
  for (std::size_t i = 0; i < kept.size(); ++i) containers.push_back(nesting.containersOf(i));

  std::vector<std::size_t> regionOf(kept.size());
  for (std::size_t i = 0; i < kept.size(); ++i) {
    const std::size_t depth = containers[i].size();
    if (depth % 2 != 0 || (depth != 0 && fill != NestedFill::everySecond)) continue;
    regionOf[i] = result.regions.size();
    result.regions.push_back({turnedTo(kept[i], true), {}});
  }
  for (std::size_t i = 0; i < kept.size(); ++i) {
    const std::size_t depth = containers[i].size();
    if (depth % 2 == 0 || fill == NestedFill::whole) continue;
    if (depth != 1 && fill == NestedFill::outermost) continue;
    const auto parent = base::ranges::find_if(
        containers[i], [&](std::size_t j) { return containers[j].size() + 1 == depth; });
    if (parent == containers[i].end()) continue;  // only where loops cross
    result.regions[regionOf[*parent]].holes.push_back(turnedTo(kept[i], false));
  }
  return result;
}

}  // namespace quillon::geometry

#include "exact/hatch_pattern.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "geometry/degrees.h"
#include "geometry/path_tools.h"

namespace quillon::exact {
namespace {

using geometry::HatchFamily;

// More than these no pattern has that is meant to be seen. They bound the work.
constexpr std::size_t kMostFamilies = 1000;
constexpr std::size_t kMostDashes = 1000;
constexpr double kMostCuts = 5e7;  // edges of loops times families

/// The family in units of the script; none if it shows nothing.
std::optional<HatchFamily> mappedFamily(const HatchFamily& family, const Affine& map,
                                        double resolution) {
  const Point way = map.turn(geometry::unitVector(family.angle));
  const double stretch = geometry::norm(way);
  HatchFamily mapped{geometry::directionOf(way), map(family.origin), map.turn(family.step), {}};
  for (const double length : family.dashes) {
    const double drawn = length * stretch;
    // A dash that is a point to EAGLE is a dot.
    mapped.dashes.push_back(drawn >= 0.0 && drawn < resolution ? 0.0 : drawn);
  }
  const bool hasGapsAlone =
      !mapped.dashes.empty() && std::all_of(mapped.dashes.begin(), mapped.dashes.end(),
                                            [](double length) { return length < 0.0; });
  if (hasGapsAlone) return std::nullopt;
  return mapped;
}

bool isTooMuch(std::span<const Path> loops, const std::vector<HatchFamily>& families) {
  double edges = 0.0;
  for (const Path& loop : loops) edges += static_cast<double>(loop.vertices.size());
  if (families.size() > kMostFamilies) return true;
  if (edges * static_cast<double>(families.size()) > kMostCuts) return true;
  return std::any_of(families.begin(), families.end(),
                     [](const HatchFamily& family) { return family.dashes.size() > kMostDashes; });
}

}  // namespace

bool drawPattern(const Item& item, Canvas& canvas, std::span<const Path> loops,
                 const std::vector<HatchFamily>& families, const Affine& map) {
  if (isTooMuch(loops, families)) return false;
  const Measures& measures = canvas.measures();
  std::vector<HatchFamily> mapped;
  for (const HatchFamily& family : families) {
    auto drawn = mappedFamily(family, map, measures.resolution);
    if (drawn) mapped.push_back(std::move(*drawn));
  }
  const geometry::HatchLines found =
      geometry::hatchLines(loops, mapped, {.spacing = measures.leastHatchSpacing});
  if (found.tooMany || found.tooDense) return false;
  for (const geometry::Edge& line : found.lines) {
    if (canvas.step()) return true;
    if (geometry::distance(line.from, line.to) < measures.resolution) continue;
    canvas.stroke(item, {{{line.from}, {line.to}}, false}, Affine{},
                  {.cleanable = false, .solid = true});
  }
  const double diameter = std::max(item.pen.width, measures.dot);
  for (const Point& centre : found.dots) canvas.dot(item, centre, diameter);
  return true;
}

}  // namespace quillon::exact

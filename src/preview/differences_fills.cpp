#include "preview/differences_fills.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/ranges.h"

namespace quillon::preview {

using geometry::Point;

DifferenceArea::DifferenceArea(std::vector<Point> points, const DifferenceKeys& keys)
    : points_(std::move(points)) {
  double climbs = 0.0;  // of all edges together
  for (std::size_t i = 0; i < points_.size(); ++i) {
    box_.add(points_[i]);
    const Point to = points_[(i + 1) % points_.size()];
    climbs += std::fabs(to.y - points_[i].y);
    // The end of a closed outline may be its start again.
    if (!(to == points_[i])) key_ += keys.line(points_[i], to);
  }
  // Where edges are tall they are in many slabs: fewer of these keep it at three for each edge.
  const std::size_t most = points_.size() / 4 + 1;
  const double height = box_.high.y - box_.low.y;
  const double wanted =
      climbs > 0.0 ? static_cast<double>(points_.size()) * (height / climbs) : 1.0;
  const double slabs = std::clamp(wanted, 1.0, static_cast<double>(most));
  starts_.assign(static_cast<std::size_t>(slabs) + 1, 0);
  std::vector<std::uint32_t> counts(slabCount(), 0);
  visitSlabs([&](std::size_t, std::size_t slab) { ++starts_[slab + 1]; });
  for (std::size_t i = 0; i < slabCount(); ++i) starts_[i + 1] += starts_[i];
  edges_.resize(starts_.back());
  visitSlabs([&](std::size_t edge, std::size_t slab) {
    edges_[starts_[slab] + counts[slab]++] = static_cast<std::uint32_t>(edge);
  });
}

template <typename Take>
void DifferenceArea::visitSlabs(const Take& take) const {
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const auto [low, high] = std::minmax(points_[i].y, points_[(i + 1) % points_.size()].y);
    if (low == high) continue;  // level lines do not cross it
    const std::size_t last = slabOf(high);
    for (std::size_t slab = slabOf(low); slab <= last; ++slab) take(i, slab);
  }
}

std::size_t DifferenceArea::slabOf(double y) const {
  const auto slabs = static_cast<double>(slabCount());
  const double height = box_.high.y - box_.low.y;
  if (!(height > 0.0)) return 0;
  const double slab = (y - box_.low.y) / height * slabs;
  return static_cast<std::size_t>(std::clamp(slab, 0.0, slabs - 1.0));
}

template <typename Take>
void DifferenceArea::visitCrossings(double y, std::uint64_t& checks, const Take& take) const {
  if (!(y >= box_.low.y && y <= box_.high.y)) return;
  const std::size_t slab = slabOf(y);
  checks += starts_[slab + 1] - starts_[slab];
  for (std::size_t i = starts_[slab]; i < starts_[slab + 1]; ++i) {
    const Point from = points_[edges_[i]];
    const Point to = points_[(edges_[i] + 1) % points_.size()];
    // Each edge has its lower end, so that corners count once.
    if ((from.y <= y) == (to.y <= y)) continue;
    take(from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y)), from.y <= y ? 1 : -1);
  }
}

bool DifferenceArea::contains(Point point, std::uint64_t& checks) const {
  if (!(point.x >= box_.low.x && point.x <= box_.high.x)) return false;
  int winding = 0;
  visitCrossings(point.y, checks, [&](double x, int turn) {
    if (x <= point.x) winding += turn;
  });
  return winding != 0;
}

void DifferenceArea::crossingsAt(double y, std::vector<Crossing>& crossings,
                                 std::uint64_t& checks) const {
  crossings.clear();
  visitCrossings(y, checks, [&](double x, int turn) { crossings.push_back({x, turn}); });
  base::ranges::sort(crossings, {}, &Crossing::x);
}

DifferenceFills::DifferenceFills(std::vector<DifferenceArea> areas,
                                 const geometry::StopCheck& stop) {
  const std::vector<std::uint32_t> order = tree_.build(
      areas.size(), [&](std::size_t i) { return areas[i].box(); }, stop);
  areas_.reserve(order.size());
  for (const std::uint32_t area : order) areas_.push_back(std::move(areas[area]));
  keys_.reserve(areas_.size());
  for (const DifferenceArea& area : areas_) keys_.push_back(area.key());
  base::ranges::sort(keys_);
}

bool DifferenceFills::has(const DifferenceArea& area) const {
  return base::ranges::binary_search(keys_, area.key());
}

bool DifferenceFills::contains(Point point, std::uint64_t& checks) const {
  bool isInside = false;
  tree_.visit({point, point}, [&](std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end && !isInside; ++i) {
      isInside = areas_[i].contains(point, checks);
    }
    return !isInside;
  });
  return isInside;
}

}  // namespace quillon::preview

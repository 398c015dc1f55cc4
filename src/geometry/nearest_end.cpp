#include "geometry/nearest_end.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/ranges.h"
#include "geometry/no_index.h"
#include "geometry/spread_bits.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// How many ends are in each of the smallest boxes, and boxes in each larger one.
constexpr std::size_t kEnds = 4;
constexpr std::size_t kBoxes = 4;

/// Where a coordinate is between the least and the most one, in 32 bits.
std::uint64_t fractionBits(double value, double low, double high) {
  constexpr double kMost = 4294967295.0;
  const double size = high - low;
  if (!(size > 0.0)) return 0;
  return static_cast<std::uint64_t>(std::clamp((value - low) / size, 0.0, 1.0) * kMost);
}

/// In the order of a curve that visits quarters of quarters of the drawing.
std::vector<PieceEnd> inOrderOfPlace(const std::vector<PieceEnd>& ends) {
  Box box;
  for (const PieceEnd& end : ends) box.add(end.at);
  std::vector<std::pair<std::uint64_t, std::size_t>> order;
  order.reserve(ends.size());
  for (const PieceEnd& end : ends) {
    const std::uint64_t x = fractionBits(end.at.x, box.low.x, box.high.x);
    const std::uint64_t y = fractionBits(end.at.y, box.low.y, box.high.y);
    order.emplace_back(spreadBits(x) | spreadBits(y) << 1, order.size());
  }
  base::ranges::sort(order);
  std::vector<PieceEnd> sorted;
  sorted.reserve(ends.size());
  for (const auto& [key, index] : order) sorted.push_back(ends[index]);
  return sorted;
}

}  // namespace

struct NearestEnd::Search {
  const PieceEnd& from;
  const PieceEnd* best = nullptr;
  double distance = std::numeric_limits<double>::infinity();

  void consider(const PieceEnd& end) {
    if (&end == &from) return;
    const double far = norm(end.at - from.at);
    if (far > distance || (far == distance && best != nullptr && best->index < end.index)) return;
    best = &end;
    distance = far;
  }

  bool mayReach(const Box& box) const {
    const Point p = from.at;
    return std::max(std::max(box.low.x - p.x, p.x - box.high.x),
                    std::max(box.low.y - p.y, p.y - box.high.y)) <= distance;
  }
};

NearestEnd::NearestEnd(const std::vector<PieceEnd>& ends) : ends_(inOrderOfPlace(ends)) {
  if (ends_.empty()) return;
  std::vector<Box> boxes((ends_.size() - 1) / kEnds + 1);
  for (std::size_t i = 0; i < ends_.size(); ++i) boxes[i / kEnds].add(ends_[i].at);
  levels_.push_back(std::move(boxes));
  while (levels_.back().size() > 1) {
    const std::vector<Box>& inner = levels_.back();
    std::vector<Box> outer((inner.size() - 1) / kBoxes + 1);
    for (std::size_t i = 0; i < inner.size(); ++i) outer[i / kBoxes].add(inner[i]);
    levels_.push_back(std::move(outer));
  }
}

/// From its own box outwards, so that what is near is found first and little else is looked at.
NearestEnd::Found NearestEnd::nearestTo(std::size_t place) const {
  Search search{ends_[place]};
  std::size_t node = place / kEnds;
  lookInto(search, 0, node, kNoIndex);
  for (std::size_t level = 1; level < levels_.size(); ++level) {
    const std::size_t inner = std::exchange(node, node / kBoxes);
    lookInto(search, level, node, inner);
  }
  return {search.best, search.best != nullptr ? search.distance : 0.0};
}

void NearestEnd::lookInto(Search& search, std::size_t level, std::size_t node,
                          std::size_t except) const {
  if (level == 0) {
    const std::size_t last = std::min((node + 1) * kEnds, ends_.size());
    for (std::size_t i = node * kEnds; i < last; ++i) search.consider(ends_[i]);
    return;
  }
  const std::vector<Box>& inner = levels_[level - 1];
  const std::size_t last = std::min((node + 1) * kBoxes, inner.size());
  for (std::size_t i = node * kBoxes; i < last; ++i) {
    if (i != except && search.mayReach(inner[i])) lookInto(search, level - 1, i, kNoIndex);
  }
}

}  // namespace quillon::geometry

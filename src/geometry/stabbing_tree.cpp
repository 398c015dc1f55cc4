#include "geometry/stabbing_tree.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

#include "base/ranges.h"

namespace quillon::geometry {

StabbingTree::StabbingTree(std::vector<Span> spans)
    : spans_(std::move(spans)), order_(spans_.size()), reaches_(spans_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  // Spans above each other follow each other, so that ranges do not reach far across.
  base::ranges::sort(order_, {}, [this](std::size_t i) {
    return std::tuple(spans_[i].low, spans_[i].across.low, i);
  });
  build(0, order_.size());
}

void StabbingTree::Reach::add(const Reach& other) {
  highest = std::max(highest, other.highest);
  across = {std::min(across.low, other.across.low), std::max(across.high, other.across.high)};
}

void StabbingTree::find(const Span& wanted, std::vector<std::size_t>& hits) const {
  hits.clear();
  search(0, order_.size(), wanted, hits);
}

StabbingTree::Reach StabbingTree::build(std::size_t first, std::size_t last) {
  if (first == last) return {};
  const std::size_t root = first + (last - first) / 2;
  const Span& span = spans_[order_[root]];
  Reach reach{span.high, span.across};
  reach.add(build(first, root));
  reach.add(build(root + 1, last));
  return reaches_[root] = reach;
}

void StabbingTree::search(std::size_t first, std::size_t last, const Span& wanted,
                          std::vector<std::size_t>& hits) const {
  while (first < last) {
    const std::size_t root = first + (last - first) / 2;
    const Reach& reach = reaches_[root];
    if (reach.highest < wanted.low || !meet(reach.across, wanted.across)) return;
    search(first, root, wanted, hits);
    const Span& span = spans_[order_[root]];
    if (span.low > wanted.high) return;
    if (span.high >= wanted.low && meet(span.across, wanted.across)) hits.push_back(order_[root]);
    first = root + 1;
  }
}

}  // namespace quillon::geometry

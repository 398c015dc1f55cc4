#include "geometry/stabbing_tree.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "base/ranges.h"

namespace quillon::geometry {

StabbingTree::StabbingTree(std::vector<Span> spans)
    : spans_(std::move(spans)), order_(spans_.size()), highest_(spans_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  base::ranges::sort(order_, {}, [this](std::size_t i) { return std::pair(spans_[i].low, i); });
  build(0, order_.size());
}

void StabbingTree::find(double low, double high, std::vector<std::size_t>& hits) const {
  hits.clear();
  search(0, order_.size(), {low, high}, hits);
}

double StabbingTree::build(std::size_t first, std::size_t last) {
  if (first == last) return -std::numeric_limits<double>::infinity();
  const std::size_t root = first + (last - first) / 2;
  highest_[root] = std::max({spans_[order_[root]].high, build(first, root), build(root + 1, last)});
  return highest_[root];
}

void StabbingTree::search(std::size_t first, std::size_t last, const Span& wanted,
                          std::vector<std::size_t>& hits) const {
  while (first < last) {
    const std::size_t root = first + (last - first) / 2;
    if (highest_[root] < wanted.low) return;
    search(first, root, wanted, hits);
    const Span& span = spans_[order_[root]];
    if (span.low > wanted.high) return;
    if (span.high >= wanted.low) hits.push_back(order_[root]);
    first = root + 1;
  }
}

}  // namespace quillon::geometry

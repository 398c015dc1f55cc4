#pragma once

#include <cstddef>
#include <limits>
#include <vector>

namespace quillon::geometry {

/// Which of many spans of numbers contain a number: found in the time of a logarithm and of the
/// answers.
class StabbingTree {
 public:
  struct Range {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
  };
  struct Span {
    double low = 0.0;
    double high = 0.0;
    /// In the other direction; where that is asked for, few others are looked at.
    Range across = {};
  };

  StabbingTree() = default;
  explicit StabbingTree(std::vector<Span> spans);

  /// Replaces `hits` by the indices of all spans that meet `wanted` in both directions, in no
  /// certain order.
  void find(const Span& wanted, std::vector<std::size_t>& hits) const;
  /// Calls visit(index) for spans that meet `wanted` in both directions, those with higher low ends
  /// first, and of equal ones those that begin farther across. It may narrow `wanted`, for those
  /// that come after.
  template <typename Visit>
  void visitBackwards(Span& wanted, Visit&& visit) const {
    visitBackwards(0, order_.size(), wanted, visit);
  }

 private:
  struct Reach {
    double highest = -std::numeric_limits<double>::infinity();
    Range across{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    void add(const Reach& other);
  };

  static bool meet(const Range& a, const Range& b) { return a.low <= b.high && a.high >= b.low; }

  Reach build(std::size_t first, std::size_t last);
  void search(std::size_t first, std::size_t last, const Span& wanted,
              std::vector<std::size_t>& hits) const;

  template <typename Visit>
  void visitBackwards(std::size_t first, std::size_t last, Span& wanted, Visit& visit) const;

  std::vector<Span> spans_;
  std::vector<std::size_t> order_;  ///< by low ends; the middle of each range is its root
  std::vector<Reach> reaches_;      ///< of the range whose root has the same place
};

template <typename Visit>
void StabbingTree::visitBackwards(std::size_t first, std::size_t last, Span& wanted,
                                  Visit& visit) const {
  while (first < last) {
    const std::size_t root = first + (last - first) / 2;
    const Reach& reach = reaches_[root];
    if (reach.highest < wanted.low || !meet(reach.across, wanted.across)) return;
    const Span& span = spans_[order_[root]];
    if (span.low <= wanted.high) {
      visitBackwards(root + 1, last, wanted, visit);
      if (span.high >= wanted.low && meet(span.across, wanted.across)) visit(order_[root]);
    }
    last = root;
  }
}

}  // namespace quillon::geometry

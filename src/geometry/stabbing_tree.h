#pragma once

#include <cstddef>
#include <vector>

namespace quillon::geometry {

/// Which of many spans of numbers contain a number: found in the time of a logarithm and of the
/// answers.
class StabbingTree {
 public:
  struct Span {
    double low = 0.0;
    double high = 0.0;
  };

  StabbingTree() = default;
  explicit StabbingTree(std::vector<Span> spans);

  /// Replaces `hits` by the indices of all spans with low <= at <= high, in no certain order.
  void find(double at, std::vector<std::size_t>& hits) const { find(at, at, hits); }
  /// Replaces `hits` by the indices of all spans that meet low..high.
  void find(double low, double high, std::vector<std::size_t>& hits) const;

 private:
  double build(std::size_t first, std::size_t last);
  void search(std::size_t first, std::size_t last, const Span& wanted,
              std::vector<std::size_t>& hits) const;

  std::vector<Span> spans_;
  std::vector<std::size_t> order_;  ///< by low ends; the middle of each range is its root
  std::vector<double> highest_;     ///< of the range whose root has the same place
};

}  // namespace quillon::geometry

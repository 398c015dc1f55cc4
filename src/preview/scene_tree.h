#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "geometry/box.h"
#include "geometry/stop_check.h"

namespace quillon::preview {

/// True where both have a point in common; never for an empty box.
inline bool touch(const geometry::Box& a, const geometry::Box& b) {
  return a.low.x <= b.high.x && b.low.x <= a.high.x && a.low.y <= b.high.y && b.low.y <= a.high.y;
}

/// The box with a margin on each side.
inline geometry::Box widened(const geometry::Box& box, double margin) {
  return {{box.low.x - margin, box.low.y - margin}, {box.high.x + margin, box.high.y + margin}};
}

/// A box around everything that a scene may have.
inline geometry::Box everywhere() {
  constexpr double kMost = std::numeric_limits<double>::max();
  return {{-kMost, -kMost}, {kMost, kMost}};
}

/// Finds things by their boxes. It puts neighbours of like size side by side and keeps a box for
/// every kFanOut of them, one for every kFanOut of these and so on: about two bytes for each thing,
/// however a drawing is spread out.
class SceneTree {
 public:
  static constexpr std::size_t kFanOut = 16;

  /// Things 0..count-1 with their boxes, which must be finite. Returns the order that the owner has
  /// to put them in; visit() tells places in that order. Nothing when stopped.
  std::vector<std::uint32_t> build(std::size_t count,
                                   const std::function<geometry::Box(std::size_t)>& boxOf,
                                   const geometry::StopCheck& stop);

  /// Around everything.
  const geometry::Box& bounds() const { return bounds_; }

  /// Calls visit(first, end) for runs of things that may touch the box, in order. It returns false
  /// to end the visit.
  template <typename Visit>
  void visit(const geometry::Box& box, const Visit& visit) const {
    if (!levels_.empty()) visitLevel(box, visit, levels_.size() - 1, 0, levels_.back().size());
  }

  std::size_t bytes() const;

 private:
  /// Of nodes first..end-1 of a level; level 0 has one node for each run of things.
  template <typename Visit>
  bool visitLevel(const geometry::Box& box, const Visit& visit, std::size_t level,
                  std::size_t first, std::size_t end) const {
    for (std::size_t node = first; node < end; ++node) {
      if (!touch(levels_[level][node], box)) continue;
      const std::size_t below = level == 0 ? count_ : levels_[level - 1].size();
      const std::size_t from = node * kFanOut;
      const std::size_t to = below - from < kFanOut ? below : from + kFanOut;
      const bool goOn = level == 0 ? visit(from, to) : visitLevel(box, visit, level - 1, from, to);
      if (!goOn) return false;
    }
    return true;
  }

  std::size_t count_ = 0;
  geometry::Box bounds_;
  std::vector<std::vector<geometry::Box>> levels_;
};

}  // namespace quillon::preview

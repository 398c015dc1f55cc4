#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "dice.h"
#include "drawing_text.h"

namespace quillon::bench {

/// Writes the entities that plans have in common, each somewhere in the drawing or, between
/// beginBlock and endBlock, near the origin.
class PlanEntities {
 protected:
  PlanEntities(DrawingText& text, std::uint64_t seed) : text_(text), dice_(seed) {}
  ~PlanEntities() = default;

  /// How often a kind of entity occurs.
  template <typename Plan>
  struct Share {
    std::size_t percent;
    void (Plan::*write)();
  };
  /// One of the shares, which are 100 percent in all.
  template <typename Plan>
  const Share<Plan>& picked(std::span<const Share<Plan>> shares) {
    std::size_t pick = dice_.below(100);
    std::size_t i = 0;
    for (; pick >= shares[i].percent; ++i) pick -= shares[i].percent;
    return shares[i];
  }

  double place() { return dice_.measure(0.0, extent_); }
  /// Every eighth entity has a line type of its own.
  DrawingText& begin(std::string_view name, std::string_view subclass);
  void beginBlock(std::string_view name, double extent = kExtent);
  void endBlock();

  void line();
  void circle();
  void arc();
  void ellipse();
  void text();
  /// Every tenth vertex has a bulge.
  void lwPolyline(std::size_t vertices);
  void spline();

  DrawingText& text_;
  Dice dice_;

 private:
  static constexpr double kExtent = 800.0;

  double extent_ = kExtent;
};

}  // namespace quillon::bench

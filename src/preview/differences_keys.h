#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

#include "geometry/hash_index.h"
#include "geometry/point.h"

namespace quillon::preview {

/// Numbers by which lines with the same ends are recognised, as far as coordinates fall into the
/// same cells; different lines have different ones but for unbelievable chances.
class DifferenceKeys {
 public:
  /// What shares a cell is apart by `tolerance` at most, in millimetres.
  explicit DifferenceKeys(double tolerance)
      : widthCell_(tolerance), pointCell_(tolerance / std::numbers::sqrt2) {}

  /// Of half a width.
  std::uint64_t half(double half) const { return number(half / widthCell_); }
  std::uint64_t point(geometry::Point point) const {
    return geometry::mixedBits(number(point.x / pointCell_) + 3U * number(point.y / pointCell_));
  }
  /// The direction does not matter.
  std::uint64_t line(geometry::Point from, geometry::Point to) const {
    return geometry::mixedBits(point(from) + point(to));
  }

 private:
  static std::uint64_t number(double cells) {
    return geometry::mixedBits(geometry::bitsOf(std::floor(cells + 0.5)));
  }

  double widthCell_;
  double pointCell_;
};

}  // namespace quillon::preview

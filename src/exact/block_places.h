#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "geometry/affine.h"

namespace quillon::exact {

using geometry::Affine;

/// An array of a block in columns and rows.
struct BlockArray {
  Affine outer;    ///< from the coordinates in which the cells are side by side
  Affine content;  ///< from the block's coordinates to those of the first cell
  std::size_t columns = 1;
  std::size_t rows = 1;
  double columnStep = 0.0;
  double rowStep = 0.0;
};

/// Where a block is drawn, place by place. An array may claim a billion cells, so each one is
/// worked out when it is its turn.
class BlockPlaces {
 public:
  explicit BlockPlaces(const BlockArray& array)
      : array_(array), left_(array.columns * array.rows) {}
  /// Some places, the last of which comes first.
  explicit BlockPlaces(std::vector<Affine> maps) : maps_(std::move(maps)), left_(maps_.size()) {}

  bool empty() const { return left_ == 0; }
  /// From the block's coordinates to the present place.
  Affine map() const;
  void next() { --left_; }

 private:
  std::vector<Affine> maps_;  ///< or empty, for an array
  BlockArray array_;
  std::size_t left_;  ///< places, the present one included
};

}  // namespace quillon::exact

#include "exact/block_places.h"

namespace quillon::exact {

Affine BlockPlaces::map() const {
  if (!maps_.empty()) return maps_[left_ - 1];
  const std::size_t cell = array_.columns * array_.rows - left_;
  const auto column = static_cast<double>(cell % array_.columns);
  const auto row = static_cast<double>(cell / array_.columns);
  return array_.outer * Affine::shift({column * array_.columnStep, row * array_.rowStep}) *
         array_.content;
}

}  // namespace quillon::exact

#include "exact/block_places.h"

namespace quillon::exact {

Affine BlockPlaces::map() const {
  if (!maps_.empty()) return maps_[left_ - 1];
  const std::size_t cell = array_.columns * array_.rows - left_;
  const std::size_t row = cell / array_.columns;
  const std::size_t column = cell % array_.columns;
  const geometry::Point step{static_cast<double>(column) * array_.columnStep,
                             static_cast<double>(row) * array_.rowStep};
  return array_.outer * Affine::shift(step) * array_.content;
}

}  // namespace quillon::exact

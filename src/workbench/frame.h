#pragma once

#include "geometry/box.h"

namespace quillon::workbench {

/// From points of a script to those of a scene, in millimetres.
struct Frame {
  double factor = 1.0;
  geometry::Point shift{};

  geometry::Point operator()(geometry::Point point) const { return point * factor + shift; }
  geometry::Box operator()(const geometry::Box& box) const {
    return box.empty() ? box : geometry::Box{(*this)(box.low), (*this)(box.high)};
  }
  bool operator==(const Frame&) const = default;
};

}  // namespace quillon::workbench

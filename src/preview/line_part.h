#pragma once

#include <algorithm>

namespace quillon::preview {

/// A part of a line, 0..1.
struct LinePart {
  double first = 0.0;
  double last = 1.0;

  bool isEmpty() const { return !(first <= last); }

  /// Narrows it to where `start + way * t` is at least 0. False where nothing is left.
  bool narrow(double start, double way) {
    if (way > 0.0) {
      first = std::max(first, -start / way);
    } else if (way < 0.0) {
      last = std::min(last, -start / way);
    } else if (!(way == 0.0 && start >= 0.0)) {
      *this = {1.0, 0.0};
    }
    return !isEmpty();
  }
};

}  // namespace quillon::preview

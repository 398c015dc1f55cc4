#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/path_arcs.h"
#include "geometry/stop_check.h"

namespace quillon::geometry {

/// What is left of a line, an arc or a circle.
struct Stroke {
  Edge edge;
  std::size_t layer = 0;  ///< strokes are compared on one layer alone, as with styles of joining
  bool isCircle = false;  ///< the whole circle with edge.from as its centre and edge.to on it

  bool operator==(const Stroke&) const = default;
};

/// Whether a stroke is shorter than the resolution, or not to be reckoned with.
bool isNothing(const Stroke& stroke, double resolution);

/// What a stroke became when another one was joined with it, for a while at least.
struct Union {
  std::size_t index = 0;  ///< of the stroke
  Stroke stroke;
};

struct Cleaned {
  /// The strokes that are left; `from[i]` is the index of the first stroke that strokes[i] stands
  /// for, ascending.
  std::vector<Stroke> strokes;
  std::vector<std::size_t> from;
  std::size_t zeroLength = 0;  ///< left out: nothing
  std::size_t equal = 0;       ///< left out: equal to one before, in either sense
  std::size_t merged = 0;      ///< left out: part of, or joined with, one before
  std::vector<Union> unions;   ///< all of them in their order
};

/// Leaves out what is drawn twice: strokes whose ends (and summits, centres) are within
/// `resolution` (above 0, units of the strokes) of those of one before; parts of one line that
/// overlap become one line, parts of one circle one arc, or the circle. Ends that only touch do not
/// count as overlapping, and of short lines only those that differ by less than 0.00005 radians.
/// What is kept unchanged is kept bit for bit. Time n log n. `others` is around strokes that are
/// known to be drawn once and are not given for that reason. Ends early where `stop` says so.
Cleaned withoutDuplicates(std::span<const Stroke> strokes, double resolution,
                          const Box& others = {}, const StopCheck& stop = {});

}  // namespace quillon::geometry

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/path.h"

namespace quillon::geometry {

/// An area with holes.
struct Region {
  Path outer;               ///< closed, counter-clockwise
  std::vector<Path> holes;  ///< closed, clockwise, inside of `outer` and beside each other

  bool operator==(const Region&) const = default;
};

/// Which of nested loops are filled, by the number of other loops that contain a loop.
enum class NestedFill {
  everySecond,  ///< even: filled; odd: a hole in it
  outermost,    ///< 0: filled; 1: a hole in it; deeper ones are left out
  whole,        ///< 0: filled, without holes; deeper ones are left out
};

struct NestedLoops {
  std::vector<Region> regions;  ///< in the order of their outer loops
  std::size_t dropped = 0;      ///< loops that enclose no area or cannot be reckoned with
};

/// How deep each of several closed loops lies in others that do not cross it: the number of those
/// that contain a point of it. Loops that can enclose nothing have depth 0 and count for none.
std::vector<std::size_t> depths(std::span<const Path> loops);

/// Sorts closed loops into areas and their holes. Loops that cross each other have to be cut at
/// their crossings first.
NestedLoops nestLoops(std::span<const Path> loops, NestedFill fill);

}  // namespace quillon::geometry

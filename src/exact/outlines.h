#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "exact/options.h"
#include "exact/shapes.h"
#include "rules/losses.h"

namespace quillon::exact {

using rules::LossList;
using rules::LossRule;

/// A shape of one layer, or nothing where another one has taken it in.
struct HeldShape {
  Origin origin;
  std::variant<std::monostate, Chain, Area, TextLine, Dot, Hole> shape;

  Chain* chain() { return std::get_if<Chain>(&shape); }
  const Chain* chain() const { return std::get_if<Chain>(&shape); }
  void drop() { shape = std::monostate(); }
};

/// An end on an outline that no other one meets.
struct OpenEnd {
  int layer = 0;
  Point at{};
  std::uint64_t line = 0;  ///< in the drawing
  bool hasNext = false;    ///< the rest is about the nearest other end
  Point next{};
  std::uint64_t nextLine = 0;
  double distance = 0.0;  ///< units of the script
};

/// What joining the ends of all layers has found.
struct OutlineReport {
  std::size_t closedChains = 0;
  std::size_t openChains = 0;
  std::size_t joinedEnds = 0;  ///< that did not meet exactly
  double largestMove = 0.0;
  std::vector<OpenEnd> gaps;
};

// What is done with the shapes of one layer, in this order.

/// Leaves out lines, arcs and circles that are drawn twice, wholly or in part.
void dropDuplicates(std::vector<HeldShape>& shapes, const Measures& measures, LossList& losses);
/// Joins ends and chains what follows each other.
void joinOutlines(std::vector<HeldShape>& shapes, const Options& options, const Measures& measures,
                  OutlineReport& report);
/// Makes holes of circles on the chosen layers.
void makeHoles(std::vector<HeldShape>& shapes, const Options& options, const Measures& measures);

}  // namespace quillon::exact

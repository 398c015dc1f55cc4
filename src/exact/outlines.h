#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "exact/held_layer.h"
#include "exact/options.h"
#include "geometry/shared_hashes.h"
#include "geometry/stop_check.h"
#include "rules/losses.h"

namespace quillon::exact {

using rules::LossList;
using rules::LossRule;

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
  std::size_t gapCount = 0;   ///< all of them
  std::vector<OpenEnd> gaps;  ///< nearest first; Options::mostGaps of them
};

/// What the steps of cleaning share.
struct CleaningRun {
  const geometry::StopCheck& stop;
  geometry::HashMemory& memory;
};

// What is done with the shapes of one layer, in this order. Each ends early where the check says
// so, and then leaves some as they are.

/// Leaves out lines, arcs and circles that are drawn twice, wholly or in part.
void dropDuplicates(HeldLayer& layer, const Measures& measures, LossList& losses,
                    const CleaningRun& run);
/// Joins ends and chains what follows each other. Leaves out what is drawn twice only then.
void joinOutlines(HeldLayer& layer, const Options& options, const Measures& measures,
                  LossList& losses, OutlineReport& report, const CleaningRun& run);
/// Makes holes of circles on the chosen layers.
void makeHoles(HeldLayer& layer, const Options& options, const Measures& measures);

}  // namespace quillon::exact

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "convert/job.h"
#include "drawing_text.h"

namespace quillon::bench {

/// A series of drawings in which one thing grows.
struct Series {
  std::string_view name;
  std::string_view unit;
  /// The smallest count: large enough for its time to exceed that of an empty drawing.
  std::size_t base;
  void (*make)(DrawingText& drawing, std::size_t count);
  /// Switches on the feature that the series measures.
  void (*set)(convert::ConversionJob& job) = [](convert::ConversionJob&) {};
  /// The largest exponent of the count that its time may grow with.
  double mostExponent = kLinear;

  static constexpr double kLinear = 1.1;  ///< caches that are outgrown, and noise
  static constexpr double kSorted = 1.2;  ///< something is sorted
};

std::span<const Series> allSeries();

/// The sides of triangles, in a random order, so that their ends have to be found. Ends are up to
/// `off` mm off in each direction.
void makeEnds(DrawingText& drawing, std::size_t count, double off);

}  // namespace quillon::bench

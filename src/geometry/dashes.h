#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/path.h"

namespace quillon::geometry {

struct DashOptions {
  bool alongWhole = false;    ///< the pattern goes on around corners, else each edge has its own
  std::size_t limit = 20000;  ///< of dashes and dots together
};

struct Dashes {
  std::vector<Path> dashes;  ///< in the order of the path; edges that are solid stay joined
  std::vector<Point> dots;
  bool tooMany = false;  ///< more than the limit: the whole path is the only dash
};

/// Cuts a path into dashes. The pattern has lengths in units of the path: of dashes above 0, of
/// gaps below 0, and 0 for dots; it begins with its first dash. Both ends are drawn and the pattern
/// is centred: what is over lengthens or shortens the first and the last dash. A length up to that
/// of the pattern stays solid. A pattern without a dash has its dots centred and no ends. Without a
/// gap, of gaps alone, or with lengths that cannot be reckoned with, all is solid. Paths that
/// cannot be reckoned with give nothing.
Dashes dashed(const Path& path, std::span<const double> pattern, const DashOptions& options = {});

}  // namespace quillon::geometry

#pragma once

#include <optional>
#include <vector>

#include "exact/arrow_heads.h"
#include "exact/canvas.h"

namespace quillon::exact {

/// A line that leads from an arrow at its first point to a text.
struct LeaderLine {
  std::vector<Point> points;    ///< in the coordinates around the item
  std::vector<double> heights;  ///< of the points where they count; else none
  bool isSpline = false;
};

void drawLeaderLine(const Item& item, const LeaderLine& line, Canvas& canvas);
/// Nothing for a line without length.
std::optional<ArrowPlace> leaderArrow(const LeaderLine& line);

}  // namespace quillon::exact

#pragma once

#include <vector>

#include "base/layer_number.h"
#include "dxf/drawing.h"
#include "eagle/commands.h"
#include "eagle/drawing_area.h"
#include "geometry/angles.h"
#include "geometry/point.h"
#include "rules/cancel_poll.h"

namespace quillon::classic {

using base::kNotConverted;
using geometry::kDegreesPerRadian;
using geometry::kPi;
using geometry::kTwoPi;
using geometry::Point;
using geometry::radians;

// What Settings::poly says; other numbers stand for wires with width.
inline constexpr int kModeUnset = -1;
inline constexpr int kModeWithoutWidth = 0;
inline constexpr int kModePolyline = 2;

/// Bulges below count as straight.
inline constexpr double kSmallestBulge = 1e-6;

/// Options and header values used by the classic rules.
struct Settings {
  bool dotted = false;         ///< dash emulation
  bool ellipses = false;       ///< ellipses as wires; otherwise as circles
  bool arcRangeCheck = false;  ///< arcs with their diameter point out of range become wires
  int poly = kModePolyline;    ///< one of the modes above, or any other number
  double polyWidth = 0.0;      ///< width of polylines without a width of their own
  double fillWidth = 0.0;      ///< outline width of filled areas
  double angDir = 0.0;         ///< 1.0: angles run clockwise
  double ltScale = dxf::kNotGiven;
  double pointSize = dxf::kNotGiven;
  bool quarterTurns = false;  ///< EAGLE turns texts by multiples of 90 degrees only
};

/// What all handlers share.
struct Context {
  eagle::Commands& commands;
  const eagle::DrawingArea& area;
  Settings settings;
  rules::CancelPoll& cancelled;
  /// Cosine and sine of the parameters at which ellipses from 0 on have their points; empty before
  /// the first of them.
  std::vector<Point> ellipseSteps{};
};

}  // namespace quillon::classic

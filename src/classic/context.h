#pragma once

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

/// Options and header values used by the classic rules.
struct Settings {
  bool dotted = false;         ///< dash emulation
  bool ellipses = false;       ///< ellipses as wires; otherwise as circles
  bool arcRangeCheck = false;  ///< arcs with their diameter point out of range become wires
  int poly = 2;                ///< PolyMode as a number; other numbers count as wires with width
  double polyWidth = 0.0;      ///< width of polylines without a width of their own
  double fillWidth = 0.0;      ///< outline width of filled areas
  double angDir = 0.0;         ///< 1.0: angles run clockwise
  double ltScale = dxf::kNotGiven;
  double pointSize = dxf::kNotGiven;
};

/// What all handlers share.
struct Context {
  eagle::Commands& commands;
  const eagle::DrawingArea& area;
  Settings settings;
  rules::CancelPoll& cancelled;
};

}  // namespace quillon::classic

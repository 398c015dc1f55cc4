#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/job.h"
#include "rules/cancel_poll.h"

namespace quillon::fuzz {

/// A whole conversion in one byte string: options, default layer, drawing name, layer file and
/// frame, each followed by a NUL byte, then the drawing.
///
/// The options are letters, so that they can be read and edited by hand: d, e, a, r and g switch on
/// dotted lines, ellipses, arcs as lines, the refusal of texts without a section, and German; o
/// selects the older version; u, t, p, b, s, x, y, w and c are followed by a digit for unit,
/// target, polylines, blocks, scale, offsets, polyline width and the poll that cancels; l and m are
/// followed by a power of four that limits steps and lines, and k keeps the script when a limit is
/// reached. Other bytes are ignored.
///
/// For the exact rules, capitals are switches: E for EAGLE 6, A for closed polylines as areas, F
/// for areas in spite of $FILLMODE, C and D for chains and duplicates left as they are, H for
/// circles on layer 0 as holes, I for hidden layers, L for plain letters and W for weights. h, i,
/// n, q, z, j, v and f are followed by a digit for hatches, line types, points, space, place, the
/// distance of ends that meet, wide lines and the width of the edges of areas.
struct ConversionInput {
  convert::ConversionJob job;  ///< without files
  std::string_view layerFile;
  std::string_view frame;
  std::string_view drawing;
  bool refuseWithoutSections = false;
  bool german = false;
  std::uint64_t cancelAtPoll = 0;  ///< counted from 1; 0: never
  rules::WorkLimits limits;
  bool keepPartial = false;
  bool isForEagle6 = false;  ///< with the exact rules
};

ConversionInput readConversionInput(std::string_view data);

}  // namespace quillon::fuzz

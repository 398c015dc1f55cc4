#pragma once

#include "base/byte_sink.h"
#include "eagle/recording.h"
#include "preview/palette.h"

namespace quillon::preview {

/// Writes a picture of what a script draws as SVG, in the colours of EAGLE's layers: a group for
/// each layer, with the id "layer-N", then one for each library part; below them a scale bar and
/// the size. Coordinates are millimetres. The origin is marked, and the edge of EAGLE's drawing
/// area where it is in sight. Lines without width are as thin as can be seen.
///
/// What is at coordinates that no drawing has is left out. Throws what the sink throws.
void writeSvg(const eagle::Recording& recording, Theme theme, base::ByteSink& sink);

}  // namespace quillon::preview

#pragma once

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads one block definition from the lines behind its "BLOCK" up to and including "ENDBLK" and
/// appends it to the drawing. Throws RunTimeError when the lines end too early or a group code is
/// none.
void parseBlock(Drawing& drawing, LineRange lines, LineReader& reader);

}  // namespace quillon::dxf

#pragma once

#include <cstdint>

#include "dxf/drawing.h"
#include "dxf/line_cursor.h"

namespace quillon::dxf {

/// Reads one block definition, from the line after "BLOCK" up to and including "ENDBLK", and
/// appends it to the drawing with what is needed of its lines. `firstLine` is the file's line
/// number of the first of them. Throws RunTimeError when the lines end too early or a group code is
/// invalid.
void parseBlock(Drawing& drawing, LineRange lines, std::uint64_t firstLine);

}  // namespace quillon::dxf

#pragma once

#include <string_view>

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads the lines of the HEADER section up to its ENDSEC or the end of the file. Variables are
/// recognised on any line.
void readHeader(Drawing& drawing, LineReader& reader);

}  // namespace quillon::dxf

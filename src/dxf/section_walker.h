#pragma once

#include <string_view>

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads a whole drawing: HEADER, TABLES, BLOCKS, ENTITIES, and OBJECTS only to its end. Missing
/// sections leave their stores empty. `endsAtFileEnd` lets the walk over OBJECTS end at the end of
/// the file without an ENDSEC; otherwise only a cancel ends it then. Throws RunTimeError for errors
/// inside tables and blocks.
void readDxf(Drawing& drawing, LineReader& reader, bool endsAtFileEnd);

/// Reads on until a line whose trimmed text is `name` (exactly, case too). At the end of the file
/// the reader is rewound and the result is false; a name on the last line counts as not found.
bool findSection(LineReader& reader, std::string_view name, bool showProgress);

/// Searches for `startMarker` and collects the lines after it up to and including `endMarker`.
/// While searching, lines are compared in upper case, afterwards as they are; always trimmed.
/// False when `stopMarker` came first or the user cancelled, true also at the end of the file.
bool collectBetween(LineReader& reader, std::string_view startMarker, std::string_view endMarker,
                    std::string_view stopMarker, LineRange& lines, bool showProgress);

}  // namespace quillon::dxf

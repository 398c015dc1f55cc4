#pragma once

#include <string_view>

#include "dxf/drawing.h"
#include "dxf/entities.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads HEADER and TABLES; the first part of readDefinitions.
void readHeaderAndTables(Drawing& drawing, LineReader& reader);

/// Reads HEADER, TABLES and BLOCKS. A missing section leaves its part of the drawing empty. Throws
/// RunTimeError, with line number, for errors in tables and blocks.
void readDefinitions(Drawing& drawing, LineReader& reader);

/// Finds ENTITIES, passes its entities to the sink as they are read, and then skips OBJECTS, unless
/// the sink wants them.
/// `endsAtFileEnd`: OBJECTS may end at the end of the file without an ENDSEC; otherwise only a
/// cancel ends the walk there.
void readContents(Drawing& drawing, LineReader& reader, EntitySink& sink, bool endsAtFileEnd);

/// Reads until a line whose trimmed text is exactly `name`. At the end of the file the reader is
/// rewound and the result is false; a name on the last line counts as not found.
bool findSection(LineReader& reader, std::string_view name, bool showProgress);

/// Searches for `startMarker` and collects the following lines up to and including `endMarker`;
/// they are valid until the reader is used again. While searching, lines are compared in upper
/// case, then as they are; always trimmed. False when `stopMarker` came first or the user
/// cancelled; true also at the end of the file.
bool collectBetween(LineReader& reader, std::string_view startMarker, std::string_view endMarker,
                    std::string_view stopMarker, LineRange& lines, bool showProgress);

}  // namespace quillon::dxf

#pragma once

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads the entities of the ENTITIES section into the drawing, in file order: from the reader's
/// position to the line "ENDSEC" or the end of the file, where the reader stands afterwards. An
/// entity in which an error arises is dropped, and reading goes on at the next "0" line that an
/// entity name follows. After a cancel the entities read so far stay.
void readEntities(Drawing& drawing, LineReader& reader);

/// Reads the entities of one block into `items`. Errors are not caught here.
void readBlockEntities(Drawing& drawing, LineRange lines, EntityList& items, LineReader& reader);

}  // namespace quillon::dxf

#pragma once

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Reads the entities of the ENTITIES section into the drawing, in file order. An entity in which
/// an error arises is dropped, and reading goes on at the next "0" line that an entity name
/// follows.
void readEntities(Drawing& drawing, LineRange lines, LineReader& reader);

/// Reads the entities of one block into `items`. Errors are not caught here.
void readBlockEntities(Drawing& drawing, LineRange lines, EntityList& items, LineReader& reader);

}  // namespace quillon::dxf

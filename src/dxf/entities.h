#pragma once

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Takes the entities of the ENTITIES section one by one, as they are read.
class EntitySink {
 public:
  virtual ~EntitySink() = default;
  /// The entity, which may be completed; its texts are valid during the call only. Errors end the
  /// reading.
  virtual void takeEntity(DxfEntity& entity) = 0;
  /// The last entity has been taken; the texts of the one before are still valid.
  virtual void endOfEntities() {}
};

/// Reads the entities of the ENTITIES section in file order: from the reader's position to the line
/// "ENDSEC" or the end of the file, where the reader stands afterwards. An entity in which an error
/// of the text arises is dropped, and reading goes on at the next "0" line that an entity name
/// follows. A cancel ends the reading after an entity.
void readEntities(Drawing& drawing, LineReader& reader, EntitySink& sink);

}  // namespace quillon::dxf

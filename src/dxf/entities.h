#pragma once

#include <string_view>

#include "dxf/drawing.h"
#include "dxf/line_reader.h"

namespace quillon::dxf {

/// Receives the groups of the OBJECTS section one by one.
class ObjectSink {
 public:
  virtual ~ObjectSink() = default;
  /// A group, whose value is valid only during the call. Objects start with their group 0; groups
  /// whose codes are no numbers have the code -1.
  virtual void takeGroup(int code, std::string_view value) = 0;
  /// Called after the last group, unless the user cancelled.
  virtual void endOfObjects() = 0;
};

/// Receives the entities of the ENTITIES section one by one as they are read.
class EntitySink {
 public:
  virtual ~EntitySink() = default;
  /// An entity, which the sink may complete; its texts are valid only during the call. An exception
  /// ends the reading.
  virtual void takeEntity(DxfEntity& entity) = 0;
  /// Called after the last entity, whose texts are still valid.
  virtual void endOfEntities() {}
  /// What the groups of OBJECTS go to, asked after the entities; null where nobody needs them.
  virtual ObjectSink* objectSink() { return nullptr; }
};

/// Reads the entities of the ENTITIES section in file order, from the reader's position to the line
/// "ENDSEC" or the end of the file, where the reader then is. An entity with an error in its text
/// is dropped, and reading resumes at the next "0" line followed by an entity name. A cancel ends
/// the reading after an entity.
void readEntities(Drawing& drawing, LineReader& reader, EntitySink& sink);

}  // namespace quillon::dxf

#pragma once

#include <stdexcept>
#include <string_view>

#include "dxf/drawing.h"
#include "dxf/entity_reader.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// A drawing read from a text, with all that it points into.
struct ReadDrawing {
  explicit ReadDrawing(std::string_view bytes) : text(bytes), drawing(text), reader(drawing) {
    dxf::LineReader lines(text, monitor);
    dxf::readDxf(drawing, lines, true);
    linesRead = lines.linesRead();
  }

  /// The entity with this index in a list.
  dxf::DxfEntity entityOf(const dxf::EntityList& list, std::size_t index) {
    dxf::EntityCursor cursor(drawing.store, list);
    dxf::EntitySlots slots;
    for (std::size_t i = 0; i <= index; ++i) {
      if (!cursor.next(slots)) throw std::out_of_range("no such entity");
    }
    dxf::DxfEntity entity;
    reader.readEntity(slots, entity);
    return entity;
  }
  /// The entity with this index in the ENTITIES section.
  dxf::DxfEntity entity(std::size_t index) { return entityOf(drawing.entities, index); }

  dxf::FileText text;
  TestMonitor monitor;
  dxf::Drawing drawing;
  dxf::EntityReader reader;
  std::uint64_t linesRead = 0;
};

}  // namespace quillon::testing

#pragma once

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

  /// The entity with this index in the ENTITIES section.
  dxf::DxfEntity entity(std::size_t index) {
    dxf::DxfEntity entity;
    reader.read(drawing.entities.at(index), entity);
    return entity;
  }

  dxf::FileText text;
  TestMonitor monitor;
  dxf::Drawing drawing;
  dxf::EntityReader reader;
  std::uint64_t linesRead = 0;
};

}  // namespace quillon::testing

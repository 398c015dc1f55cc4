#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/run_time_error.h"
#include "dxf/drawing.h"
#include "dxf/entities.h"
#include "dxf/entity_reader.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "dxf/text_source.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// Collects entities, with copies of their texts.
class EntityKeeper : public dxf::EntitySink {
 public:
  EntityKeeper(dxf::EntityReader& reader, const dxf::Drawing& drawing)
      : reader_(reader), drawing_(drawing) {}

  void takeEntity(dxf::DxfEntity& given) override {
    reader_.complete(given);
    dxf::DxfEntity& entity = entities.emplace_back(given);
    for (std::size_t slot = 0; slot < dxf::kMaxSlots; ++slot) {
      entity.values[slot] = texts_.keep(std::string(given.value(slot)));
    }
    if (!dxf::hasSideRecord(entity.kind)) return;
    const auto size = static_cast<std::size_t>(entity.groupsEnd - entity.groups);
    std::string groups(entity.groups, size);
    groups.append(dxf::TextSource::kMargin, drawing_.lineEnds.eolChar);
    entity.groups = texts_.keep(std::move(groups)).data();
    entity.groupsEnd = entity.groups + size;
    entity.split = {};
  }

  void endOfEntities() override { countAtEnd.push_back(entities.size()); }

  std::vector<dxf::DxfEntity> entities;
  std::vector<std::size_t> countAtEnd;  ///< number of entities at each end

 private:
  dxf::EntityReader& reader_;
  const dxf::Drawing& drawing_;
  dxf::TextArena texts_;
};

/// A drawing read from a text, with everything that it points into.
class ReadDrawing {
 public:
  using CancelRule = std::function<bool(const ReadDrawing&)>;

  /// The rule is evaluated at every poll of the reader, with what has been read so far.
  explicit ReadDrawing(std::string_view bytes, CancelRule cancelWhen = {},
                       bool endsAtFileEnd = true)
      : source(bytes), reader(drawing), keeper_(reader, drawing) {
    read(std::move(cancelWhen), endsAtFileEnd);
  }
  /// Reads an open file.
  explicit ReadDrawing(std::FILE* file, CancelRule cancelWhen = {})
      : source(file, {}), reader(drawing), keeper_(reader, drawing) {
    read(std::move(cancelWhen), true);
  }

  /// The entities of the ENTITIES section.
  const std::vector<dxf::DxfEntity>& entities() const { return keeper_.entities; }
  const std::vector<std::size_t>& countAtEnd() const { return keeper_.countAtEnd; }
  const dxf::DxfEntity& entity(std::size_t index) const { return entities().at(index); }
  /// The entities of a block.
  std::vector<dxf::DxfEntity> blockEntities(std::size_t block) {
    std::vector<dxf::DxfEntity> all;
    dxf::EntityCursor cursor(drawing.store, drawing.blocks.at(block).items);
    for (dxf::DxfEntity stored; cursor.next(stored);) {
      reader.complete(all.emplace_back(stored));
    }
    return all;
  }
  dxf::DxfEntity blockEntity(std::size_t block, std::size_t index) {
    return blockEntities(block).at(index);
  }

  dxf::TextSource source;
  TestMonitor monitor;
  dxf::Drawing drawing;
  dxf::EntityReader reader;
  std::uint64_t linesRead = 0;
  std::uint64_t fileLinesRead = 0;

 private:
  void read(CancelRule cancelWhen, bool endsAtFileEnd) {
    if (cancelWhen) {
      monitor.cancelWhen = [this, rule = std::move(cancelWhen)] { return rule(*this); };
    }
    dxf::LineReader lines(source, monitor);
    dxf::readDefinitions(drawing, lines);
    dxf::readContents(drawing, lines, keeper_, endsAtFileEnd);
    linesRead = lines.linesRead();
    fileLinesRead = lines.fileLinesRead();
  }

  EntityKeeper keeper_;
};

/// The run-time error that ended the reading of a text.
struct ReadFault {
  base::Fault fault;
  std::uint64_t line;  ///< from 1
  std::string subject;
};

/// Reads a text or an open file; nothing if the reader reported no error.
template <typename Source>
std::optional<ReadFault> readFault(const Source& source) {
  try {
    const ReadDrawing read(source);
  } catch (const base::RunTimeError& error) {
    return ReadFault{error.fault(), error.line(), error.subject()};
  }
  return std::nullopt;
}

}  // namespace quillon::testing

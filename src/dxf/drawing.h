#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/encoding.h"
#include "base/text_hash.h"
#include "dxf/entity_kinds.h"
#include "dxf/entity_store.h"
#include "dxf/header_values.h"
#include "dxf/other_entities.h"
#include "dxf/records.h"
#include "dxf/table_entries.h"
#include "dxf/text_arena.h"
#include "dxf/text_source.h"
#include "dxf/usual_groups.h"

namespace quillon::dxf {

/// Value of `ltScale` and `pointSize` when the drawing has none.
inline constexpr double kNotGiven = 98899999.0;

/// Names of unrecognised entities with their counts.
using UnknownKinds = std::map<std::string, std::uint64_t, std::less<>>;

/// Entities of the ENTITIES section that were dropped because the drawing is damaged.
struct DroppedEntities {
  std::uint64_t count = 0;
  std::uint64_t firstLine = 0;  ///< line number of the first damage; 0 for none

  bool operator==(const DroppedEntities&) const = default;
};

/// The first of several records with the same name wins, so an index entry is never replaced.
using NameIndex = std::unordered_map<std::string_view, std::size_t, base::TextHash>;

/// What the reader keeps for the conversion. Entities of the ENTITIES section are not kept but
/// passed on as they are read. All texts are views into `arena`.
struct Drawing {
  Drawing() = default;
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  /// To be set before reading, for rules that show the drawing as it is: entities of every kind are
  /// handed on with all their groups instead of slots, blocks keep their text alone, and what the
  /// next two members hold is kept.
  bool everyKind = false;
  HeaderValues header;
  TableEntries tableEntries;

  TextArena arena;
  LineEnds lineEnds;
  base::Encoding encoding = base::Encoding::Windows1252;

  double angDir = 0.0;           ///< 1.0: angles run clockwise
  double fillMode = 1.0;         ///< 1.0: areas are filled
  double ltScale = kNotGiven;    ///< factor for dash lengths
  double pointSize = kNotGiven;  ///< size of a point
  std::deque<LineTypeRec> lineTypes;
  std::deque<LayerRec> layers;
  std::deque<BlockRec> blocks;
  EntityStore store;  ///< the entities of all blocks
  /// By kind, of the entities read so far.
  std::array<UsualGroups, kEntityKindCount> usualGroups;
  OtherEntities otherEntities{arena};

  /// Number of LWPOLYLINE and LEADER entities read so far, in blocks or not: their vertex lists are
  /// numbered from 1 and read from the text on demand.
  std::uint64_t polyVertexLists = 0;
  /// The same for SPLINE entities.
  std::uint64_t splineData = 0;

  UnknownKinds unknownKinds;
  DroppedEntities dropped;
  bool anySection = false;  ///< at least one section was found

  NameIndex layerIndex;
  NameIndex lineTypeIndex;
  NameIndex blockIndex;

  /// Number of the next vertex list or spline; 0 for kinds without a side record.
  std::uint64_t nextSideIndex(EntityKind kind);
  /// Line number (from 1) of an entity's first group in the text of a block, or of a position in
  /// groups that are kept; 0 when it is in none.
  std::uint64_t lineInBlocks(const char* position) const;

  void addLayer(LayerRec layer);
  /// Whether a layer is the first of its name.
  bool isFirstLayer(std::size_t index) const;
  void addLineType(const LineTypeRec& lineType);
  void addBlock(const BlockRec& block);

  /// The first record of this upper-cased name, or null.
  const LayerRec* findLayer(std::string_view name) const;
  const LineTypeRec* findLineType(std::string_view name) const;
};

/// Index of the first block with this upper-cased name. Also 0 for an unknown name: callers that
/// need to know compare the name.
std::size_t findBlock(const Drawing& drawing, std::string_view name);

}  // namespace quillon::dxf

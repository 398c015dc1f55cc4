#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "dxf/entity_reader.h"
#include "emit/dash_pattern.h"
#include "emit/emit_context.h"
#include "emit/polyline_writer.h"
#include "emit/translation_rules.h"

namespace quillon::emit {

/// Gives the EAGLE layer of a DXF layer. May throw RunTimeError for a number that is none.
class LayerNumbers {
 public:
  virtual ~LayerNumbers() = default;
  virtual int layerNumber(const dxf::LayerUse& layer) = 0;
};

/// Takes block insertions that become library parts instead of being drawn in place.
class BlockParts {
 public:
  virtual ~BlockParts() = default;
  /// Handles an insertion of the drawing's block at a placed point, or says false: then the block
  /// is drawn in place.
  virtual bool insertPart(std::size_t blockIndex, Corner insertion, const Placement& placement) = 0;
};

/// How many entities of each kind were handled, by kind.
using EntityCounts = std::array<std::uint64_t, dxf::kEntityKindCount>;

/// Turns entities into script lines.
class Translator {
 public:
  Translator(EmitContext& context, dxf::Drawing& drawing, LayerNumbers& layers,
             const TranslationRules& rules);

  /// Where block insertions go; without one they are drawn in place.
  void setBlockParts(BlockParts* parts) { parts_ = parts; }

  /// Writes the script lines of one entity. VERTEX entities belong to the POLYLINE before them in
  /// the list; whatever else comes ends its run. Completes the entity.
  void translateEntity(dxf::DxfEntity& entity, const Placement& placement);

  /// Ends the run of a POLYLINE at the end of its list.
  void finishList() { polyline_.finish(); }

  /// Writes all items of a block. A block inside itself is left out. Throws RunTimeError when
  /// blocks are nested deeper than 1,000.
  void translateBlock(std::size_t blockIndex, const Placement& placement);

  /// MTEXT counts as TEXT and LEADER as LWPOLYLINE.
  const EntityCounts& counts() const { return counts_; }
  /// How many of these were left out because their layer is assigned to 999.
  const EntityCounts& leftOut() const { return leftOut_; }
  /// Where the entity stands that was translated last, for error messages; may be null.
  const char* currentPosition() const { return currentPosition_; }

 private:
  using Handler = void (Translator::*)(const dxf::DxfEntity&, const Placement&);
  static const std::array<Handler, dxf::kEntityKindCount> kHandlers;

  void line(const dxf::DxfEntity& entity, const Placement& placement);
  void arc(const dxf::DxfEntity& entity, const Placement& placement);
  void circle(const dxf::DxfEntity& entity, const Placement& placement);
  void ellipse(const dxf::DxfEntity& entity, const Placement& placement);
  void polyline(const dxf::DxfEntity& entity, const Placement& placement);
  void vertex(const dxf::DxfEntity& entity, const Placement& placement);
  void lwPolyline(const dxf::DxfEntity& entity, const Placement& placement);
  void spline(const dxf::DxfEntity& entity, const Placement& placement);
  void text(const dxf::DxfEntity& entity, const Placement& placement);
  void mtext(const dxf::DxfEntity& entity, const Placement& placement);
  void insert(const dxf::DxfEntity& entity, const Placement& placement);
  void dimension(const dxf::DxfEntity& entity, const Placement& placement);
  void area(const dxf::DxfEntity& entity, const Placement& placement);
  void point(const dxf::DxfEntity& entity, const Placement& placement);
  void nothing(const dxf::DxfEntity& entity, const Placement& placement);

  int layerOf(const dxf::DxfEntity& entity);
  const DashPattern* dashesOf(const dxf::DxfEntity& entity);
  Mirror mirrorOf(const dxf::DxfEntity& entity) const;
  Corner pointAt(const dxf::DxfEntity& entity, std::size_t slot, const Placement& placement) const;
  void writeTextEntity(const dxf::DxfEntity& entity, const Placement& placement,
                       std::size_t heightSlot, std::size_t angleSlot, std::size_t textSlot);
  void insertBlock(std::string_view name, Corner insertion, const Placement& placement);

  /// A block whose items are being written.
  struct Expansion {
    std::size_t blockIndex;
    dxf::EntityCursor items;
    Placement placement;
    const char* insertedAt;  ///< the position that it was met at
  };

  void handle(dxf::DxfEntity& entity, const Placement& placement);
  void beginBlock(std::size_t blockIndex, const Placement& placement);
  void endBlock();
  void writeBlocks(std::size_t enclosing);

  EmitContext& context_;
  dxf::Drawing& drawing_;
  LayerNumbers& layers_;
  const TranslationRules& rules_;
  dxf::EntityReader reader_;
  DashPatterns dashPatterns_;
  PolylineWriter polyline_;
  BlockParts* parts_ = nullptr;
  EntityCounts counts_{};
  EntityCounts leftOut_{};
  std::vector<char> expanding_;        ///< by block index: the block is being expanded
  std::vector<Expansion> expansions_;  ///< from the outermost to the innermost block
  const char* currentPosition_ = nullptr;
};

}  // namespace quillon::emit

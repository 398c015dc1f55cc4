#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "classic/context.h"
#include "classic/dash_pattern.h"
#include "classic/polyline_writer.h"
#include "dxf/entity_reader.h"
#include "rules/translation.h"

namespace quillon::classic {

using geometry::Mirror;
using geometry::Placement;

/// The classic rules; their scripts stay the same to the byte.
class Translator final : public rules::Translation {
 public:
  /// Entities outside blocks are placed by `placement`.
  Translator(const Context& context, dxf::Drawing& drawing, rules::LayerNumbers& layers,
             const Placement& placement = {});

  void setBlockParts(rules::BlockParts* parts) override { parts_ = parts; }

  /// Writes the script lines of one entity, which it completes. VERTEX entities belong to the
  /// POLYLINE before them; any other entity ends it.
  void takeEntity(dxf::DxfEntity& entity) override;
  /// Ends a POLYLINE still open at the end.
  void endOfEntities() override { polyline_.finish(); }
  /// A block within itself is skipped.
  void translateBlock(std::size_t blockIndex, const Placement& placement) override;

  const rules::EntityCounts& counts() const override { return counts_; }
  const rules::EntityCounts& leftOut() const override { return leftOut_; }
  const char* currentPosition() const override { return currentPosition_; }

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
  void insert(const dxf::DxfEntity& entity, const Placement& placement);
  void dimension(const dxf::DxfEntity& entity, const Placement& placement);
  void area(const dxf::DxfEntity& entity, const Placement& placement);
  void point(const dxf::DxfEntity& entity, const Placement& placement);
  void nothing(const dxf::DxfEntity& entity, const Placement& placement);

  int layerOf(const dxf::DxfEntity& entity);
  const DashPattern* dashesOf(const dxf::DxfEntity& entity);
  Mirror mirrorOf(const dxf::DxfEntity& entity) const;
  void insertBlock(std::string_view name, Point insertion, const Placement& placement);

  /// A block being written.
  struct Expansion {
    std::size_t blockIndex;
    dxf::EntityCursor items;
    Placement placement;
    const char* insertedAt;  ///< position of its insertion
  };

  void handle(dxf::DxfEntity& entity, const Placement& placement);
  void beginBlock(std::size_t blockIndex, const Placement& placement);
  void endBlock();
  void writeBlocks(std::size_t enclosing);

  Context context_;
  dxf::Drawing& drawing_;
  rules::LayerNumbers& layers_;
  Placement placement_;
  dxf::EntityReader reader_;
  DashPatterns dashPatterns_;
  PolylineWriter polyline_;
  rules::BlockParts* parts_ = nullptr;
  rules::EntityCounts counts_{};
  rules::EntityCounts leftOut_{};
  std::vector<char> expanding_;        ///< by block index: true while the block is being expanded
  std::vector<Expansion> expansions_;  ///< from the outermost to the innermost block
  const char* currentPosition_ = nullptr;
};

}  // namespace quillon::classic

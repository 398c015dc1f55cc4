#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "classic/context.h"
#include "classic/dash_pattern.h"
#include "classic/loss_checks.h"
#include "classic/loss_notes.h"
#include "classic/polyline_writer.h"
#include "dxf/entity_reader.h"
#include "geometry/uniform_spline.h"
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
  rules::LossList takeLosses() override { return losses_.take(drawing_, reader_, layers_); }

 private:
  using Handler = void (Translator::*)(const dxf::DxfEntity&, const Placement&);
  static const std::array<Handler, dxf::kEntityKindCount> kHandlers;

  /// The counter for a kind.
  static constexpr dxf::EntityKind countedAs(dxf::EntityKind kind) {
    if (kind == dxf::EntityKind::Mtext) return dxf::EntityKind::Text;
    return kind == dxf::EntityKind::Leader ? dxf::EntityKind::LwPolyline : kind;
  }

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

  int layerOf(const dxf::DxfEntity& entity) {
    const int layer = layers_.layerNumber(*entity.layer);
    const bool isPlain = layer != kNotConverted && entity.marks == 0 && !entity.layer->isHidden();
    if (!isPlain || !expansions_.empty()) return enterLosses(entity, layer);
    losses_.enter(entity);
    return layer;
  }
  int enterLosses(const dxf::DxfEntity& entity, int layer);
  const DashPattern* dashesOf(const dxf::DxfEntity& entity);
  /// Also finds out whether the entity is oblique.
  Mirror mirrorOf(const dxf::DxfEntity& entity) {
    isOblique_ = (entity.marks & dxf::mark::kExtruded) != 0;
    if (!dxf::hasExtrusion(entity)) return {};
    return mirrorBy(dxf::extrusionOf(entity));
  }
  Mirror mirrorBy(const dxf::ExtrusionTexts& extrusion);
  std::optional<std::size_t> blockNamed(std::string_view upperName) const;
  void insertBlock(std::size_t index, Point insertion, const Placement& placement);
  bool isWithoutWidth() const { return context_.settings.poly == kModeWithoutWidth; }

  /// A block being written.
  struct Expansion {
    std::size_t blockIndex;
    dxf::EntityCursor items;
    Placement placement;
    const char* insertedAt;  ///< position of its insertion
    LossNotes::Block losses;
    dxf::LineCounter lines;
  };

  void handle(dxf::DxfEntity& entity, const Placement& placement);
  void beginBlock(std::size_t blockIndex, const Placement& placement,
                  const LossNotes::Block& losses);
  void endBlock();
  void writeBlocks(std::size_t enclosing);

  Context context_;
  dxf::Drawing& drawing_;
  rules::LayerNumbers& layers_;
  Placement placement_;
  dxf::EntityReader reader_;
  DashPatterns dashPatterns_;
  PolylineWriter polyline_;
  geometry::UniformSplines splines_;
  bool isOblique_ = false;  ///< the entity whose mirror was asked for last
  LossNotes losses_;
  PolylineLosses polylineLosses_{losses_};
  LossNotes::Block partLosses_;  ///< around the content of the part being inserted
  rules::BlockParts* parts_ = nullptr;
  rules::EntityCounts counts_{};
  rules::EntityCounts leftOut_{};
  std::vector<char> expanding_;        ///< by block index: true while the block is being expanded
  std::vector<Expansion> expansions_;  ///< from the outermost to the innermost block
  const char* currentPosition_ = nullptr;
};

}  // namespace quillon::classic

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "classic/context.h"
#include "dxf/drawing.h"
#include "dxf/entity_reader.h"
#include "dxf/entity_store.h"
#include "dxf/line_counter.h"
#include "rules/losses.h"
#include "rules/translation.h"

namespace quillon::classic {

using rules::LossRule;

/// Kinds of entities that the classic rules do not know, but the exact ones draw.
std::span<const std::string_view> kindsOfOtherRules();

/// What is noted for a drawing, of its model space or of its paper space.
struct GatheredLosses {
  rules::LossList list;
  std::vector<std::uint64_t> drawn;  ///< how often each block is drawn, by its index
};

/// Notes what the exact rules would show in another way. What they hide, and what is within
/// something they hide, is not noted any further.
class LossNotes {
 public:
  LossNotes() = default;
  LossNotes(const LossNotes&) = delete;
  LossNotes& operator=(const LossNotes&) = delete;

  /// A block around entities.
  struct Block {
    GatheredLosses* gathered = nullptr;    ///< null: nothing is noted
    const dxf::LayerUse* layer = nullptr;  ///< of its insertion, by the exact rules
    dxf::LineCounter* lines = nullptr;     ///< from the block's beginning
  };

  /// Starts with an entity that is drawn, outside of blocks, and that nothing hides.
  void enter(const dxf::DxfEntity& entity) {
    entity_ = &entity;
    layer_ = entity.layer;
    gathered_ = &model_;
    sawModel_ = true;
  }
  /// The same for one with marks, or on a layer that is hidden.
  void enterMarked(const dxf::DxfEntity& entity) {
    entity_ = &entity;
    layer_ = entity.layer;
    gathered_ = &model_;
    noteVisibility(false);
  }
  /// Starts with an entity that is drawn as part of a block. Both have to live until the next one.
  void enter(const dxf::DxfEntity& entity, const Block& block) {
    gathered_ = block.gathered;
    if (gathered_ == nullptr) return;
    entity_ = &entity;
    blockLines_ = block.lines;
    // The exact rules give such an entity the layer of the insertion.
    layer_ = entity.layer->isZero && block.layer != nullptr ? block.layer : entity.layer;
    if (entity.marks != 0 || layer_->isHidden()) noteVisibility(true);
  }
  /// Starts with an entity that is not drawn, on request.
  void skip() { gathered_ = nullptr; }
  /// The present entity is the first of several that belong together; with its line if a loss by
  /// this rule would be the first one.
  void keep(LossRule rule);
  /// Another of them: losses are noted there from now on, unless the line was kept.
  void follow(const dxf::DxfEntity& entity) {
    if (line_ != 0) return;
    kept_.groups = entity.groups;
    kept_.lines = entity.lines;
  }

  bool isOn() const { return gathered_ != nullptr; }
  /// The layer that the exact rules would draw the present entity on.
  const dxf::LayerUse& layer() const { return *layer_; }
  /// What surrounds the content of the block that the present entity inserts, but for its lines.
  Block within() const { return {gathered_, layer_, nullptr}; }

  /// Notes a loss of the present entity at a point in units of the script.
  void note(LossRule rule, Point at = {}) {
    if (gathered_ == nullptr) return;
    if (!gathered_->list.addAgain(rule, dxf::entityName(entity_->kind), entity_->layer->name)) {
      add(rule, at);
    }
  }
  /// A block is being drawn; there are `blocks` of them.
  void noteDrawn(const Block& block, std::size_t index, std::size_t blocks);

  /// Everything that was noted, with the entities that were not read; to be called once.
  rules::LossList take(const dxf::Drawing& drawing, dxf::EntityReader& layers,
                       rules::LayerNumbers& numbers);

 private:
  void noteVisibility(bool isInBlock);
  std::uint64_t lineOf(const dxf::DxfEntity& entity) const;
  void add(LossRule rule, Point at);

  GatheredLosses model_;
  GatheredLosses paper_;
  bool sawModel_ = false;

  GatheredLosses* gathered_ = nullptr;
  const dxf::DxfEntity* entity_ = nullptr;
  const dxf::LayerUse* layer_ = nullptr;
  dxf::LineCounter* blockLines_ = nullptr;
  dxf::DxfEntity kept_;     ///< what counts of the first of several entities
  std::uint64_t line_ = 0;  ///< its line, if it was kept
};

}  // namespace quillon::classic

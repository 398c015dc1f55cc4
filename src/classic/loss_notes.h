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

  /// Starts with an entity that is drawn; `block` is null outside of blocks.
  void enter(const dxf::DxfEntity& entity, const Block* block) {
    const bool isInBlock = block != nullptr;
    kind_ = entity.kind;
    ownLayer_ = layer_ = entity.layer;
    // The exact rules give such an entity the layer of the insertion.
    if (isInBlock && block->layer != nullptr && layer_->name == "0") layer_ = block->layer;
    position_ = entity.groups;
    lines_ = isInBlock ? block->lines : entity.lines;
    gathered_ = isInBlock ? block->gathered : &model_;
    if (gathered_ == nullptr) return;
    if (layer_->isOff || layer_->isFrozen || entity.marks != 0) {
      noteVisibility(entity.marks, isInBlock);
    } else if (!isInBlock) {
      sawModel_ = true;
    }
  }
  /// Starts with an entity that is not drawn, on request.
  void skip() { gathered_ = nullptr; }
  /// Finds out the line of the present entity now, as its text may be gone when losses are noted.
  void keepLine();

  bool isOn() const { return gathered_ != nullptr; }
  /// The layer that the exact rules would draw the present entity on.
  const dxf::LayerUse& layer() const { return *layer_; }
  /// What surrounds the content of the block that the present entity inserts, but for its lines.
  Block within() const { return {gathered_, layer_, nullptr}; }

  /// Notes a loss of the present entity at a point in units of the script.
  void note(LossRule rule, Point at = {}) {
    if (gathered_ == nullptr) return;
    if (gathered_->list.addAgain(rule, dxf::entityName(kind_), ownLayer_->name)) return;
    add(rule, at);
  }
  /// A block is being drawn; there are `blocks` of them.
  void noteDrawn(const Block& block, std::size_t index, std::size_t blocks);

  /// Everything that was noted, with the entities that were not read; to be called once.
  rules::LossList take(const dxf::Drawing& drawing, dxf::EntityReader& layers,
                       rules::LayerNumbers& numbers);

 private:
  void noteVisibility(std::uint32_t marks, bool isInBlock);
  void add(LossRule rule, Point at);

  GatheredLosses model_;
  GatheredLosses paper_;
  bool sawModel_ = false;

  GatheredLosses* gathered_ = nullptr;
  dxf::EntityKind kind_ = dxf::EntityKind::None;
  const dxf::LayerUse* ownLayer_ = nullptr;
  const dxf::LayerUse* layer_ = nullptr;
  const char* position_ = nullptr;
  dxf::LineCounter* lines_ = nullptr;  ///< null: the line is known
  std::uint64_t line_ = 0;
};

}  // namespace quillon::classic

#include "classic/loss_notes.h"

#include <array>
#include <exception>
#include <utility>

#include "dxf/entity_marks.h"

namespace quillon::classic {
namespace {

constexpr std::array<std::string_view, 13> kOtherKinds = {"HATCH",
                                                          "MPOLYGON",
                                                          "MLINE",
                                                          "MESH",
                                                          "HELIX",
                                                          "MULTILEADER",
                                                          "MLEADER",
                                                          "TOLERANCE",
                                                          "ACAD_TABLE",
                                                          "ARC_DIMENSION",
                                                          "LARGE_RADIAL_DIMENSION",
                                                          "RAY",
                                                          "XLINE"};

/// Kinds that show, by the exact rules, what their blocks have on other layers than one that is
/// off.
bool hasContent(dxf::EntityKind kind) {
  return kind == dxf::EntityKind::Insert || kind == dxf::EntityKind::Dimension;
}

/// Whether the exact rules would show what is on a layer.
bool isShown(const dxf::LayerUse& layer, rules::LayerNumbers& numbers) {
  if (layer.isHidden()) return false;
  try {
    return numbers.layerNumber(layer) != kNotConverted;
  } catch (const std::exception&) {
    return false;  // a wrong number ends a conversion only where something is to be drawn by it
  }
}

}  // namespace

std::span<const std::string_view> kindsOfOtherRules() { return kOtherKinds; }

void LossNotes::keep(LossRule rule) {
  kept_.kind = entity_->kind;
  kept_.layer = entity_->layer;
  kept_.groups = entity_->groups;
  kept_.lines = entity_->lines;
  const bool isFirst =
      !gathered_->list.addAgain(rule, dxf::entityName(kept_.kind), kept_.layer->name, 0);
  line_ = isFirst ? lineOf(*entity_) : 0;
  entity_ = &kept_;
}

std::uint64_t LossNotes::lineOf(const dxf::DxfEntity& entity) const {
  dxf::LineCounter& lines = entity.lines != nullptr ? *entity.lines : *blockLines_;
  return lines.lineAt(entity.groups);
}

void LossNotes::noteVisibility(bool isInBlock) {
  const std::uint32_t marks = entity_->marks;
  if (!isInBlock && (marks & dxf::mark::kInPaperSpace) != 0) {
    note(LossRule::PaperSpaceDrawn);
    gathered_ = &paper_;
  } else if (!isInBlock) {
    sawModel_ = true;
  }
  const auto hide = [this](LossRule rule) {
    note(rule);
    gathered_ = nullptr;
  };
  if ((marks & dxf::mark::kInvisible) != 0) return hide(LossRule::InvisibleDrawn);
  if (layer_->isFrozen) return hide(LossRule::LayerFrozenDrawn);
  if (layer_->isOff && !hasContent(entity_->kind)) hide(LossRule::LayerOffDrawn);
}

void LossNotes::add(LossRule rule, Point at) {
  const bool isKept = entity_ == &kept_ && line_ != 0;
  const std::uint64_t line = isKept ? line_ : lineOf(*entity_);
  gathered_->list.add({rule, dxf::entityName(entity_->kind), entity_->layer->name, line, at});
}

void LossNotes::noteDrawn(const Block& block, std::size_t index, std::size_t blocks) {
  if (block.gathered == nullptr) return;
  std::vector<std::uint64_t>& drawn = block.gathered->drawn;
  if (drawn.empty()) drawn.resize(blocks);
  ++drawn[index];
}

rules::LossList LossNotes::take(const dxf::Drawing& drawing, dxf::EntityReader& layers,
                                rules::LayerNumbers& numbers) {
  constexpr std::size_t kNoBlock = dxf::OtherEntities::kNoBlock;
  const auto& groups = drawing.otherEntities.all();
  for (const dxf::OtherEntities::Group& group : groups) {
    if (group.block == kNoBlock && !group.isInPaperSpace) sawModel_ = true;
  }
  // The exact rules show the paper space where there is nothing else.
  GatheredLosses& shown = sawModel_ ? model_ : paper_;
  for (const dxf::OtherEntities::Group& group : groups) {
    std::uint64_t count = group.count;
    if (group.block != kNoBlock) {
      count *= group.block < shown.drawn.size() ? shown.drawn[group.block] : 0;
    } else if (group.isInPaperSpace && sawModel_) {
      continue;
    }
    const dxf::LayerUse& layer = layers.layerLineType(group.layer);
    if (count == 0 || !isShown(layer, numbers)) continue;
    shown.list.add({LossRule::UnknownKind, group.name, layer.name, group.line}, count);
  }
  return std::move(shown.list);
}

}  // namespace quillon::classic

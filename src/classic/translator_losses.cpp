#include "classic/quirks.h"
#include "classic/translator.h"

namespace quillon::classic {

Mirror Translator::mirrorBy(const dxf::ExtrusionTexts& extrusion) {
  isOblique_ = isOblique_ || isExtrusion(extrusion.y);
  return {isNegativeText(extrusion.x) ? -1.0 : 1.0, isNegativeText(extrusion.y) ? -1.0 : 1.0};
}

/// For entities that are hidden, in a block, or not converted; returns their EAGLE layer. Apart
/// from the other functions, as it is rarely needed and would make them slower.
int Translator::enterLosses(const dxf::DxfEntity& entity, int layer) {
  if (layer == kNotConverted) {
    ++leftOut_[static_cast<std::size_t>(countedAs(entity.kind))];
    losses_.skip();
    return layer;
  }
  if (expansions_.empty()) {
    losses_.enterMarked(entity);
    return layer;
  }
  Expansion& block = expansions_.back();
  block.losses.lines = &block.lines;
  losses_.enter(entity, block.losses);
  if (!losses_.isOn() || &losses_.layer() == entity.layer) return layer;
  const bool isInsertion =
      entity.kind == dxf::EntityKind::Insert || entity.kind == dxf::EntityKind::Dimension;
  if (!isInsertion && layers_.layerNumber(losses_.layer()) != layer) {
    losses_.note(LossRule::LayerOfBlock);
  }
  return layer;
}

}  // namespace quillon::classic

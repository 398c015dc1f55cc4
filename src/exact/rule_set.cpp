#include "exact/rule_set.h"

#include <utility>

#include "geometry/path_tools.h"

namespace quillon::exact {

void RuleSet::setPartFrame(PartFrame& frame, bool all) {
  allParts_ = all;
  parts_.emplace(options_, drawing_, Parts::Output{writer_, cleaning_, losses_, poll_}, frame);
  translator_.setPartMaker(*parts_);
}

void RuleSet::endOfEntities() {
  translator_.endOfEntities();
  if (!isOnlyPaper_ && options_.space == Space::Model && translator_.hasOnlyPaper()) {
    isOnlyPaper_ = true;
    translator_.turnToPaper();
    return;
  }
  translator_.drawLayouts();
  drewPaper_ = translator_.turnedToPaper();
  if (!translator_.waitsForObjects()) finish();
}

void RuleSet::finish() {
  if (std::exchange(isFinished_, true)) return;
  translator_.finish();
  if (parts_ && allParts_) parts_->addUnused(translator_);
  if (parts_) parts_->returnToDrawing();
  if (options_.parts) writer_.begin();
  if (options_.place != Place::Keep) {
    const geometry::Box box = cleaning_.bounds();
    const Point anchor =
        options_.place == Place::LowerLeft ? box.low : geometry::middle(box.low, box.high);
    if (!box.empty()) writer_.moveBy(-anchor);
  }
  cleaning_.finish();
  if (parts_) parts_->writePlaces();
  writer_.end();
}

namespace {

Options whatIsShown(const Options& options) {
  Options shown;
  shown.space = options.space;
  shown.hiddenLayers = options.hiddenLayers;
  return shown;
}

}  // namespace

Survey::Survey(const Options& options, dxf::Drawing& drawing, rules::LayerNumbers& layers,
               rules::CancelPoll& poll)
    : options_(whatIsShown(options)),
      translator_(options_, drawing, layers, bounds_, losses_, poll, {}) {}

void Survey::Bounds::take(const Origin&, Chain&& chain) { box.add(geometry::bounds(chain.path)); }

void Survey::Bounds::take(const Origin&, Area&& area) { box.add(geometry::bounds(area.outline)); }

}  // namespace quillon::exact

#pragma once

#include <string>
#include <utility>

#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "dxf/text_source.h"
#include "exact/canvas.h"
#include "exact/entity_reader.h"
#include "shape_log.h"
#include "support/dxf_builder.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// Hands each entity outside of blocks to a function, as the rules for its kind get it.
template <typename Use>
class ItemSink : public dxf::EntitySink {
 public:
  ItemSink(dxf::Drawing& drawing, exact::Canvas& canvas, Use use)
      : reader_(drawing), canvas_(canvas), use_(std::move(use)) {}

  void takeEntity(dxf::DxfEntity& found) override {
    const exact::Entity entity = reader_.read(found);
    const exact::Pen pen;
    const exact::Origin origin{7, entity.name, entity.layer, entity.line};
    use_(exact::Item{entity, exact::Affine{}, origin, pen}, canvas_);
  }
  void endOfEntities() override {}

 private:
  exact::EntityReader reader_;
  exact::Canvas& canvas_;
  Use use_;
};

/// Calls use(item, canvas) for each entity of a drawing.
template <typename Use>
void withItems(const DxfBuilder& dxf, Use use) {
  const std::string text = dxf.text();
  dxf::TextSource source(text);
  TestMonitor monitor;
  dxf::LineReader reader(source, monitor);
  dxf::Drawing drawing;
  drawing.everyKind = true;
  dxf::readDefinitions(drawing, reader);
  rules::CancelPoll poll(monitor);
  const exact::Options options;
  ShapeLog log;
  exact::LossList losses;
  exact::Canvas canvas(options, drawing, log, losses, poll);
  ItemSink<Use> sink(drawing, canvas, std::move(use));
  dxf::readContents(drawing, reader, sink, true);
}

}  // namespace quillon::testing

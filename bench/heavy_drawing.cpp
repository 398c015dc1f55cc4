#include <string>

#include "drawings.h"
#include "plan_entities.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kFittings = 20;
constexpr std::size_t kVertices = 12;

/// Of many entities, far more is written than read: blocks whose circles become ellipses, splines.
class HeavyDrawing : private PlanEntities {
 public:
  explicit HeavyDrawing(DrawingText& text) : PlanEntities(text, 4) {}

  void write(std::size_t bytes) {
    writeHeader(text_);
    writeTables(text_);
    text_.beginSection("BLOCKS");
    for (std::size_t i = 0; i < kFittings; ++i) fittingBlock(i);
    text_.endSection().beginSection("ENTITIES");
    while (text_.size() < bytes) entity();
    text_.endSection();
    writeEnd(text_);
  }

 private:
  void entity() {
    static constexpr Share<HeavyDrawing> kShares[] = {
        {45, &HeavyDrawing::line},   {15, &HeavyDrawing::arc},  {15, &HeavyDrawing::polyline},
        {10, &HeavyDrawing::circle}, {7, &HeavyDrawing::text},  {3, &HeavyDrawing::insert},
        {3, &HeavyDrawing::ellipse}, {2, &HeavyDrawing::spline}};
    (this->*picked<HeavyDrawing>(kShares).write)();
  }

  void polyline() { lwPolyline(kVertices); }

  void insert() {
    begin("INSERT", "AcDbBlockReference").group(2, fittingName(dice_.below(kFittings)));
    text_.point(10, place(), place()).number(41, dice_.measure(0.5, 2.0));
    text_.number(42, dice_.measure(0.5, 2.0)).number(43, 1.0).number(50, place());
  }

  static std::string fittingName(std::size_t index) { return "Fitting_" + std::to_string(index); }

  void fittingBlock(std::size_t index) {
    beginBlock(fittingName(index), 15.0);
    for (std::size_t i = 0; i < 4; ++i) line();
    circle();
    if (index % 3 == 0) arc();
    endBlock();
  }
};

}  // namespace

void makeHeavy(DrawingText& drawing, std::size_t bytes) { HeavyDrawing(drawing).write(bytes); }

}  // namespace quillon::bench

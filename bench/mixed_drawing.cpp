#include <string>

#include "drawings.h"
#include "plan_entities.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kSymbols = 40;

class MixedDrawing : private PlanEntities {
 public:
  explicit MixedDrawing(DrawingText& text) : PlanEntities(text, 2) {}

  void write(std::size_t bytes) {
    constexpr std::size_t kBytesForEachDimension = 6000;
    dimensions_ = 1 + bytes / kBytesForEachDimension;
    writeHeader(text_);
    writeTables(text_);
    text_.beginSection("BLOCKS");
    layoutBlocks();
    for (std::size_t i = 0; i < kSymbols; ++i) symbolBlock(i);
    for (std::size_t i = 0; i < dimensions_; ++i) dimensionBlock(i);
    text_.endSection().beginSection("ENTITIES");
    while (text_.size() < bytes) entity();
    text_.endSection();
    writeEnd(text_);
  }

 private:
  void entity() {
    static constexpr Share<MixedDrawing> kShares[] = {
        {34, &MixedDrawing::line},     {14, &MixedDrawing::lightPolyline},
        {10, &MixedDrawing::text},     {8, &MixedDrawing::arc},
        {7, &MixedDrawing::circle},    {7, &MixedDrawing::insert},
        {4, &MixedDrawing::polyline},  {4, &MixedDrawing::point},
        {3, &MixedDrawing::mtext},     {3, &MixedDrawing::solid},
        {3, &MixedDrawing::dimension}, {2, &MixedDrawing::ellipse},
        {1, &MixedDrawing::spline}};
    (this->*picked<MixedDrawing>(kShares).write)();
  }

  void lightPolyline() { lwPolyline(4 + dice_.below(13)); }
  void point() { begin("POINT", "AcDbPoint").point(10, place(), place()); }
  void solid() {
    begin("SOLID", "AcDbTrace");
    for (int code = 10; code < 14; ++code) text_.point(code, place(), place());
  }
  void mtext() {
    begin("MTEXT", "AcDbMText").point(10, place(), place()).number(40, 2.5).number(41, 80.0);
    text_.integer(71, 1).integer(72, 5).group(1, "{\\fArial|b0;Fire door T30}\\PSee detail A-A");
    text_.group(7, "STANDARD").number(210, 0.0).number(220, 0.0).number(230, 1.0).number(50, 0.0);
  }

  void polyline() {
    begin("POLYLINE", "AcDb2dPolyline").integer(66, 1).point(10, 0.0, 0.0);
    text_.integer(70, static_cast<std::int64_t>(dice_.below(2)));
    for (std::size_t i = 3 + dice_.below(6); i > 0; --i) {
      begin("VERTEX", "AcDbVertex").group(100, "AcDb2dVertex").point(10, place(), place());
      text_.number(42, 0.0);
    }
    text_.beginEntity("SEQEND", kLayers[0]);
  }
  void insert() {
    begin("INSERT", "AcDbBlockReference").group(2, symbolName(dice_.below(kSymbols)));
    text_.point(10, place(), place());
    if (dice_.below(2) == 0) text_.number(50, 90.0 * static_cast<double>(dice_.below(4)));
  }
  void dimension() {
    begin("DIMENSION", "AcDbDimension").group(2, dimensionName(dimension_++ % dimensions_));
    text_.point(10, place(), place()).point(11, place(), place()).integer(70, 32);
    text_.group(1, "").group(3, "ISO-25").group(100, "AcDbAlignedDimension");
    text_.point(13, place(), place()).point(14, place(), place());
  }

  static std::string symbolName(std::size_t index) { return "Symbol_" + std::to_string(index); }
  static std::string dimensionName(std::size_t index) { return "*D" + std::to_string(index); }

  void layoutBlocks() {
    for (const std::string_view name : {"*Model_Space", "*Paper_Space"}) {
      beginBlock(name);
      endBlock();
    }
  }
  void symbolBlock(std::size_t index) {
    beginBlock(symbolName(index), 15.0);
    for (std::size_t i = 3 + dice_.below(5); i > 0; --i) line();
    if (index % 2 == 0) circle();
    if (index % 3 == 0) arc();
    if (index % 4 == 0) lightPolyline();
    endBlock();
  }
  void dimensionBlock(std::size_t index) {
    beginBlock(dimensionName(index), 50.0);
    for (int i = 0; i < 3; ++i) line();
    for (int i = 0; i < 2; ++i) solid();
    mtext();
    endBlock();
  }

  std::size_t dimensions_ = 0;
  std::size_t dimension_ = 0;
};

}  // namespace

void makeMixed(DrawingText& drawing, std::size_t bytes) { MixedDrawing(drawing).write(bytes); }

}  // namespace quillon::bench

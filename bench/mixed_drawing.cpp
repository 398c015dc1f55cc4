#include <string>

#include "dice.h"
#include "drawings.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kSymbols = 40;
constexpr double kExtent = 800.0;

/// Writes the entities of a plan. Those of blocks are near the origin.
class MixedDrawing {
 public:
  explicit MixedDrawing(DrawingText& text) : text_(text), dice_(2) {}

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
  struct Share {
    std::size_t parts;
    void (MixedDrawing::*write)();
  };
  static constexpr std::size_t kAllParts = 100;

  void entity() {
    static constexpr Share kShares[] = {
        {34, &MixedDrawing::line},    {14, &MixedDrawing::lwPolyline}, {10, &MixedDrawing::text},
        {8, &MixedDrawing::arc},      {7, &MixedDrawing::circle},      {7, &MixedDrawing::insert},
        {4, &MixedDrawing::polyline}, {4, &MixedDrawing::point},       {3, &MixedDrawing::mtext},
        {3, &MixedDrawing::solid},    {3, &MixedDrawing::dimension},   {2, &MixedDrawing::ellipse},
        {1, &MixedDrawing::spline}};
    std::size_t pick = dice_.below(kAllParts);
    for (const Share& share : kShares) {
      if (pick < share.parts) return (this->*share.write)();
      pick -= share.parts;
    }
  }

  double place() { return dice_.measure(0.0, extent_); }

  /// Every eighth entity has a line type of its own.
  DrawingText& begin(std::string_view name, std::string_view subclass) {
    text_.beginEntity(name, kLayers[dice_.below(kLayers.size())]);
    if (dice_.below(8) == 0) text_.group(6, dice_.below(2) == 0 ? "HIDDEN" : "Center");
    return text_.group(100, subclass);
  }

  void line() { begin("LINE", "AcDbLine").point(10, place(), place()).point(11, place(), place()); }
  void circle() {
    begin("CIRCLE", "AcDbCircle").point(10, place(), place()).number(40, dice_.measure(0.5, 20.0));
  }
  void arc() {
    begin("ARC", "AcDbCircle").point(10, place(), place()).number(40, dice_.measure(0.5, 20.0));
    text_.group(100, "AcDbArc").number(50, dice_.measure(0.0, 360.0));
    text_.number(51, dice_.measure(0.0, 360.0));
  }
  void ellipse() {
    begin("ELLIPSE", "AcDbEllipse").point(10, place(), place());
    text_.point(11, dice_.measure(1.0, 20.0), dice_.measure(1.0, 20.0)).number(210, 0.0);
    text_.number(220, 0.0).number(230, 1.0).number(40, dice_.measure(0.1, 1.0));
    text_.number(41, 0.0).number(42, 6.283185307179586);
  }
  void point() { begin("POINT", "AcDbPoint").point(10, place(), place()); }
  void solid() {
    begin("SOLID", "AcDbTrace");
    for (int code = 10; code < 14; ++code) text_.point(code, place(), place());
  }
  void text() {
    begin("TEXT", "AcDbText").point(10, place(), place()).number(40, 2.5);
    const std::string room = "Room " + std::to_string(dice_.below(1000));
    text_.group(1, dice_.below(4) == 0 ? room + ", %%c12" : room);
    text_.number(50, dice_.below(4) == 0 ? 90.0 : 0.0).group(7, "STANDARD").group(100, "AcDbText");
  }
  void mtext() {
    begin("MTEXT", "AcDbMText").point(10, place(), place()).number(40, 2.5).number(41, 80.0);
    text_.integer(71, 1).integer(72, 5).group(1, "{\\fArial|b0;Fire door T30}\\PSee detail A-A");
    text_.group(7, "STANDARD").number(210, 0.0).number(220, 0.0).number(230, 1.0).number(50, 0.0);
  }

  void lwPolyline() {
    const std::size_t vertices = 4 + dice_.below(13);
    begin("LWPOLYLINE", "AcDbPolyline").integer(90, static_cast<std::int64_t>(vertices));
    text_.integer(70, static_cast<std::int64_t>(dice_.below(2))).number(43, 0.0);
    for (std::size_t i = 0; i < vertices; ++i) {
      text_.number(10, place()).number(20, place());
      if (dice_.below(10) == 0) text_.number(42, dice_.measure(-1.0, 1.0));
    }
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
  void spline() {
    constexpr int kControlPoints = 6;
    constexpr int kDegree = 3;
    begin("SPLINE", "AcDbSpline").integer(70, 8).integer(71, kDegree);
    text_.integer(72, kControlPoints + kDegree + 1).integer(73, kControlPoints).integer(74, 0);
    for (int i = 0; i < kControlPoints + kDegree + 1; ++i) text_.number(40, i);
    for (int i = 0; i < kControlPoints; ++i) text_.point(10, place(), place());
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

  void beginBlock(std::string_view name) {
    text_.beginEntity("BLOCK", kLayers[0]).group(100, "AcDbBlockBegin").group(2, name);
    text_.integer(70, 0).point(10, 0.0, 0.0).group(3, name).group(1, "");
  }
  void endBlock() {
    text_.beginEntity("ENDBLK", kLayers[0]).group(100, "AcDbBlockEnd");
    extent_ = kExtent;
  }
  void layoutBlocks() {
    for (const std::string_view name : {"*Model_Space", "*Paper_Space"}) {
      beginBlock(name);
      endBlock();
    }
  }
  void symbolBlock(std::size_t index) {
    beginBlock(symbolName(index));
    extent_ = 15.0;
    for (std::size_t i = 3 + dice_.below(5); i > 0; --i) line();
    if (index % 2 == 0) circle();
    if (index % 3 == 0) arc();
    if (index % 4 == 0) lwPolyline();
    endBlock();
  }
  void dimensionBlock(std::size_t index) {
    beginBlock(dimensionName(index));
    extent_ = 50.0;
    for (int i = 0; i < 3; ++i) line();
    for (int i = 0; i < 2; ++i) solid();
    mtext();
    endBlock();
  }

  DrawingText& text_;
  Dice dice_;
  double extent_ = kExtent;
  std::size_t dimensions_ = 0;
  std::size_t dimension_ = 0;
};

}  // namespace

void makeMixed(DrawingText& drawing, std::size_t bytes) { MixedDrawing(drawing).write(bytes); }

}  // namespace quillon::bench

#include "drawings.h"

#include <cmath>
#include <string>

#include "dice.h"

namespace quillon::bench {
namespace {

struct LineType {
  std::string_view name;
  std::string_view description;
  std::array<double, 4> dashes;
  std::size_t dashCount;
};

constexpr std::array<LineType, 5> kLineTypes = {{
    {"CONTINUOUS", "Solid line", {}, 0},
    {"DASHED", "__ __ __ __", {12.7, -6.35}, 2},
    {"HIDDEN", "_ _ _ _ _ _", {6.35, -3.175}, 2},
    {"CENTER", "____ _ ____", {31.75, -6.35, 6.35, -6.35}, 4},
    {"DASHDOT", "__ . __ . __", {12.7, -6.35, 0.0, -6.35}, 4},
}};

void writeLineType(DrawingText& drawing, const LineType& type) {
  double total = 0.0;
  for (const double dash : type.dashes) total += std::fabs(dash);
  drawing.group(0, "LTYPE").group(100, "AcDbLinetypeTableRecord").group(2, type.name);
  drawing.integer(70, 0).group(3, type.description).integer(72, 65);
  drawing.integer(73, static_cast<std::int64_t>(type.dashCount)).number(40, total);
  for (std::size_t i = 0; i < type.dashCount; ++i) {
    drawing.number(49, type.dashes[i]).integer(74, 0);
  }
}

/// A long random polyline, closed or open.
void writeLongPolyline(DrawingText& drawing, Dice& dice, std::size_t index) {
  constexpr std::size_t kVertices = 100'000;
  constexpr std::size_t kVerticesForEachBulge = 10;
  const bool closed = index % 2 == 1;
  const bool bulges = index % 4 == 2;
  double x = dice.between(0.0, 500.0);
  double y = dice.between(0.0, 500.0);
  drawing.beginEntity("LWPOLYLINE", kLayers[index % kLayers.size()]).group(100, "AcDbPolyline");
  drawing.integer(90, kVertices).integer(70, closed ? 1 : 0);
  for (std::size_t i = 0; i < kVertices; ++i) {
    x = std::fmod(x + dice.measure(0.0, 3.0), 800.0);
    y = std::fmod(y + dice.measure(0.0, 3.0), 800.0);
    drawing.number(10, x).number(20, y);
    if (bulges && i % kVerticesForEachBulge == 0) drawing.number(42, dice.measure(-1.0, 1.0));
  }
}

}  // namespace

void writeHeader(DrawingText& drawing) {
  drawing.beginSection("HEADER");
  drawing.group(9, "$ACADVER").group(1, "AC1015");
  drawing.group(9, "$DWGCODEPAGE").group(3, "ANSI_1252");
  drawing.group(9, "$EXTMIN").point(10, 0.0, 0.0);
  drawing.group(9, "$EXTMAX").point(10, 800.0, 800.0);
  drawing.group(9, "$LTSCALE").number(40, 1.0);
  drawing.group(9, "$FILLMODE").integer(70, 1);
  drawing.group(9, "$ANGDIR").integer(70, 0);
  drawing.endSection();
}

void writeTables(DrawingText& drawing) {
  drawing.beginSection("TABLES").beginTable("LTYPE", kLineTypes.size());
  for (const LineType& type : kLineTypes) writeLineType(drawing, type);
  drawing.endTable().beginTable("LAYER", kLayers.size());
  for (std::size_t i = 0; i < kLayers.size(); ++i) {
    drawing.group(0, "LAYER").group(100, "AcDbLayerTableRecord").group(2, kLayers[i]);
    drawing.integer(70, 0).integer(62, static_cast<std::int64_t>(i % 7 + 1));
    drawing.group(6, kLineTypes[i % kLineTypes.size()].name).integer(370, -3);
  }
  drawing.endTable().beginTable("STYLE", 1);
  drawing.group(0, "STYLE").group(100, "AcDbTextStyleTableRecord").group(2, "STANDARD");
  drawing.integer(70, 0).number(40, 0.0).number(41, 1.0).number(50, 0.0).integer(71, 0);
  drawing.number(42, 2.5).group(3, "txt").endTable().endSection();
}

void writeEnd(DrawingText& drawing) {
  drawing.beginSection("OBJECTS").group(0, "DICTIONARY").group(5, "C").endSection().finish();
}

void makeLines(DrawingText& drawing, std::size_t bytes) {
  Dice dice(1);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS").endSection().beginSection("ENTITIES");
  while (drawing.size() < bytes) {
    drawing.beginEntity("LINE", kLayers[dice.below(kLayers.size())]).group(100, "AcDbLine");
    drawing.point(10, dice.measure(0.0, 800.0), dice.measure(0.0, 800.0));
    drawing.point(11, dice.measure(0.0, 800.0), dice.measure(0.0, 800.0));
  }
  drawing.endSection();
  writeEnd(drawing);
}

void makePolylines(DrawingText& drawing, std::size_t bytes) {
  Dice dice(3);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS").endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; drawing.size() < bytes; ++i) writeLongPolyline(drawing, dice, i);
  drawing.endSection();
  writeEnd(drawing);
}

}  // namespace quillon::bench

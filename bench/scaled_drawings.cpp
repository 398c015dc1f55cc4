#include "scaled_drawings.h"

#include <string>

#include "dice.h"
#include "drawings.h"

namespace quillon::bench {
namespace {

/// A line on the given layer.
void writeLine(DrawingText& drawing, Dice& dice, std::string_view layer) {
  drawing.beginEntity("LINE", layer).group(100, "AcDbLine");
  drawing.point(10, dice.measure(0.0, 800.0), dice.measure(0.0, 800.0));
  drawing.point(11, dice.measure(0.0, 800.0), dice.measure(0.0, 800.0));
}

void writeInsert(DrawingText& drawing, std::string_view block, double scale = 1.0) {
  drawing.beginEntity("INSERT", "0").group(2, block).point(10, 5.0, 5.0);
  drawing.number(41, scale).number(42, scale);
}

std::string numbered(std::string_view name, std::size_t number) {
  return std::string(name) + "_" + std::to_string(number);
}

void beginEntities(DrawingText& drawing) {
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("ENTITIES");
}

void finish(DrawingText& drawing) {
  drawing.endSection();
  writeEnd(drawing);
}

void makeEntities(DrawingText& drawing, std::size_t count) {
  Dice dice(4);
  beginEntities(drawing);
  for (std::size_t i = 0; i < count; ++i) writeLine(drawing, dice, "0");
  finish(drawing);
}

void makeLayers(DrawingText& drawing, std::size_t count) {
  Dice dice(5);
  writeHeader(drawing);
  drawing.beginSection("TABLES").beginTable("LAYER", count);
  for (std::size_t i = 0; i < count; ++i) {
    drawing.group(0, "LAYER").group(2, numbered("Layer", i)).integer(70, 0).integer(62, 7);
    drawing.group(6, "CONTINUOUS").integer(370, -3);
  }
  drawing.endTable().endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < count; ++i) writeLine(drawing, dice, numbered("Layer", i));
  finish(drawing);
}

void makeLineTypes(DrawingText& drawing, std::size_t count) {
  Dice dice(6);
  writeHeader(drawing);
  drawing.beginSection("TABLES").beginTable("LTYPE", count);
  for (std::size_t i = 0; i < count; ++i) {
    drawing.group(0, "LTYPE").group(2, numbered("Dashes", i)).integer(70, 0).group(3, "- -");
    drawing.integer(72, 65).integer(73, 2).number(40, 90.0).number(49, 60.0).number(49, -30.0);
  }
  drawing.endTable().endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < count; ++i) {
    writeLine(drawing, dice, "0");
    drawing.group(6, numbered("Dashes", i));
  }
  finish(drawing);
}

void writeBlock(DrawingText& drawing, Dice& dice, std::string_view name, std::string_view inner) {
  drawing.beginEntity("BLOCK", "0").group(2, name).integer(70, 0).point(10, 0.0, 0.0);
  writeLine(drawing, dice, "0");
  if (!inner.empty()) writeInsert(drawing, inner);
  drawing.beginEntity("ENDBLK", "0");
}

void makeBlocks(DrawingText& drawing, std::size_t count) {
  Dice dice(7);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS");
  for (std::size_t i = 0; i < count; ++i) writeBlock(drawing, dice, numbered("Block", i), "");
  drawing.endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < count; ++i) writeInsert(drawing, numbered("Block", i));
  finish(drawing);
}

/// Each block contains the previous one; the outermost is inserted often, so that its time is
/// measurable.
void makeNesting(DrawingText& drawing, std::size_t depth) {
  constexpr std::size_t kInsertions = 1000;
  Dice dice(8);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS");
  for (std::size_t i = 0; i < depth; ++i) {
    writeBlock(drawing, dice, numbered("Level", i), i == 0 ? "" : numbered("Level", i - 1));
  }
  drawing.endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < kInsertions; ++i) writeInsert(drawing, numbered("Level", depth - 1));
  finish(drawing);
}

/// One block in many sizes, each of which becomes a library part.
void makeParts(DrawingText& drawing, std::size_t count) {
  Dice dice(9);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS");
  writeBlock(drawing, dice, "SCREW", "");
  drawing.endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < count; ++i) {
    writeInsert(drawing, "Screw", 1.0 + static_cast<double>(i) / 1024.0);
  }
  finish(drawing);
}

void setParts(convert::ConversionJob& job) {
  job.blocks = convert::kUsedBlocksAsParts;
  job.drawingName = "scaled";
}

template <bool closed>
void makeVertices(DrawingText& drawing, std::size_t count) {
  Dice dice(10);
  beginEntities(drawing);
  drawing.beginEntity("LWPOLYLINE", "0").group(100, "AcDbPolyline");
  drawing.integer(90, static_cast<std::int64_t>(count)).integer(70, closed ? 1 : 0);
  for (std::size_t i = 0; i < count; ++i) {
    drawing.number(10, dice.measure(0.0, 800.0)).number(20, dice.measure(0.0, 800.0));
  }
  finish(drawing);
}

void writeText(DrawingText& drawing, std::string_view content) {
  beginEntities(drawing);
  drawing.beginEntity("TEXT", "0").group(100, "AcDbText").point(10, 1.0, 1.0).number(40, 2.5);
  drawing.group(1, content);
  finish(drawing);
}

void makeLongText(DrawingText& drawing, std::size_t characters) {
  constexpr std::string_view kPiece = "Bolt %%c12 isn't M12; ";
  std::string content;
  while (content.size() < characters) content += kPiece;
  writeText(drawing, content);
}

/// The format codes are all different.
void makeFormatCodes(DrawingText& drawing, std::size_t count) {
  std::string content;
  for (std::size_t i = 0; i < count; ++i) content += "\\H" + std::to_string(i) + ";x";
  writeText(drawing, content);
}

void setDashes(convert::ConversionJob& job) { job.dotted = true; }

constexpr Series kSeries[] = {
    {"file size", "byte", 20'000'000, makeMixed},
    {"entities", "entity", 100'000, makeEntities},
    {"layers", "layer", 80'000, makeLayers},
    {"line types", "line type", 80'000, makeLineTypes, setDashes},
    {"blocks", "block", 80'000, makeBlocks},
    {"library parts", "part", 25'000, makeParts, setParts},
    {"nesting", "level", 100, makeNesting},
    {"open polyline", "vertex", 200'000, makeVertices<false>},
    {"closed polyline", "vertex", 200'000, makeVertices<true>},
    {"long text", "character", 4'000'000, makeLongText},
    {"format codes", "code", 4'000, makeFormatCodes},
};

}  // namespace

std::span<const Series> allSeries() { return kSeries; }

}  // namespace quillon::bench

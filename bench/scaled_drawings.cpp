#include "scaled_drawings.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "dice.h"
#include "drawings.h"
#include "geometry/point.h"

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

void setExact(convert::ConversionJob& job) {
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.unit = base::Unit::Mm;
}

/// The lower left corner of a cell, ten wide, in a square of so many cells.
geometry::Point cellAt(std::size_t index, std::size_t count) {
  const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
  constexpr double kCell = 10.0;
  return {kCell * static_cast<double>(index % columns),
          kCell * static_cast<double>(index / columns)};
}

void makeEqualEnds(DrawingText& drawing, std::size_t count) { makeEnds(drawing, count, 0.0); }

/// A square loop of a HATCH.
void writeLoop(DrawingText& drawing, geometry::Point low, double size) {
  drawing.integer(92, 2).integer(72, 0).integer(73, 1).integer(93, 4);
  drawing.number(10, low.x).number(20, low.y).number(10, low.x + size).number(20, low.y);
  drawing.number(10, low.x + size).number(20, low.y + size);
  drawing.number(10, low.x).number(20, low.y + size).integer(97, 0);
}

DrawingText& beginHatch(DrawingText& drawing, std::string_view pattern, std::size_t loops) {
  drawing.beginEntity("HATCH", "0").group(100, "AcDbHatch").point(10, 0.0, 0.0);
  drawing.number(210, 0.0).number(220, 0.0).number(230, 1.0).group(2, pattern);
  drawing.integer(70, pattern == "SOLID" ? 1 : 0).integer(71, 0);
  return drawing.integer(91, static_cast<std::int64_t>(loops));
}

/// One filled area with square holes.
void makeHoles(DrawingText& drawing, std::size_t count) {
  beginEntities(drawing);
  beginHatch(drawing, "SOLID", count + 1);
  const geometry::Point last = cellAt(count, count);
  writeLoop(drawing, {-10.0, -10.0}, last.y + 40.0);
  for (std::size_t i = 0; i < count; ++i) {
    const geometry::Point cell = cellAt(i, count);
    writeLoop(drawing, {cell.x + 2.0, cell.y + 2.0}, 5.0);
  }
  drawing.integer(75, 0).integer(76, 1).integer(98, 0);
  finish(drawing);
}

/// One filled area with holes above each other.
void makeHoleColumn(DrawingText& drawing, std::size_t count) {
  beginEntities(drawing);
  beginHatch(drawing, "SOLID", count + 1);
  writeLoop(drawing, {-10.0, -10.0}, static_cast<double>(count) + 20.0);
  for (std::size_t i = 0; i < count; ++i) {
    writeLoop(drawing, {0.0, static_cast<double>(i)}, 0.5);
  }
  drawing.integer(75, 0).integer(76, 1).integer(98, 0);
  finish(drawing);
}

/// Squares, each hatched with lines of its own.
void makeHatches(DrawingText& drawing, std::size_t count) {
  beginEntities(drawing);
  for (std::size_t i = 0; i < count; ++i) {
    beginHatch(drawing, "ANSI31", 1);
    writeLoop(drawing, cellAt(i, count), 8.0);
    drawing.integer(75, 0).integer(76, 1).number(52, 0.0).number(41, 1.0).integer(77, 0);
    drawing.integer(78, 1).number(53, 45.0).number(43, 0.0).number(44, 0.0);
    drawing.number(45, -0.7).number(46, 0.7).integer(79, 0).integer(98, 0);
  }
  finish(drawing);
}

// Definitions are few enough for their tables to stay in the processor's caches, as in any drawing
// that was not made for this. Far beyond, each look-up waits for memory, and the longer the larger
// the tables are, although the steps are still as many for each of them.
constexpr Series kSeries[] = {
    {"file size", "byte", 20'000'000, makeMixed},
    {"entities", "entity", 100'000, makeEntities},
    {"layers", "layer", 2'500, makeLayers},
    {"line types", "line type", 2'500, makeLineTypes, setDashes},
    {"blocks", "block", 2'500, makeBlocks},
    {"library parts", "part", 25'000, makeParts, setParts},
    {"nesting", "level", 100, makeNesting},
    {"open polyline", "vertex", 200'000, makeVertices<false>},
    {"closed polyline", "vertex", 200'000, makeVertices<true>},
    {"long text", "character", 4'000'000, makeLongText},
    {"format codes", "code", 4'000, makeFormatCodes},
    {"ends", "end", 120'000, makeEqualEnds, setExact, Series::kSorted},
    {"holes", "hole", 4'000, makeHoles, setExact, Series::kSorted},
    {"column of holes", "hole", 500, makeHoleColumn, setExact, Series::kSorted},
    {"hatches", "hatch", 4'000, makeHatches, setExact, Series::kSorted},
};

}  // namespace

std::span<const Series> allSeries() { return kSeries; }

void makeEnds(DrawingText& drawing, std::size_t count, double off) {
  Dice dice(11);
  std::vector<std::size_t> sides(count / 2);
  for (std::size_t i = 0; i < sides.size(); ++i) {
    sides[i] = i;
    std::swap(sides[i], sides[dice.below(i + 1)]);
  }
  const geometry::Point corners[] = {{1.0, 1.0}, {9.0, 2.0}, {3.0, 8.0}};
  beginEntities(drawing);
  for (const std::size_t side : sides) {
    const geometry::Point cell = cellAt(side / 3, count / 6 + 1);
    const geometry::Point from = corners[side % 3];
    const geometry::Point to = corners[(side + 1) % 3];
    drawing.beginEntity("LINE", "0").group(100, "AcDbLine");
    const auto shift = [&] { return off > 0.0 ? dice.between(-off, off) : 0.0; };
    for (const auto& [code, at] : {std::pair(10, from), std::pair(11, to)}) {
      const double x = cell.x + at.x + shift();
      drawing.point(code, x, cell.y + at.y + shift());
    }
  }
  finish(drawing);
}

}  // namespace quillon::bench

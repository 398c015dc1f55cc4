#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "dxf/polyline_values.h"
#include "dxf/polyline_vertices.h"
#include "dxf/section_walker.h"
#include "dxf/spline_points.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::joinLines;
using testing::OpenFile;
using testing::ReadDrawing;
using testing::readFault;

/// A drawing with something in every section.
DxfBuilder fullDrawing() {
  DxfBuilder dxf;
  dxf.header("$ACADVER", 1, "AC1015").header("$LTSCALE", 40, "2.5").header("$ANGDIR", 70, "1");
  dxf.header("$FILLMODE", 70, "0").header("$PDSIZE", 40, "0.3");
  dxf.dashes("Dashed", "0.75", {"0.5", "-0.25"}).lineType("Continuous", {{70, "0"}, {73, "0"}});
  dxf.layer("Walls", "Dashed").layer("Gr\xFCn");
  dxf.style("Standard", {{40, "0"}, {41, "1.0"}, {71, "0"}, {3, "txt"}});
  dxf.beginBlock("Door", "1", "2").entity("LINE", {{8, "Walls"}, {10, "1"}, {20, "2"}});
  dxf.entity("LEADER", {{8, "0"}, {10, "5"}, {20, "6"}, {10, "7"}, {20, "8"}}).endBlock();
  dxf.beginBlock("Empty").endBlock();
  dxf.entity("TEXT", {{8, "gr\xFCn"},
                      {1,
                       "Stra\xDF"
                       "e  1"},
                      {40, "2.5"}});
  dxf.entity(
      "LWPOLYLINE",
      {{8, "0"}, {70, "1"}, {43, "0.2"}, {10, "1"}, {20, "2"}, {42, "0.5"}, {10, "3"}, {20, "4"}});
  dxf.entity("SPLINE", {{8, "0"}, {40, "0"}, {41, "1"}, {10, "1"}, {20, "2"}});
  dxf.entity("INSERT", {{2, "door"}, {8, "walls"}, {50, "90"}}).entity("SEQEND", {});
  return dxf;
}

void describeEntity(std::ostream& out, ReadDrawing& read, const DxfEntity& entity) {
  out << entityName(entity.kind) << '/' << entity.sideIndex;
  for (std::size_t i = 0; i < kMaxSlots; ++i) out << '|' << entity.value(i);
  if (entity.kind == EntityKind::LwPolyline || entity.kind == EntityKind::Leader) {
    PolyVertexWalk walk(read.reader.groups(entity), lwPolylineOf(entity).width);
    for (PolyVertex v; walk.next(v);) {
      out << "\n  " << v.x << ' ' << v.y << ' ' << v.startWidth << ' ' << v.endWidth << ' '
          << v.bulge;
    }
  }
  if (entity.kind == EntityKind::Spline) {
    for (const SplinePoint& point : readControlPoints(read.reader.groups(entity)))
      out << "\n  " << point.x << ' ' << point.y;
  }
  out << '\n';
}

/// Everything that was read from a text or an open file, as text.
template <typename Source>
std::string describe(const Source& source) {
  ReadDrawing read(source);
  const Drawing& drawing = read.drawing;
  std::ostringstream out;
  out << drawing.angDir << ' ' << drawing.fillMode << ' ' << drawing.ltScale << ' '
      << drawing.pointSize << '\n';
  for (const LineTypeRec& record : drawing.lineTypes) {
    out << record.name << '|' << record.totalLength << '|' << record.dashes << '\n';
  }
  for (const LayerRec& record : drawing.layers) {
    out << record.name << '|' << record.colour << '|' << record.lineType << '\n';
  }
  for (std::size_t i = 0; i < drawing.blocks.size(); ++i) {
    const BlockRec& block = drawing.blocks[i];
    out << block.name << '|' << block.baseX << '|' << block.baseY << '\n';
    for (const DxfEntity& item : read.blockEntities(i)) describeEntity(out, read, item);
  }
  for (const DxfEntity& entity : read.entities()) describeEntity(out, read, entity);
  return out.str();
}

TEST(ReadDxf, KeepsWhatEverySectionHolds) {
  EXPECT_EQ(describe(fullDrawing().text()),
            "1 0 2.5 0.3\n"
            "DASHED|0.75|0.5;-0.25;\n"
            "CONTINUOUS||0;\n"
            "WALLS|7|Dashed\n"
            "GR\xDCN|7|CONTINUOUS\n"
            "DOOR|1|2\n"
            "LINE/0|1|2|||WALLS|Dashed||||||\n"
            "LEADER/1|||0|||||||||\n"
            "  5 6   \n"
            "  7 8   \n"
            "EMPTY|0|0\n"
            "TEXT/0|||2.5||Stra\xDF"
            "e  1|GR\xDCN|CONTINUOUS|||||\n"
            "LWPOLYLINE/2|0.2|1|0|||||||||\n"
            "  1 2 0.2 0.2 0.5\n"
            "  3 4 0.2 0.2 \n"
            "  1 2  0.2 \n"
            "SPLINE/1|0|||||||||||\n"
            "  1 2\n"
            "INSERT/0|DOOR|||||90|WALLS|Dashed||||\n"
            "SEQEND/0||||||||||||\n");
}

TEST(ReadDxf, ReadsTheSameFromEveryLineEndConvention) {
  const DxfBuilder dxf = fullDrawing();
  const std::string expected = describe(dxf.text("\n"));
  EXPECT_EQ(describe(dxf.text("\r\n")), expected);
  EXPECT_EQ(describe(dxf.text("\r")), expected);
  EXPECT_EQ(describe(dxf.text("\n\r")), expected);
  // A stray line-end character of the other kind in every line.
  EXPECT_EQ(describe("\n" + dxf.text("\r\r\n")), expected);
  EXPECT_EQ(describe("\r" + dxf.text("\n\n\r")), expected);
  std::string without = dxf.text("\r\n");
  without.resize(without.size() - 2);
  EXPECT_EQ(describe(without), expected);
}

TEST(ReadDxf, ReadsTheSameFromAFileAsFromATextInMemory) {
  // Every table and some blocks exceed a window.
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "3");
  for (int i = 0; i < 8000; ++i) {
    const std::string name = "name " + std::to_string(i);
    dxf.dashes(name, "1", {"0.5", "-.5"})
        .layer(name, name)
        .style(name, {{40, "1"}, {41, "2"}, {70, "0"}});
    if (i % 3999 == 0) {
      if (i > 0) dxf.endBlock();
      dxf.beginBlock(name, "1", "2");
    }
    dxf.entity("LWPOLYLINE", {{8, name}, {10, "1"}, {20, "2"}, {10, "3"}, {20, "4"}});
  }
  dxf.endBlock();
  for (int i = 0; i < 8000; ++i) {
    const std::string name = "name " + std::to_string(i);
    dxf.entity("INSERT", {{2, name}, {8, name}})
        .entity("LEADER", {{10, "1"}, {20, "2"}, {3, name}});
  }
  for (const std::string_view lineEnd : {"\n", "\r\n"}) {
    const std::string text = dxf.text(lineEnd);
    const OpenFile file(text);
    const std::string found = describe(file.get());
    EXPECT_TRUE(found == describe(text));
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 1 + 2 * 8000 + 3 + 3 * 8000 + 3 * 8000);
  }
}

TEST(ReadDxf, LeavesEveryStoreEmptyForADrawingWithoutContent) {
  for (const std::string_view text : {"", "\n", "no drawing", "0\nEOF\n", "\r\n\r\n"}) {
    const ReadDrawing read(text);
    EXPECT_TRUE(read.drawing.layers.empty() && read.drawing.lineTypes.empty() &&
                read.drawing.blocks.empty() && read.entities().size() == 0)
        << text;
    EXPECT_FALSE(read.drawing.anySection) << text;
    EXPECT_EQ(read.linesRead, 0U) << text;
  }
}

/// A section of a drawing with minimal contents.
std::string section(std::string_view name) {
  std::string content;
  if (name == "HEADER") content = joinLines({"  9", "$LTSCALE", " 40", "2"});
  if (name == "TABLES") {
    content = joinLines({"  0", "TABLE", "  2", "LAYER", " 70", "1", "  0", "LAYER", "  2", "Walls",
                         " 70", "0", "  0", "ENDTAB"});
  }
  if (name == "BLOCKS") content = joinLines({"  0", "BLOCK", "  2", "Door", "  0", "ENDBLK"});
  if (name == "ENTITIES") content = joinLines({"  0", "LINE", "  8", "0"});
  return joinLines({"  0", "SECTION", "  2", name}) + content + joinLines({"  0", "ENDSEC"});
}

/// The sections of a drawing that were read: H, T, B, E.
std::string sectionsRead(std::initializer_list<std::string_view> sections) {
  std::string text;
  for (const std::string_view part : sections) text += section(part);
  const ReadDrawing read(text + joinLines({"  0", "EOF"}));
  std::string found;
  if (read.drawing.ltScale == 2.0) found += 'H';
  if (!read.drawing.layers.empty()) found += 'T';
  if (!read.drawing.blocks.empty()) found += 'B';
  if (read.entities().size() > 0) found += 'E';
  return found;
}

TEST(ReadDxf, DoesWithoutMissingSections) {
  EXPECT_EQ(sectionsRead({"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}), "HTBE");
  EXPECT_EQ(sectionsRead({"TABLES", "BLOCKS", "ENTITIES"}), "TBE");
  EXPECT_EQ(sectionsRead({"HEADER", "BLOCKS", "ENTITIES"}), "HBE");
  EXPECT_EQ(sectionsRead({"HEADER", "TABLES", "ENTITIES"}), "HTE");
  EXPECT_EQ(sectionsRead({"HEADER", "TABLES", "BLOCKS"}), "HTB");
  EXPECT_EQ(sectionsRead({"ENTITIES"}), "E");
  EXPECT_EQ(sectionsRead({"CLASSES", "ENTITIES", "THUMBNAILIMAGE"}), "E");
}

TEST(ReadDxf, LosesASectionBeforeTheOneSearchedFirst) {
  EXPECT_EQ(sectionsRead({"TABLES", "HEADER", "ENTITIES"}), "HE");
  EXPECT_EQ(sectionsRead({"ENTITIES", "HEADER", "TABLES", "BLOCKS"}), "HTB");
}

TEST(ReadDxf, FindsASectionBeforeAMissingOne) {
  // TABLES is missing after HEADER, so the search for BLOCKS restarts at the first line.
  EXPECT_EQ(sectionsRead({"BLOCKS", "HEADER", "ENTITIES"}), "HBE");
  EXPECT_EQ(sectionsRead({"ENTITIES", "TABLES"}), "TE");
}

TEST(ReadDxf, NeedsSectionNamesInUpperCaseExceptEntities) {
  for (const std::string_view name : {"HEADER", "TABLES", "BLOCKS", "ENTITIES"}) {
    std::string text =
        section("HEADER") + section("TABLES") + section("BLOCKS") + section("ENTITIES");
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(text.find(name));
    std::transform(start, start + static_cast<std::ptrdiff_t>(name.size()), start,
                   [](char c) { return static_cast<char>(c - 'A' + 'a'); });
    const ReadDrawing read(text + "  0\nEOF\n");
    EXPECT_EQ(read.drawing.ltScale == 2.0, name != "HEADER");
    EXPECT_EQ(read.drawing.layers.size(), name == "TABLES" ? 0U : 1U);
    EXPECT_EQ(read.drawing.blocks.size(), name == "BLOCKS" ? 0U : 1U);
    EXPECT_EQ(read.entities().size(), 1U);
  }
}

TEST(ReadDxf, TakesAnyLineEntitiesForTheStartOfTheEntities) {
  // Without BLOCKS the search restarts at the first line and finds a layer of that name.
  const std::string tables =
      joinLines({"0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2",
                 "Entities", "70", "0", "0", "ENDTAB", "0", "ENDSEC"});
  EXPECT_EQ(ReadDrawing(tables + section("ENTITIES")).entities().size(), 0U);
  EXPECT_EQ(ReadDrawing(tables + section("BLOCKS") + section("ENTITIES")).entities().size(), 1U);
}

TEST(ReadDxf, SaysWhetherItFoundASection) {
  for (const std::string_view name : {"HEADER", "TABLES", "BLOCKS", "ENTITIES"}) {
    EXPECT_TRUE(ReadDrawing(section(name)).drawing.anySection) << name;
  }
  EXPECT_TRUE(ReadDrawing("2\nentities\n0\nENDSEC\n").drawing.anySection);
  EXPECT_FALSE(ReadDrawing(section("CLASSES")).drawing.anySection);
}

std::string tablesOf(std::initializer_list<std::string_view> lines) {
  return joinLines({"0", "SECTION", "2", "TABLES"}) + joinLines(lines) +
         joinLines({"0", "ENDSEC", "0", "EOF"});
}

TEST(ReadDxf, SkipsTablesThatItDoesNotKnow) {
  const ReadDrawing read(tablesOf({"0",   "TABLE", "2", "VPORT",  "0",  "LAYER", "2", "x",
                                   "70",  "0",     "0", "ENDTAB", "0",  "TABLE", "2", "DIMSTYLE",
                                   "bad", "LAYER", "0", "ENDTAB", "0",  "TABLE", "2", "LAYER",
                                   "0",   "LAYER", "2", "Walls",  "70", "0",     "0", "ENDTAB"}));
  ASSERT_EQ(read.drawing.layers.size(), 1U);
  EXPECT_EQ(read.drawing.layers[0].name, "WALLS");
}

TEST(ReadDxf, KnowsTablesAndTheirMarkersInAnyCase) {
  const ReadDrawing read(
      tablesOf({"0", "table", "2", "layer", "0", "layer", "2", "Walls", "70", "0", "0", "ENDTAB",
                "0", "Table", "2", "Ltype", "0", "ltype", "2", "a",     "70", "0", "0", "ENDTAB"}));
  EXPECT_EQ(read.drawing.layers.size(), 1U);
  EXPECT_EQ(read.drawing.lineTypes.size(), 1U);
}

TEST(ReadDxf, EndsWithADamagedTableOfTextStylesThoughItKeepsNone) {
  const auto fault = readFault(tablesOf(
      {"0", "TABLE", "2", "STYLE", "0", "STYLE", "2", "A", "x", "0", "70", "0", "0", "ENDTAB"}));
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->fault, base::Fault::BadGroupCode);
  EXPECT_EQ(fault->subject, "x");
}

TEST(ReadDxf, NamesATableByTheLineAfterTheFirstTwo) {
  // The handle 2 comes before the name, so it becomes the table's name.
  const ReadDrawing handle(tablesOf(
      {"0", "TABLE", "5", "2", "2", "LAYER", "0", "LAYER", "2", "a", "70", "0", "0", "ENDTAB"}));
  EXPECT_TRUE(handle.drawing.layers.empty());
  // Without any "2" the first line is the name.
  const ReadDrawing nameless(
      tablesOf({"0", "TABLE", "LAYER", "0", "0", "LAYER", "70", "0", "3", "x", "0", "ENDTAB"}));
  EXPECT_EQ(nameless.drawing.layers.size(), 1U);
}

TEST(ReadDxf, ReadsSeveralTablesOfOneKind) {
  const ReadDrawing read(
      tablesOf({"0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "a", "70", "0", "0", "ENDTAB",
                "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "b", "70", "0", "0", "ENDTAB"}));
  ASSERT_EQ(read.drawing.layers.size(), 2U);
  EXPECT_EQ(read.drawing.layers[1].name, "B");
}

TEST(ReadDxf, PassesErrorsOfTablesOn) {
  const auto broken = readFault(
      tablesOf({"0", "TABLE", "2", "LTYPE", "0", "LTYPE", "2", "a", "4O", "1", "0", "ENDTAB"}));
  ASSERT_TRUE(broken.has_value());
  EXPECT_EQ(broken->fault, base::Fault::BadGroupCode);
  EXPECT_EQ(broken->subject, "4O");
  EXPECT_EQ(broken->line, 13U);
  const auto cut =
      readFault(joinLines({"2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "a"}));
  ASSERT_TRUE(cut.has_value());
  EXPECT_EQ(cut->fault, base::Fault::TextEndsTooEarly);
}

TEST(ReadDxf, NumbersTheLineOfAnErrorInAnyWindow) {
  const std::string table = joinLines({"0", "TABLE", "2", "VPORT", "0", "ENDTAB"});
  std::string tables = joinLines({"0", "SECTION", "2", "TABLES"});
  std::string blocks = joinLines({"0", "SECTION", "2", "BLOCKS"});
  for (int i = 0; i < 60'000; ++i) {
    tables += table;
    blocks += joinLines({"0", "BLOCK", "2", "a", "0", "ENDBLK"});
  }
  tables +=
      joinLines({"0", "TABLE", "2", "LTYPE", "0", "LTYPE", "2", "a", "4O", "1", "0", "ENDTAB"});
  blocks += joinLines({"0", "BLOCK", "2", "b", "0", "LINE", "4O", "1", "0", "ENDBLK"});
  for (const std::string& text : {tables, blocks}) {
    for (const std::string_view lineEnd : {"\n", "\r\n"}) {
      const OpenFile file(DxfBuilder::withLineEnds(text, lineEnd));
      const auto fault = readFault(file.get());
      ASSERT_TRUE(fault.has_value());
      const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find("4O"));
      EXPECT_EQ(fault->line, static_cast<std::uint64_t>(std::count(text.begin(), end, '\n')) + 1);
    }
  }
}

TEST(ReadDxf, RaisesAnErrorForATableCutOffBeforeItsName) {
  const auto cut = readFault("2\nTABLES\n0\nTABLE\n2\n");
  ASSERT_TRUE(cut.has_value());
  EXPECT_EQ(cut->fault, base::Fault::TextEndsTooEarly);
}

TEST(ReadDxf, EndsTablesAtTheEndOfTheFile) {
  for (const std::string_view tail : {"", "0\n", "0\nTABLE\n", "0\nTABLE\n2\nVPORT\n0\nLAYER\n"}) {
    EXPECT_EQ(readFault("0\nSECTION\n2\nTABLES\n" + std::string(tail)), std::nullopt) << tail;
  }
}

}  // namespace
}  // namespace quillon::dxf

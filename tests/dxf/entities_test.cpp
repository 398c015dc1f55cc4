#include "dxf/entities.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/entity_names.h"
#include "dxf/polyline_values.h"
#include "dxf/polyline_vertices.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"
#include "support/text_walk.h"
#include "support/timing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::entitiesOf;
using testing::joinLines;
using testing::leastSeconds;
using testing::LineList;
using testing::OpenFile;
using testing::ReadDrawing;
using Names = std::vector<std::string>;
using Indices = std::vector<std::uint64_t>;

std::string entitiesSection(LineList lines) {
  return joinLines({"  0", "SECTION", "  2", "ENTITIES"}) + joinLines(lines) +
         joinLines(
             {"  0", "ENDSEC", "  0", "SECTION", "  2", "OBJECTS", "  0", "ENDSEC", "  0", "EOF"});
}

Names entitiesOfText(const std::string& text) {
  ReadDrawing read(text);
  return entitiesOf(read);
}

Names entitiesOfLines(LineList lines) { return entitiesOfText(entitiesSection(lines)); }

TEST(Entities, ComeInFileOrder) {
  EXPECT_EQ(entitiesOfLines({"  0", "POLYLINE", "  8",    "a",    "  0", "VERTEX", "  8",
                             "b",   "  0",      "VERTEX", "  8",  "c",   "  0",    "SEQEND",
                             "  8", "d",        "  0",    "LINE", "  8", "e"}),
            (Names{"POLYLINE A", "VERTEX B", "VERTEX C", "SEQEND", "LINE E"}));
}

TEST(Entities, AreKnownByTheirTrimmedNames) {
  EXPECT_EQ(entitiesOfLines({"  0", "  LINE  ", "  8", "a", "0", "POINT", "8", "b"}),
            (Names{"LINE A", "POINT B"}));
  EXPECT_EQ(entitiesOfLines(
                {"  0", "line", "  8", "a", "  0", "Line", "  8", "b", "0", "\tLINE", "8", "c"}),
            Names{});
}

TEST(Entities, OfUnknownNamesAreSkippedAndCountedByName) {
  ReadDrawing read(
      entitiesSection({"  0", "HATCH", "  8", "a", " 91", "LINE", "  0", "RAY", "  8", "b",  //
                       "  0", "LINE", "  8", "c", "  0", "HATCH", "  8", "d"}));
  EXPECT_EQ(entitiesOf(read), Names{"LINE C"});
  EXPECT_EQ(read.drawing.unknownKinds, (UnknownKinds{{"HATCH", 2}, {"RAY", 1}}));
}

TEST(Entities, OfUnknownNamesMayHaveBrokenGroupCodes) {
  EXPECT_EQ(
      entitiesOfLines({"  0", "HATCH", "x", "a", "99999", "b", "", "c", "  0", "LINE", "  8", "d"}),
      Names{"LINE D"});
}

TEST(Entities, StartAtAnyCodeLineWhoseNumberIsZero) {
  for (const std::string_view code : {"0", "  0", "00", "0.0", "-0", "0x", "", "code", "1e-400"}) {
    EXPECT_EQ(entitiesOfLines({"999", "comment", code, "LINE", "8", "a"}), Names{"LINE A"})
        << '"' << code << '"';
  }
  for (const std::string_view code : {"1", "2", "-1", "0.1", "100"}) {
    EXPECT_EQ(entitiesOfLines({"999", "comment", code, "LINE", "8", "a"}), Names{}) << code;
  }
}

TEST(Entities, EndOnlyAtACodeLineThatIsExactlyZero) {
  EXPECT_EQ(entitiesOfLines({"0", "LINE", "8", "a", "00", "POINT", "0.0", "ARC", "8", "b", "0",
                             "ARC", "8", "c"}),
            (Names{"LINE A", "ARC C"}));
}

TEST(Entities, MayHaveAnyValueThatReadsZero) {
  EXPECT_EQ(entitiesOfLines({"0", "LINE", "8", "0", "10", "0", "20", "0", "0", "POINT", "8", "0"}),
            (Names{"LINE 0", "POINT 0"}));
}

TEST(Entities, WithABrokenGroupCodeAreDroppedAndTheNextIsRead) {
  for (const std::string_view broken : {"x", "", "99999", "1 0", "10\t", "-"}) {
    EXPECT_EQ(
        entitiesOfLines({"0", "LINE", "8", "a", broken, "1", "20", "2", "0", "POINT", "8", "b"}),
        Names{"POINT B"})
        << '"' << broken << '"';
  }
}

TEST(Entities, ThatAreDroppedAreCountedWithTheLineOfTheFirstDamage) {
  const auto dropped = [](const std::string& text) { return ReadDrawing(text).drawing.dropped; };
  // The section starts with line 5.
  EXPECT_EQ(dropped(entitiesSection({"0", "LINE", "8", "a", "0", "POINT", "8", "b"})),
            (DroppedEntities{0, 0}));
  EXPECT_EQ(dropped(entitiesSection({"0", "LINE", "8", "a", "x", "1", "0", "POINT", "8", "b",  //
                                     "0", "ARC", "-", "1", "0", "HATCH", "x", "1"})),
            (DroppedEntities{2, 9}));
  EXPECT_EQ(dropped(entitiesSection({"0", "LINE", "8", "a", "", "1"})), (DroppedEntities{1, 9}));
  // The section ends where a value should be.
  EXPECT_EQ(dropped(entitiesSection({"0", "LINE", "8"})), (DroppedEntities{1, 9}));
}

TEST(Entities, ThatAreCutOffCountAsDroppedInTheLastLine) {
  const std::string start = joinLines({"2", "ENTITIES", "0", "ARC", "8", "a", "0", "LINE"});
  const auto dropped = [&start](std::string_view tail) {
    return ReadDrawing(start + std::string(tail)).drawing.dropped;
  };
  EXPECT_EQ(dropped(""), (DroppedEntities{1, 8}));
  EXPECT_EQ(dropped("8"), (DroppedEntities{1, 9}));
  EXPECT_EQ(dropped("8\nb\n"), (DroppedEntities{1, 10}));
  EXPECT_EQ(dropped("8\nb\n10\n0"), (DroppedEntities{1, 12}));
  // Without a name it is not an entity.
  EXPECT_EQ(dropped("8\nb\n0\n"), (DroppedEntities{0, 0}));
}

TEST(Entities, BeforeAnErrorStay) {
  EXPECT_EQ(
      entitiesOfLines({"0",    "ARC", "8", "a", "0",      "LINE", "8", "b", "x",     "y", "0",
                       "TEXT", "x",   "y", "0", "CIRCLE", "8",    "c", "0", "POINT", "x", "y"}),
      (Names{"ARC A", "CIRCLE C"}));
}

TEST(Entities, AreFoundLineByLineAfterAnError) {
  // A surplus line swaps codes and values from there on.
  EXPECT_EQ(entitiesOfLines({"0", "LINE", "8", "a", "stray", "10", "1", "0", "POINT", "8", "b", "0",
                             "ARC", "8", "c"}),
            (Names{"POINT B", "ARC C"}));
}

TEST(Entities, AreFoundOnlyAfterAPlainZeroAfterAnError) {
  EXPECT_EQ(entitiesOfLines({"0", "LINE", "x", "0", "62", "0", "HATCH", "00", "TEXT", "5", "POINT",
                             "0", "line", "0", "0", "ARC", "8", "b"}),
            Names{"ARC B"});
}

TEST(Entities, InsideABrokenOneAreFound) {
  // The value of one group and the next code line look like the start of an entity.
  EXPECT_EQ(entitiesOfLines({"0", "LINE", "8", "0", "POINT", "8", "a", "0", "ARC", "8", "b"}),
            (Names{"POINT A", "ARC B"}));
}

TEST(Entities, CutOffAtTheEndOfTheFileAreDropped) {
  const std::string start = joinLines({"2", "ENTITIES", "0", "ARC", "8", "a", "0", "LINE"});
  for (const std::string_view tail :
       {"", "8\n", "8", "8\nb", "8\nb\n", "8\nb\n10\n", "8\nb\n10\n0\n"}) {
    EXPECT_EQ(entitiesOfText(start + std::string(tail)), Names{"ARC A"}) << tail;
  }
  EXPECT_EQ(entitiesOfText(start + "8\nb\n0\n"), (Names{"ARC A", "LINE B"}));
  EXPECT_EQ(entitiesOfText(start + "8\nb\n0\nEOF\n"), (Names{"ARC A", "LINE B"}));
}

TEST(Entities, OfASectionCutOffAnywhereAreThoseThatAreComplete) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "1.5"}, {20, "0"}});
  dxf.entity("LWPOLYLINE", {{8, "0"}, {10, "1"}, {20, "2"}, {10, "3"}, {20, "4"}});
  dxf.entity("HATCH", {{8, "0"}, {70, "0"}}).entity("SPLINE", {{8, "0"}, {40, "0"}});
  dxf.entity("SEQEND", {}).entity("POINT", {{8, "0"}});
  for (const std::string_view lineEnd : {"\n", "\r\n"}) {
    const std::string text = dxf.text(lineEnd);
    const std::string end(lineEnd);
    const auto behind = [&text](const std::string& part) { return text.find(part) + part.size(); };
    // Each entity is complete with the "0" line after it.
    std::vector<std::size_t> ends;
    for (const std::string_view next : {"LWPOLYLINE", "HATCH", "SEQEND", "POINT", "ENDSEC"}) {
      ends.push_back(text.find("  0" + end + std::string(next)) + 3);
    }
    for (std::size_t cut = behind("ENTITIES" + end); cut < ends.back(); ++cut) {
      const auto isComplete = [cut](std::size_t place) { return place <= cut; };
      const auto complete = std::count_if(ends.begin(), ends.end(), isComplete);
      const ReadDrawing read(text.substr(0, cut));
      ASSERT_EQ(read.entities().size(), static_cast<std::size_t>(complete)) << cut;
    }
  }
}

TEST(Entities, OfASectionWithASingleLineAreEmpty) {
  for (const std::string_view tail : {"0", "0\n", "ENDSEC\n", "ENDSEC\n0\nEOF\n", "x\n", ""}) {
    EXPECT_EQ(entitiesOfText("0\nSECTION\n2\nENTITIES\n" + std::string(tail)), Names{}) << tail;
  }
}

TEST(Entities, AreNotReadTwiceWhenALineIsLeftOverAtTheEnd) {
  EXPECT_EQ(entitiesOfText(
                joinLines({"2", "ENTITIES", "0", "ARC", "8", "a", "0", "LINE", "8", "0", "0"})),
            (Names{"ARC A", "LINE 0"}));
  EXPECT_EQ(entitiesOfText(joinLines({"2", "ENTITIES", "0", "ARC", "8", "a", "0", "HATCH", "8", "b",
                                      "ENDSEC", "0", "LINE", "8", "c", "0", "EOF"})),
            Names{"ARC A"});
}

TEST(Entities, EndAtTheFirstLineEndsecWhateverItMeans) {
  const LineList lines = {"0", "ARC", "8",      "a", "0",    "TEXT", "8",
                          "b", "1",   "ENDSEC", "0", "LINE", "8",    "c"};
  EXPECT_EQ(entitiesOfLines(lines), Names{"ARC A"});
  EXPECT_EQ(entitiesOfLines(
                {"0", "ARC", "8", "a", "0", "HATCH", "1", "  ENDSEC ", "0", "LINE", "8", "c"}),
            Names{"ARC A"});
  EXPECT_EQ(entitiesOfLines({"0", "ARC", "8", "a", "0", "TEXT", "8", "b", "ENDSEC", "1", "0",
                             "LINE", "8", "c"}),
            Names{"ARC A"});
}

TEST(Entities, DoNotEndAtEndsecInLowerCase) {
  EXPECT_EQ(entitiesOfLines({"0", "ARC", "8", "a", "0", "endsec", "0", "LINE", "8", "c"}),
            (Names{"ARC A", "LINE C"}));
}

TEST(Entities, AreFollowedByOneEnd) {
  using Counts = std::vector<std::size_t>;
  DxfBuilder dxf;
  EXPECT_EQ(ReadDrawing(dxf.text()).countAtEnd(), Counts{0});
  dxf.entity("LINE", {{8, "0"}}).entity("POINT", {{8, "0"}});
  EXPECT_EQ(ReadDrawing(dxf.text()).countAtEnd(), Counts{2});
  EXPECT_EQ(ReadDrawing("2\nENTITIES\n0\nLINE\n8\na\n0\nPOINT\n8\n").countAtEnd(), Counts{1});
}

/// Indices of the side records of the entities, 0 for those without one.
Indices sideIndices(const std::vector<DxfEntity>& items) {
  Indices indices;
  for (const DxfEntity& item : items) indices.push_back(item.sideIndex);
  return indices;
}

TEST(SideIndices, StartAtOneAndCountPolylinesAndSplinesApart) {
  DxfBuilder dxf;
  for (const std::string_view kind :
       {"LINE", "LWPOLYLINE", "SPLINE", "LEADER", "POLYLINE", "SPLINE"}) {
    dxf.entity(kind, {{8, "0"}});
  }
  ReadDrawing read(dxf.text());
  EXPECT_EQ(sideIndices(read.entities()), (Indices{0, 1, 1, 2, 0, 2}));
}

TEST(SideIndices, ContinueAcrossBlocksAndEntities) {
  DxfBuilder dxf;
  dxf.entity("LWPOLYLINE", {{8, "0"}}).entity("SPLINE", {{8, "0"}});
  dxf.beginBlock("A").entity("LEADER", {{8, "0"}}).entity("SPLINE", {{8, "0"}}).endBlock();
  dxf.beginBlock("B").entity("LWPOLYLINE", {{8, "0"}}).endBlock();
  ReadDrawing read(dxf.text());
  EXPECT_EQ(sideIndices(read.blockEntities(0)), (Indices{1, 1}));
  EXPECT_EQ(sideIndices(read.blockEntities(1)), (Indices{2}));
  EXPECT_EQ(sideIndices(read.entities()), (Indices{3, 2}));
}

TEST(SideIndices, AreNotTakenByDroppedEntities) {
  ReadDrawing read(entitiesSection({"0",  "LWPOLYLINE", "8",  "a", "x", "1",          "0", "SPLINE",
                                    "11", "1",          "12", "2", "0", "LEADER",     "8", "b",
                                    "0",  "SPLINE",     "8",  "c", "0", "LWPOLYLINE", "8"}));
  EXPECT_EQ(entitiesOf(read), (Names{"LEADER B", "SPLINE C"}));
  EXPECT_EQ(sideIndices(read.entities()), (Indices{1, 1}));
}

TEST(Entities, ShowTheirNumberWhileTheyAreRead) {
  DxfBuilder dxf;
  for (int i = 0; i < 1000; ++i) dxf.entity("POINT", {{8, "0"}});
  const ReadDrawing read(dxf.text());
  std::uint64_t last = 0;
  std::size_t shown = 0;
  for (const auto& [phase, count] : read.monitor.statuses) {
    if (phase != base::ReadPhase::Entities || count == 0) continue;
    EXPECT_GT(count, last);
    last = count;
    ++shown;
  }
  EXPECT_EQ(last, 1000U);
  EXPECT_GE(shown, 3U);
}

TEST(Entities, ThatAreBrokenCostNoMoreThanTheirLines) {
  const auto secondsFor = [](std::size_t pairs) {
    std::string text = joinLines({"2", "ENTITIES"});
    for (std::size_t i = 0; i < pairs; ++i) text += "0\nLINE\n8\na\nx\n1\n0\nPOINT\n8\nb\n";
    text += "0\nENDSEC\n";
    return leastSeconds([&] { EXPECT_EQ(ReadDrawing(text).entities().size(), pairs); });
  };
  const double few = secondsFor(2'000);
  const double many = secondsFor(40'000);
  // A factor of 20 when the cost is linear, 400 when quadratic.
  EXPECT_LT(many / few, 150.0) << few << " s, " << many << " s";
}

TEST(Entities, MayBeLargerThanAnyWindow) {
  constexpr std::size_t kVertices = 150'000;
  std::string text = "2\nENTITIES\n0\nPOINT\n8\na\n0\nLWPOLYLINE\n8\nb\n";
  for (std::size_t i = 0; i < kVertices; ++i) text += "10\n" + std::to_string(i) + "\n20\n0.5\n";
  text += "43\n7\n0\nHATCH\n8\nc\n1\n" + std::string(std::size_t{1} << 20, 'x') +
          "\n0\nLEADER\n8\nd\n0\nENDSEC\n";
  const OpenFile file(text);
  ReadDrawing read(file.get());
  EXPECT_EQ(entitiesOf(read), (Names{"POINT A", "LWPOLYLINE B", "LEADER D"}));
  EXPECT_EQ(sideIndices(read.entities()), (Indices{0, 1, 2}));
  EXPECT_EQ(read.drawing.unknownKinds, (UnknownKinds{{"HATCH", 1}}));
  const std::string_view width = lwPolylineOf(read.entity(1)).width;
  EXPECT_EQ(width, "7");
  PolyVertexWalk vertices(read.reader.groups(read.entity(1)), width);
  PolyVertex vertex;
  for (std::size_t i = 0; i < kVertices; ++i) {
    ASSERT_TRUE(vertices.next(vertex));
    ASSERT_EQ(vertex.x, std::to_string(i));
  }
  EXPECT_FALSE(vertices.next(vertex));
}

TEST(Entities, LargerThanAnyWindowEndAtAZeroHoweverItIsWritten) {
  for (const std::string eol : {"\n", "\r\n"}) {
    std::string vertices;
    while (vertices.size() < 3 * TextSource::kWindow) {
      vertices += " 10" + eol + "1.0" + eol + " 20" + eol + "0" + eol;
    }
    for (const std::string start : {"0", "  0"}) {
      for (const std::string end : {"0", "  0", "0 ", "\t0"}) {
        const OpenFile file("2" + eol + "ENTITIES" + eol + start + eol + "LWPOLYLINE" + eol +
                            vertices + end + eol + "POINT" + eol + start + eol + "ENDSEC" + eol);
        const ReadDrawing read(file.get());
        const bool isEnd = end != "\t0";
        ASSERT_EQ(read.entities().size(), isEnd ? 2U : 0U) << start << '|' << end;
      }
    }
  }
}

TEST(Entities, LargerThanAnyWindowAreDroppedWhenTheyAreCutOff) {
  std::string text = "2\nENTITIES\n0\nPOINT\n8\na\n0\nLWPOLYLINE\n8\nb\n";
  while (text.size() < 4 * TextSource::kWindow) text += "10\n1\n20\n0\n";
  const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
  const OpenFile file(text);
  ReadDrawing read(file.get());
  EXPECT_EQ(entitiesOf(read), Names{"POINT A"});
  EXPECT_EQ(read.drawing.dropped, (DroppedEntities{1, lines}));
}

}  // namespace
}  // namespace quillon::dxf

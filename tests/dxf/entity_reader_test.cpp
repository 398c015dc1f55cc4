#include "dxf/entity_reader.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dxf/entity_values.h"
#include "dxf/entity_walk.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::Groups;
using testing::ReadDrawing;

/// The slots of a kind, as a group code each; L layer, T line type, N upper-cased name (group 2).
struct SlotRow {
  std::string_view kind;
  std::size_t slotCount;
  std::string_view slots;
};

constexpr SlotRow kSlotTable[] = {
    {"LINE", 8, "10 20 11 21 L T 230 220"},
    {"3DLINE", 8, "10 20 11 21 L T 230 220"},
    {"ARC", 9, "10 20 40 50 51 L T 230 220"},
    {"CIRCLE", 7, "10 20 40 L T 230 220"},
    {"ELLIPSE", 11, "10 20 11 21 40 41 42 L T 230 220"},
    {"VERTEX", 8, "10 20 40 42 L T 230 220"},
    {"POLYLINE", 7, "40 41 70 L T 230 220"},
    {"LWPOLYLINE", 6, "43 70 L T 230 220"},
    {"LEADER", 6, "43 70 L T 230 220"},
    {"SPLINE", 4, "L T 230 220"},
    {"TEXT", 9, "10 20 40 50 1 L T 230 220"},
    {"ATTDEF", 9, "10 20 40 50 1 L T 230 220"},
    {"ATTRIB", 9, "10 20 40 50 1 L T 230 220"},
    {"MTEXT", 9, "10 20 40 50 1 L T 230 220"},
    {"INSERT", 10, "N 10 20 41 42 50 L T 230 220"},
    {"DIMENSION", 7, "N 10 20 L T 230 220"},
    {"POINT", 6, "10 20 L T 230 220"},
    {"TRACE", 10, "10 20 11 21 12 22 13 23 L T"},
    {"SOLID", 12, "10 20 11 21 12 22 13 23 L T 230 220"},
    {"3DFACE", 12, "10 20 11 21 12 22 13 23 L T 230 220"},
    {"SHAPE", 2, "L T"},
    {"SEQEND", 0, ""},
};

std::string firstValueOf(int code) {
  switch (code) {
    case 1:
      return "Text a";
    case 2:
      return "Name a";
    case 6:
      return "Dash dot";
    case 8:
      return "Layer a";
    default:
      return std::to_string(code) + ".50";
  }
}

std::string expectedText(const std::string& slot) {
  if (slot == "L") return "LAYER A";
  if (slot == "T") return "DASH DOT";
  if (slot == "N") return "NAME A";
  return firstValueOf(std::stoi(slot));
}

/// A drawing with one entity that has every group code, most of them twice.
class EveryGroup {
 public:
  explicit EveryGroup(std::string_view kind) {
    // The spline reader rejects a group 12 after 10, 11 or 41, so 12 comes first, and once.
    add(12, firstValueOf(12));
    for (const int code : {2310, 1071, 1000, 310, 256, -1}) add(code, "far");
    for (int code = 255; code > 0; --code) {
      if (code != 12) add(code, firstValueOf(code));
    }
    for (int code = 1; code <= 255; ++code) {
      if (code != 12) add(code, "99.25");
    }
    builder_.entity(kind, groups_);
  }
  std::string text() const { return builder_.text(); }

 private:
  void add(int code, std::string value) {
    groups_.emplace_back(code, values_.emplace_back(std::move(value)));
  }

  std::deque<std::string> values_;
  std::vector<std::pair<int, std::string_view>> groups_;
  DxfBuilder builder_;
};

TEST(EntityReader, FillsEverySlotOfEveryKindFromTheFirstOccurrenceOfItsGroup) {
  for (const auto& [kind, slotCount, slots] : kSlotTable) {
    ReadDrawing read(EveryGroup(kind).text());
    ASSERT_EQ(read.entities().size(), 1U) << kind;
    const DxfEntity entity = read.entity(0);
    EXPECT_EQ(entityName(entity.kind), kind);
    EXPECT_EQ(slotLayout(entity.kind).slotCount, slotCount) << kind;
    std::istringstream row{std::string(slots)};
    std::size_t slot = 0;
    for (std::string text; row >> text; ++slot) {
      EXPECT_EQ(entity.value(slot), expectedText(text)) << kind << ", slot " << slot;
    }
    for (; slot < 120; ++slot) EXPECT_EQ(entity.value(slot), "") << kind << ", slot " << slot;
  }
}

TEST(EntityReader, CoversEveryKind) { EXPECT_EQ(std::size(kSlotTable) + 1, kEntityKindCount); }

TEST(EntityReader, LeavesTheSlotsOfAbsentGroupsEmpty) {
  for (const auto& [kind, slotCount, slots] : kSlotTable) {
    DxfBuilder dxf;
    dxf.entity(kind, {{62, "7"}});
    ReadDrawing read(dxf.text());
    const DxfEntity entity = read.entity(0);
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
      const bool isBulge = kind == "VERTEX" && slot == 3;
      EXPECT_EQ(entity.value(slot), isBulge ? "0" : "") << kind << ", slot " << slot;
      EXPECT_EQ(entity.number(slot), 0.0);
    }
  }
}

TEST(SlotLayout, NamesTheSlotsOfLayerLineTypeAndExtrusion) {
  for (const auto& [kind, slotCount, slots] : kSlotTable) {
    const SlotLayout& layout = slotLayout(entityKind(kind));
    std::uint8_t layer = kNoSlot;
    std::uint8_t lineType = kNoSlot;
    std::uint8_t extrusionX = kNoSlot;
    std::uint8_t extrusionY = kNoSlot;
    std::istringstream row{std::string(slots)};
    std::uint8_t slot = 0;
    for (std::string text; row >> text; ++slot) {
      if (text == "L") layer = slot;
      if (text == "T") lineType = slot;
      if (text == "230") extrusionX = slot;
      if (text == "220") extrusionY = slot;
    }
    EXPECT_EQ(layout.layer, layer) << kind;
    EXPECT_EQ(layout.lineType, lineType) << kind;
    EXPECT_EQ(layout.extrusionX, extrusionX) << kind;
    EXPECT_EQ(layout.extrusionY, extrusionY) << kind;
  }
}

TEST(EntityReader, ATraceKeepsSlotsTenAndElevenEmptyWhateverTheFileHolds) {
  DxfBuilder dxf;
  dxf.entity("TRACE", {{8, "A"}, {230, "-1"}, {2310, "-1"}, {220, "0.5"}, {10, "1"}});
  ReadDrawing read(dxf.text());
  const DxfEntity trace = read.entity(0);
  EXPECT_EQ(trace.value(10), "");
  EXPECT_EQ(trace.value(11), "");
  EXPECT_EQ(extrusionOf(trace).x, "");
  EXPECT_EQ(extrusionOf(trace).y, "");
}

TEST(EntityReader, ASeqendHasNeitherSlotsNorALayer) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "A"}, {10, "1"}}).entity("SEQEND", {{8, "A"}});
  ReadDrawing read(dxf.text());
  EXPECT_NE(read.entity(0).layer, nullptr);
  const DxfEntity entity = read.entity(1);
  EXPECT_EQ(entity.kind, EntityKind::Seqend);
  EXPECT_EQ(entity.layer, nullptr);
  EXPECT_EQ(entity.value(0), "");
}

TEST(EntityReader, ForgetsTheEntityReadBefore) {
  DxfBuilder dxf;
  dxf.beginBlock("a").entity("LWPOLYLINE", {{8, "A"}, {70, "1"}, {230, "-1"}, {43, "2"}});
  dxf.entity("POINT", {{10, "5"}}).endBlock();
  ReadDrawing read(dxf.text());
  // The same record is reused.
  DxfEntity entity;
  EntityCursor cursor(read.drawing.store, read.drawing.blocks.at(0).items);
  while (cursor.next(entity)) read.reader.complete(entity);
  EXPECT_EQ(entity.kind, EntityKind::Point);
  EXPECT_EQ(entity.sideIndex, 0U);
  EXPECT_EQ(entity.value(0), "5");
  for (std::size_t slot = 1; slot < kMaxSlots; ++slot) EXPECT_EQ(entity.value(slot), "") << slot;
}

TEST(EntityReader, KeepsValuesAsFoundButTrimmed) {
  DxfBuilder dxf;
  dxf.entity("TEXT", {{10, "  1.50000  "}, {20, "abc"}, {1, "  two  words\t"}, {8, " a "}});
  ReadDrawing read(dxf.text());
  const DxfEntity text = read.entity(0);
  EXPECT_EQ(text.value(0), "1.50000");
  EXPECT_EQ(text.number(0), 1.5);
  EXPECT_EQ(text.value(1), "abc");
  EXPECT_EQ(text.number(1), 0.0);
  EXPECT_EQ(text.value(4), "two  words\t");
  EXPECT_EQ(text.value(5), "A");
}

TEST(EntityReader, UpperCasesBlockNames) {
  DxfBuilder dxf;
  dxf.entity("INSERT", {{2, "door"}}).entity("DIMENSION", {{2, "*d1"}});
  ReadDrawing read(dxf.text());
  EXPECT_EQ(read.entity(0).value(0), "DOOR");
  EXPECT_EQ(read.entity(1).value(0), "*D1");
}

TEST(EntityReader, AVertexBulgeTooSmallToShowIsZero) {
  struct Case {
    Groups groups;
    std::string_view bulge;
  };
  for (const auto& [groups, bulge] : {Case{{{10, "1"}}, "0"},
                                      {{{42, "0.0"}}, "0"},
                                      {{{42, "0.0000009"}}, "0"},
                                      {{{42, "-9.99e-7"}}, "0"},
                                      {{{42, "bulge"}}, "0"},
                                      {{{42, ""}}, "0"},
                                      {{{42, "0"}, {42, "1"}}, "0"},
                                      {{{42, "0.000001"}}, "0.000001"},
                                      {{{42, "-1.1e-6"}}, "-1.1e-6"},
                                      {{{42, "0.50"}}, "0.50"},
                                      {{{42, "-1.0"}}, "-1.0"}}) {
    DxfBuilder dxf;
    dxf.entity("VERTEX", groups);
    EXPECT_EQ(ReadDrawing(dxf.text()).entity(0).value(3), bulge);
  }
}

/// Line type slot of a LINE with these groups in a drawing with some layers.
std::string lineTypeOfLine(Groups groups) {
  DxfBuilder dxf;
  dxf.layer("Walls", "Dashed").layer("WALLS", "Hidden").layer("Bare", {{62, "1"}, {6, "Dashed"}});
  dxf.layer("Plain", "");
  dxf.entity("LINE", groups);
  ReadDrawing read(dxf.text());
  return std::string(read.entity(0).value(5));
}

TEST(LineTypeSlot, IsTheEntitysOwnInUpperCase) {
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, "dot"}}), "DOT");
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, "ByLayer"}}), "BYLAYER");
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, "Continuous"}}), "CONTINUOUS");
  EXPECT_EQ(lineTypeOfLine({{6, "dot"}, {8, "Unknown"}, {6, "dash"}}), "DOT");
}

TEST(LineTypeSlot, IsTheLayersAsItsTableHoldsItWhenTheEntityHasNone) {
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}}), "Dashed");
  EXPECT_EQ(lineTypeOfLine({{8, "wALLS"}}), "Dashed");
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, ""}}), "Dashed");
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, "   "}}), "Dashed");
  EXPECT_EQ(lineTypeOfLine({{8, "Walls"}, {6, ""}, {6, "dot"}}), "Dashed");
}

TEST(LineTypeSlot, IsEmptyWhenTheLayerHasNoneOrIsUnknown) {
  EXPECT_EQ(lineTypeOfLine({{8, "Bare"}}), "");
  EXPECT_EQ(lineTypeOfLine({{8, "Plain"}}), "");
  EXPECT_EQ(lineTypeOfLine({{8, "Unknown"}}), "");
  EXPECT_EQ(lineTypeOfLine({{10, "1"}}), "");
}

TEST(EntityReader, KeepsTheFirstOfTwoLayers) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "First"}, {8, "Second"}}).entity("LINE", {{8, ""}, {8, "Second"}});
  ReadDrawing read(dxf.text());
  EXPECT_EQ(read.entity(0).value(4), "FIRST");
  EXPECT_EQ(read.entity(0).layer->name, "FIRST");
  EXPECT_EQ(read.entity(1).value(4), "");
}

TEST(LayerLineType, NumbersLayersInOrderOfFirstUse) {
  ReadDrawing read(DxfBuilder().text());
  std::vector<std::size_t> numbers;
  for (const std::string_view name : {"B", "A", "B", "B", "C", "A", ""}) {
    numbers.push_back(read.reader.layerLineType(name).number);
  }
  EXPECT_EQ(numbers, (std::vector<std::size_t>{0, 1, 0, 0, 2, 1, 3}));
}

TEST(EntityReader, UpperCasesNamesInTheEncodingOfTheDrawing) {
  for (const std::string_view version : {"AC1009", "AC1027"}) {
    const base::Encoding encoding =
        version == "AC1009" ? base::Encoding::Windows1252 : base::Encoding::Utf8;
    const std::string name = base::fromUtf8("façade œuvre ÿ", encoding);
    const std::string upper = base::fromUtf8("FAÇADE ŒUVRE Ÿ", encoding);
    DxfBuilder dxf;
    dxf.header("$ACADVER", 1, version).layer(upper, "Dashed");
    dxf.entity("INSERT", {{2, name}, {8, name}}).entity("LINE", {{8, "0"}, {6, name}});
    ReadDrawing read(dxf.text());
    ASSERT_EQ(read.drawing.encoding, encoding);
    EXPECT_EQ(read.entity(0).value(0), upper);
    EXPECT_EQ(read.entity(0).value(6), upper);
    EXPECT_EQ(read.entity(0).value(7), "Dashed");
    EXPECT_EQ(read.entity(1).value(5), upper);
  }
}

TEST(EntityReader, GivesTheGroupsOfAnEntityUpToItsEnd) {
  DxfBuilder dxf;
  for (const std::string_view kind : {"LWPOLYLINE", "LEADER", "SPLINE"}) {
    dxf.entity(kind, {{10, "1"}, {20, "2"}, {1000, "x"}}).entity("LINE", {{10, "3"}});
  }
  const ReadDrawing read(dxf.text());
  for (const std::size_t i : {0U, 2U, 4U}) {
    GroupReplay groups = read.reader.groups(read.entity(i));
    std::vector<int> codes;
    for (Group group; groups.next(group);) codes.push_back(group.code);
    EXPECT_EQ(codes, (std::vector<int>{10, 20, 1000}));
  }
}

/// Compares the groups of each entity with those that its lines have.
class GroupsTwice : public EntitySink {
 public:
  GroupsTwice(EntityReader& reader, const LineEnds& ends) : reader_(reader), ends_(ends) {}

  void takeEntity(DxfEntity& entity) override {
    if (!hasSideRecord(entity.kind)) return;
    GroupCursor lines(LineCursor({entity.groups, entity.groupsEnd}, ends_));
    GroupReplay replay = reader_.groups(entity);
    std::size_t count = 0;
    Group expected;
    Group group;
    while (lines.next(expected)) {
      ASSERT_TRUE(replay.next(group));
      ASSERT_EQ(group.code, expected.code);
      ASSERT_EQ(group.value.data(), expected.value.data());
      ASSERT_EQ(group.value.size(), expected.value.size());
      ++count;
    }
    EXPECT_FALSE(replay.next(group));
    EXPECT_FALSE(replay.next(group));
    counts.push_back(count);
  }

  std::vector<std::size_t> counts;

 private:
  EntityReader& reader_;
  const LineEnds& ends_;
};

TEST(EntityReader, GivesTheSameGroupsAgainHoweverMany) {
  constexpr std::size_t kMost = EntityWalk::kMostKept;
  const std::vector<std::size_t> counts = {0, 1, 2, kMost, 0, kMost + 1, 3};
  std::string lines = "0\r\nSECTION\r\n2\r\nENTITIES\r\n";
  for (const std::size_t count : counts) {
    lines += "0\r\nLWPOLYLINE\r\n";
    for (std::size_t i = 0; i < count; ++i) {
      lines += i % 3 == 0 ? " 10 \r\n  5 \r\n" : "1010\r\n7\r\n";
    }
    lines += "  0\r\nLINE\r\n 10\r\n1\r\n";
  }
  lines += "0\r\nENDSEC\r\n0\r\nEOF\r\n";
  TextSource source(lines);
  testing::TestMonitor monitor;
  LineReader lineReader(source, monitor);
  Drawing drawing;
  EntityReader reader(drawing);
  GroupsTwice twice(reader, drawing.lineEnds);
  readDefinitions(drawing, lineReader);
  readContents(drawing, lineReader, twice, true);
  EXPECT_EQ(twice.counts, counts);
}

}  // namespace
}  // namespace quillon::dxf

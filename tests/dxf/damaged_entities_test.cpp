#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dxf/entities.h"
#include "dxf/entity_names.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::entitiesOf;
using testing::joinLines;
using testing::LineList;
using testing::ReadDrawing;
using Names = std::vector<std::string>;

/// The result of reading a damaged section.
struct Damaged {
  Names entities;
  DroppedEntities dropped;
};

Damaged damaged(LineList lines) {
  ReadDrawing read(joinLines({"  0", "SECTION", "  2", "ENTITIES"}) + joinLines(lines) +
                   joinLines({"  0", "ENDSEC", "  0", "EOF"}));
  return {entitiesOf(read), read.drawing.dropped};
}

TEST(DamagedEntities, WhoseZeroValueReadsLikeTheirEndAreDroppedAndTheNextIsRead) {
  // The code line before the layer "0" is missing; the section starts with line 5.
  const Damaged layer = damaged({"0", "ARC", "8", "a", "0", "LINE", "0", "10", "1", "0", "LINE",
                                 "8", "c", "10", "0", "0", "ARC", "8", "d"});
  EXPECT_EQ(layer.entities, (Names{"ARC A", "LINE C", "ARC D"}));
  EXPECT_EQ(layer.dropped, (DroppedEntities{1, 12}));
  const Damaged later = damaged({"0", "LINE", "8", "a", "10", "1", "20", "2", "0", "11", "3", "21",
                                 "4", "0", "POINT", "8", "b"});
  EXPECT_EQ(later.entities, Names{"POINT B"});
  EXPECT_EQ(later.dropped, (DroppedEntities{1, 14}));
}

TEST(DamagedEntities, WithoutANameAreDroppedAloneAndTheNextIsRead) {
  for (const std::string_view groups : {"5\n2F\n8\nb\n", "8\nb\n10\n1\n", "100\nAcDbEntity\n8\nb\n",
                                        "0\nPOINT\n8\nb\n", "\n8\nb\n10\n1\n"}) {
    const std::string text = joinLines({"2", "ENTITIES", "0", "LINE", "8", "a", "0"}) +
                             std::string(groups) + joinLines({"0", "ARC", "8", "c", "0", "ENDSEC"});
    ReadDrawing read(text);
    const Names names = entitiesOf(read);
    ASSERT_GE(names.size(), 2U);
    EXPECT_EQ(names.front(), "LINE A");
    EXPECT_EQ(names.back(), "ARC C");
    EXPECT_EQ(read.drawing.dropped, (DroppedEntities{1, 8})) << text;
    EXPECT_TRUE(read.drawing.unknownKinds.empty());
  }
}

TEST(DamagedEntities, AfterAnUnknownOneThatLostALineAreRead) {
  // Codes and values are swapped from the lost line on, up to the first text that reads as a name.
  const Damaged read = damaged({"0", "HATCH", "8", "91", "1",  "0", "LINE", "8",   "a", "10", "1",
                                "0", "LINE",  "8", "b",  "10", "1", "0",    "ARC", "8", "c"});
  EXPECT_EQ(read.entities, (Names{"LINE B", "ARC C"}));
  EXPECT_EQ(read.dropped, (DroppedEntities{1, 12}));
}

TEST(DamagedEntities, WithANumberForANameAreDamageInAnyForm) {
  for (const std::string_view name : {"1", " 10", "-3", "1.5", ".5", "1e3", "0", ""}) {
    const Damaged read = damaged({"0", "HATCH", "8", "a", "0", name, "0", "ARC", "8", "b"});
    EXPECT_EQ(read.entities, Names{"ARC B"});
    EXPECT_EQ(read.dropped, (DroppedEntities{1, 10})) << '"' << name << '"';
  }
  for (const std::string_view name : {"3DSOLID", "1x", "-", ".", "e5", "1 2"}) {
    EXPECT_EQ(damaged({"0", "HATCH", "8", "a", "0", name, "0", "ARC", "8", "b"}).dropped,
              DroppedEntities{})
        << '"' << name << '"';
  }
}

TEST(DamagedEntities, MayBeFollowedByBlankLinesAtTheEndOfTheFile) {
  ReadDrawing read("2\nENTITIES\n0\nARC\n8\na\n0\nEOF\n\n\n\n");
  EXPECT_EQ(entitiesOf(read), Names{"ARC A"});
  EXPECT_EQ(read.drawing.dropped, DroppedEntities{});
}

TEST(DamagedEntities, ThatLoseAnyOneLineAreTheOnlyOnesLost) {
  DxfBuilder dxf;
  constexpr int kEntities = 20;
  for (int i = 0; i < kEntities; ++i) {
    if (i % 5 == 4) {
      dxf.entity("HATCH", {{5, "2F"}, {8, "0"}, {10, "0"}, {20, "0"}, {91, "1"}});
    } else {
      dxf.entity("LINE", {{5, "2F"}, {8, "0"}, {62, "0"}, {10, "0"}, {20, "2.5"}, {11, "7"}});
    }
  }
  const std::string whole = dxf.text();
  const std::size_t start = whole.find("ENTITIES\n") + 9;
  const std::size_t end = whole.find("  0\nENDSEC", start);
  const std::size_t all = ReadDrawing(whole).entities().size();
  for (std::size_t at = start; at < end; at = whole.find('\n', at) + 1) {
    std::string text = whole;
    text.erase(at, whole.find('\n', at) + 1 - at);
    const ReadDrawing read(text);
    // Without its "0" line an entity becomes part of the previous one.
    ASSERT_GE(read.entities().size() + 2, all) << text.substr(0, at);
    ASSERT_TRUE(read.entities().size() == all || read.drawing.dropped.count > 0) << at;
  }
}

}  // namespace
}  // namespace quillon::dxf

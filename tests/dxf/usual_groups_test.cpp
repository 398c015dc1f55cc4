#include "dxf/usual_groups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dxf/entity_store.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::ReadDrawing;
using GroupList = std::vector<std::pair<int, std::string>>;

struct WrittenEntity {
  std::string name;
  GroupList groups;
};

/// How a program writes lines.
struct LineStyle {
  std::string_view eol = "\n";
  std::size_t codeWidth = 3;
};

std::string codeLine(int code, const LineStyle& style) {
  const std::string digits = std::to_string(code);
  const std::size_t blanks = style.codeWidth - std::min(style.codeWidth, digits.size());
  return std::string(blanks, ' ').append(digits).append(style.eol);
}

std::string textOf(const WrittenEntity& entity, const LineStyle& style) {
  std::string text = codeLine(0, style).append(entity.name).append(style.eol);
  for (const auto& [code, value] : entity.groups) {
    text.append(codeLine(code, style)).append(value).append(style.eol);
  }
  return text;
}

std::string drawingOf(const std::string& entities, const LineStyle& style) {
  const std::string eol(style.eol);
  return codeLine(2, style) + "ENTITIES" + eol + entities + codeLine(0, style) + "ENDSEC" + eol;
}

/// What was read of an entity.
std::string described(const DxfEntity& entity) {
  std::string text(entityName(entity.kind));
  text.append(" ").append(std::to_string(entity.marks));
  for (std::size_t slot = 0; slot < kMaxSlots; ++slot) text.append("|").append(entity.value(slot));
  return text;
}

/// The groups of some kinds as programs write them, with marks among them.
const std::vector<WrittenEntity>& usualEntities() {
  static const std::vector<WrittenEntity> entities = {
      {"LINE",
       {{5, "1F"},
        {330, "2"},
        {100, "AcDbEntity"},
        {8, "a"},
        {100, "AcDbLine"},
        {10, "1"},
        {20, "2"},
        {30, "0.0"},
        {11, "3"},
        {21, " 4 "},
        {31, "0"}}},
      {"CIRCLE", {{8, "b"}, {6, "DASHED"}, {10, "1.5"}, {20, ""}, {40, "7"}}},
      {"TEXT",
       {{8, "c"},
        {10, "1"},
        {20, "2"},
        {40, "3"},
        {1, "words"},
        {72, "1"},
        {11, "4"},
        {21, "5"},
        {73, "2"}}},
      {"INSERT", {{2, "block"}, {8, "d"}, {10, "1"}, {20, "2"}, {41, "2"}, {70, "3"}, {71, "1"}}},
      {"POINT", {{1000, "far"}, {8, "e"}, {10, "8"}, {20, "9"}}},
      {"SEQEND", {}},
  };
  return entities;
}

/// One of these, mostly as it is.
WrittenEntity randomEntity(std::mt19937& random) {
  WrittenEntity entity = usualEntities()[random() % usualEntities().size()];
  if (entity.groups.empty() || random() % 4 != 0) return entity;
  const auto place = [&] {
    return entity.groups.begin() + static_cast<std::ptrdiff_t>(random() % entity.groups.size());
  };
  const GroupList others = {{60, "1"}, {8, "other"}, {10, "6"},
                            {62, "3"}, {210, "1"},   {230, "-1.0"}};
  switch (random() % 4) {
    case 0:
      entity.groups.erase(place());
      break;
    case 1:
      entity.groups.insert(place(), others[random() % others.size()]);
      break;
    case 2:
      std::iter_swap(place(), place());
      break;
    default:
      entity.groups.resize(random() % entity.groups.size());
      break;
  }
  return entity;
}

TEST(UsualGroups, ChangeNothingAboutEntitiesThatFollowOthersOfTheirKind) {
  constexpr LineStyle kStyles[] = {{"\n", 3}, {"\r\n", 3}, {"\r", 3},
                                   {"\n", 1}, {"\r\n", 2}, {"\n", 6}};
  std::mt19937 random(3);
  for (int i = 0; i < 400; ++i) {
    const LineStyle style = kStyles[random() % std::size(kStyles)];
    std::string text;
    std::vector<std::string> alone;
    for (int n = 0; n < 60; ++n) {
      // Other programs' lines now and then.
      const LineStyle own = random() % 50 == 0 ? LineStyle{style.eol, 1 + random() % 4} : style;
      const std::string entity = textOf(randomEntity(random), own);
      text += entity;
      alone.push_back(described(ReadDrawing(drawingOf(entity, style)).entities().at(0)));
    }
    const ReadDrawing read(drawingOf(text, style));
    std::vector<std::string> inRow;
    for (const DxfEntity& entity : read.entities()) inRow.push_back(described(entity));
    ASSERT_EQ(inRow, alone) << text;
  }
}

/// As read from a drawing, those of lines.
const UsualGroups& usualOfLines(const ReadDrawing& read) {
  return read.drawing.usualGroups[static_cast<std::size_t>(EntityKind::Line)];
}

/// Code lines are read as numbers on other machines.
bool areLearned() { return std::endian::native == std::endian::little; }

TEST(UsualGroups, EndAtTheEndOfTheSection) {
  const LineStyle style;
  std::string text;
  for (int i = 0; i < 3; ++i) text += textOf(usualEntities()[0], style);
  const std::size_t marker = text.rfind("AcDbLine");
  const ReadDrawing read(drawingOf(text.replace(marker, 8, "ENDSEC"), style));
  EXPECT_EQ(read.entities().size(), 2U);
  EXPECT_EQ(read.drawing.dropped.count, 1U);
}

TEST(UsualGroups, AreLearnedFromTheFirstEntityOfAKind) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  const LineStyle style;
  const ReadDrawing read(drawingOf(textOf(usualEntities()[0], style), style));
  EXPECT_TRUE(usualOfLines(read).areAll());
  EXPECT_TRUE(usualOfLines(read).begin()->isAt("  5\n20\n "));
}

TEST(UsualGroups, AreLearnedAnewFromTheNinthThatHasOthers) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  // The first one gives a mark early on, as entities of layouts do.
  const WrittenEntity first = {"LINE", {{5, "1"}, {67, "1"}, {8, "a"}, {10, "1"}}};
  const WrittenEntity other = {"LINE", {{5, "2"}, {8, "a"}, {10, "1"}}};
  const LineStyle style;
  std::string text = textOf(first, style);
  for (int i = 0; i < 7; ++i) text += textOf(other, style);
  EXPECT_FALSE(usualOfLines(ReadDrawing(drawingOf(text, style))).areAll());
  text += textOf(other, style);
  const ReadDrawing read(drawingOf(text, style));
  EXPECT_TRUE(usualOfLines(read).areAll());
  EXPECT_TRUE(usualOfLines(read).begin()[1].isAt("  8\na\n  "));
}

TEST(UsualGroups, StayWhereTheyComeNowAndThen) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  const WrittenEntity other = {"LINE", {{5, "2"}, {8, "a"}, {10, "1"}}};
  const LineStyle style;
  std::string text;
  for (int i = 0; i < 20; ++i) text += textOf(i % 8 == 0 ? usualEntities()[0] : other, style);
  const ReadDrawing read(drawingOf(text, style));
  EXPECT_TRUE(usualOfLines(read).begin()[1].isAt("330\n2\n  "));
}

TEST(UsualGroups, AreCommonToBlocksAndEntities) {
  const LineStyle style;
  WrittenEntity line = usualEntities()[0];
  line.groups[2].second = "ENDSEC";  // in a block, a value like any other
  const std::string lines = textOf(line, style) + textOf(line, style);
  const ReadDrawing read("  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nb\n" + lines +
                         "  0\nENDBLK\n  0\nENDSEC\n  0\nSECTION\n" +
                         drawingOf(textOf(usualEntities()[0], style), style));
  ASSERT_EQ(read.entities().size(), 1U);
  const std::string expected = described(read.entities()[0]);
  ASSERT_EQ(read.drawing.blocks.size(), 1U);
  EXPECT_EQ(read.drawing.blocks[0].items.size(), 2U);
  EntityCursor items(read.drawing.store, read.drawing.blocks[0].items);
  for (DxfEntity item; items.next(item);) {
    EXPECT_EQ(item.value(0), "1");
    EXPECT_EQ(item.value(3), "4");
  }
  EXPECT_EQ(expected.substr(0, 11), "LINE 0|1|2|");
}

/// What is learned from an entity of a kind.
class Learned {
 public:
  Learned(EntityKind kind, const GroupList& groups) {
    for (const auto& [code, value] : groups) {
      text_.append(codeLine(code, {})).append(value).append("\n");
    }
    text_ += "  0\nPOINT\n";
    const std::size_t size = text_.size();
    text_.append(TextSource::kMargin, '\n');
    usual.learn(LineCursor({text_.data(), text_.data() + size}, LineEnds{}), slotLayout(kind));
  }

  /// The code lines that are expected.
  std::size_t count() const {
    std::size_t count = 0;
    while (!usual.begin()[count].isNothing()) ++count;
    return count;
  }

  UsualGroups usual;

 private:
  std::string text_;
};

TEST(UsualGroups, ExpectNothingAtFirst) {
  const UsualGroups usual;
  EXPECT_TRUE(usual.begin()->isNothing());
  EXPECT_FALSE(usual.begin()->isAt("  0\n    "));
  EXPECT_FALSE(usual.next().isAt("  0\n    "));
}

TEST(UsualGroups, AreThoseOfTheEntityLearnedFromAndItsEnd) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  const Learned learned(EntityKind::Line, {{8, "a"}, {10, "1"}, {20, "2"}});
  ASSERT_EQ(learned.count(), 3U);
  const UsualGroup* group = learned.usual.begin();
  EXPECT_TRUE(group->isAt("  8\nb\n  "));
  EXPECT_FALSE(group->isAt(" 10\nb\n  "));
  EXPECT_FALSE(group->isAt("8\nb\n    "));
  EXPECT_EQ(group->length, 4U);
  EXPECT_EQ(group->place, slotLayout(EntityKind::Line).layer);
  EXPECT_TRUE(group[2].isAt(" 20\n-1\n "));
  EXPECT_EQ(group[2].filled, 1U << group[0].place | 1U << group[1].place);
  EXPECT_TRUE(learned.usual.next().isAt("  0\nLINE"));
  EXPECT_TRUE(learned.usual.areAll());
}

TEST(UsualGroups, HaveNoPlaceWithoutASlotAndForTheSecondOfACode) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  const Learned learned(EntityKind::Line, {{100, "x"}, {8, "a"}, {8, "b"}});
  ASSERT_EQ(learned.count(), 3U);
  EXPECT_EQ(learned.usual.begin()[0].place, UsualGroups::kNoPlace);
  EXPECT_NE(learned.usual.begin()[1].place, UsualGroups::kNoPlace);
  EXPECT_EQ(learned.usual.begin()[2].place, UsualGroups::kNoPlace);
}

TEST(UsualGroups, GoNoFurtherThanAGroupThatGivesMarksOrIsUnusual) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  for (const int code : {60, 1001}) {
    const Learned learned(EntityKind::Line, {{8, "a"}, {code, "1"}, {10, "1"}});
    EXPECT_EQ(learned.count(), 1U);
    EXPECT_TRUE(learned.usual.next().isAt((codeLine(code, {}) + "1\n    ").c_str()));
    EXPECT_FALSE(learned.usual.areAll());
  }
}

TEST(UsualGroups, AreAtMostTwentyFour) {
  if (!areLearned()) GTEST_SKIP() << "not little-endian";
  const Learned learned(EntityKind::Line, GroupList(25, {100, "x"}));
  EXPECT_EQ(learned.count(), 24U);
  EXPECT_TRUE(learned.usual.next().isAt("100\nx\n  "));
  EXPECT_FALSE(learned.usual.areAll());
}

TEST(UsualGroups, AreOutdatedAfterEightMissesInARow) {
  Learned learned(EntityKind::Line, {{8, "a"}});
  for (int i = 0; i < 7; ++i) EXPECT_FALSE(learned.usual.noteMiss());
  learned.usual.noteHit();
  for (int i = 0; i < 7; ++i) EXPECT_FALSE(learned.usual.noteMiss());
  EXPECT_TRUE(learned.usual.noteMiss());
}

}  // namespace
}  // namespace quillon::dxf

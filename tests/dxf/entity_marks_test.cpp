#include "dxf/entity_marks.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dxf/entities.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "support/dxf_builder.h"
#include "support/test_monitor.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::Groups;

/// Takes the marks of the entities, and those that blocks keep.
struct Marks : EntitySink {
  explicit Marks(const DxfBuilder& dxf) {
    TextSource source(dxf.text());
    testing::TestMonitor monitor;
    LineReader reader(source, monitor);
    Drawing drawing;
    readDefinitions(drawing, reader);
    for (const BlockRec& block : drawing.blocks) {
      EntityCursor cursor(drawing.store, block.items);
      for (DxfEntity entity; cursor.next(entity);) takeEntity(entity);
    }
    readContents(drawing, reader, *this, true);
  }
  void takeEntity(DxfEntity& entity) override {
    all.push_back(entity.marks);
    slots.push_back(entity.filled);
  }

  std::vector<std::uint32_t> all;
  std::vector<std::uint32_t> slots;
};

std::uint32_t marksOf(std::string_view kind, Groups groups) {
  DxfBuilder dxf;
  dxf.entity(kind, groups);
  return Marks(dxf).all.at(0);
}

TEST(EntityMarks, TellWhatNoSlotHas) {
  EXPECT_EQ(marksOf("LINE", {{8, "0"}, {60, "0"}, {67, "0"}, {210, "0.0"}, {72, "1"}}), 0U);
  EXPECT_EQ(marksOf("LINE", {{60, "1"}, {67, "1"}}), mark::kInvisible | mark::kInPaperSpace);
  EXPECT_EQ(marksOf("CIRCLE", {{210, "0.5"}}), mark::kExtruded);
  EXPECT_EQ(marksOf("CIRCLE", {{210, "-1e-12"}, {230, "-1"}}), 0U);
  EXPECT_EQ(marksOf("TRACE", {{230, "-1"}}), mark::kExtruded);
  EXPECT_EQ(marksOf("TEXT", {{71, "2"}, {72, "4"}}), mark::kMirrored | mark::kAligned);
  EXPECT_EQ(marksOf("ATTDEF", {{70, "3"}}), mark::kHiddenAttribute | mark::kConstant);
  EXPECT_EQ(marksOf("MTEXT", {{71, "7"}, {3, "a"}}), mark::kBottomLeft | mark::kEarlierText);
  EXPECT_EQ(marksOf("MTEXT", {{11, "-1"}, {21, "0"}}), mark::kDirection);
  EXPECT_EQ(marksOf("INSERT", {{70, "2"}}), mark::kArray);
  EXPECT_EQ(marksOf("LEADER", {{71, "0"}, {72, "1"}}), mark::kArrowless | mark::kCurved);
  EXPECT_EQ(marksOf("VERTEX", {{40, "1"}, {41, "1.0"}}), 0U);
  EXPECT_EQ(marksOf("VERTEX", {{40, "1"}, {41, "2"}}), mark::kTapered);
}

TEST(EntityMarks, AreKeptWithTheSlotsOfBlocks) {
  DxfBuilder dxf;
  const Groups groups = {{8, "A"},   {72, "1"}, {1, "x"},   {10, "1"}, {20, "2"},    {40, "3"},
                         {230, "1"}, {6, "L"},  {220, "0"}, {50, "0"}, {210, "0.1"}, {60, "1"}};
  dxf.beginBlock("B").entity("TEXT", groups).endBlock();
  dxf.entity("TEXT", groups);
  const Marks marks(dxf);
  ASSERT_EQ(marks.all.size(), 2U);
  EXPECT_EQ(marks.all[1], mark::kInvisible | mark::kExtruded | mark::kAligned);
  EXPECT_EQ(marks.all[0], marks.all[1]);
  EXPECT_EQ(marks.slots[1], (1U << 9) - 1);
  EXPECT_EQ(marks.slots[0], marks.slots[1]);
}

}  // namespace
}  // namespace quillon::dxf

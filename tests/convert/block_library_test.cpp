#include "convert/block_library.h"

#include <gtest/gtest.h>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

constexpr std::string_view kStart = "# first\r\n";

/// Conversions with blocks as parts of the library PART; the frame has one line in each block.
class BlockLibraryTest : public DriverTest {
 protected:
  BlockLibraryTest() {
    job.drawingName = "PART";
    job.blocks = kUsedBlocksAsParts;
    job.overwriteScript = true;
    surroundings.frame.path =
        folder.write("f.cfh", "[start]\n# first\nendblock\n[end]\n# last\nendblock\n");
  }

  /// The block DOOR with the line (1 1) to (2 1) and the base point (1 1).
  static DxfBuilder door() {
    DxfBuilder dxf;
    dxf.beginBlock("Door", "1", "1");
    dxf.entity("LINE", {{8, "0"}, {10, "1"}, {20, "1"}, {11, "2"}, {21, "1"}});
    dxf.endBlock();
    return dxf;
  }
  static DxfBuilder& insert(DxfBuilder& dxf, std::string_view block, std::string_view x = "5",
                            std::string_view y = "7") {
    return dxf.entity("INSERT", {{8, "0"}, {2, block}, {10, x}, {20, y}});
  }
  std::string scriptOf(const DxfBuilder& dxf) {
    draw(dxf);
    EXPECT_EQ(convert(), Outcome::Converted);
    return script();
  }

  static std::string header() {
    return "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\n" + std::string(kStart);
  }
  static std::string boardOpen() { return "Write;\r\nEdit 'PART.brd';\r\n"; }
  static std::string libraryOpen(const std::string& part, const std::string& kind = "pac") {
    return "Write;\r\nOpen 'PART';\r\nEdit '" + part + "." + kind + "';\r\n" + header();
  }
  static std::string wire(std::string_view from, std::string_view to) {
    return "Layer  20 ;\r\nWire 0.0000000 (R" + std::string(from) + ") (R" + std::string(to) +
           ");\r\n";
  }
  static std::string doorLine() { return wire("1.0000000 1.0000000", "2.0000000 1.0000000"); }
  static std::string use() { return boardOpen() + header() + "Use 'PART';\r\n"; }
};

TEST_F(BlockLibraryTest, AnInsertedBlockIsWrittenOnceAndAddedEachTime) {
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  insert(dxf, "door", "9", "8");
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + libraryOpen("DOOR_1") + doorLine() + use() +
                               "Add DOOR_1@PART R0 (R4.0000000 6.0000000);\r\n"
                               "Add DOOR_1@PART R0 (R8.0000000 7.0000000);\r\n# last\r\n");
  // 2 + 4 to begin, 3 + 4 + 2 for the part, 2 + 4 + 1 to go back, 2 additions, 1 at the end.
  EXPECT_EQ(result.commandCount, 25U);
}

TEST_F(BlockLibraryTest, ADrawnBlockIsNoPart) {
  job.blocks = kDrawBlocks;
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() +
                               wire("5.0000000 7.0000000", "6.0000000 7.0000000") + "# last\r\n");
}

TEST_F(BlockLibraryTest, EveryScaleAndRotationIsAPartOfItsOwn) {
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {41, "2"}, {42, "3"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {50, "90"}});
  insert(dxf, "DOOR", "1", "1");
  EXPECT_EQ(scriptOf(dxf),
            boardOpen() + header() +                                            //
                libraryOpen("DOOR_1") + doorLine() + use() +                    //
                "Add DOOR_1@PART R0 (R4.0000000 6.0000000);\r\n" +              //
                libraryOpen("DOOR_2") +                                         //
                wire("2.0000000 3.0000000", "4.0000000 3.0000000") + use() +    //
                "Add DOOR_2@PART R0 (R-1.0000000 -1.0000000);\r\n" +            //
                libraryOpen("DOOR_3") +                                         //
                wire("-1.0000000 1.0000000", "-1.0000000 2.0000000") + use() +  //
                "Add DOOR_3@PART R0 (R-1.0000000 -1.0000000);\r\n"              //
                "Add DOOR_1@PART R0 (R0.0000000 0.0000000);\r\n# last\r\n");
}

TEST_F(BlockLibraryTest, TheJobsScaleReachesPartsAndInsertionPoints) {
  job.scale = 2.0;
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + libraryOpen("DOOR_1") +
                               wire("2.0000000 2.0000000", "4.0000000 2.0000000") + use() +
                               "Add DOOR_1@PART R0 (R9.0000000 13.0000000);\r\n# last\r\n");
}

TEST_F(BlockLibraryTest, TheRowsAreNumberedAcrossAllBlocks) {
  DxfBuilder dxf = door();
  dxf.beginBlock("B").endBlock();
  insert(dxf, "B");
  insert(dxf, "DOOR");
  const std::string text = scriptOf(dxf);
  EXPECT_NE(text.find("Edit 'B_1.pac';"), std::string::npos);
  EXPECT_NE(text.find("Edit 'DOOR_2.pac';"), std::string::npos);
}

TEST_F(BlockLibraryTest, NestedBlocksAreDrawnInPlaceInsideAPart) {
  DxfBuilder dxf = door();
  dxf.beginBlock("WALL");
  insert(dxf, "DOOR");
  dxf.endBlock();
  insert(dxf, "WALL", "0", "0");
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + libraryOpen("WALL_1") +
                               wire("5.0000000 7.0000000", "6.0000000 7.0000000") + use() +
                               "Add WALL_1@PART R0 (R0.0000000 0.0000000);\r\n# last\r\n");
}

TEST_F(BlockLibraryTest, ASchematicGetsASymbolAndItsDevice) {
  job.targetKind = kSchematic;
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  EXPECT_EQ(scriptOf(dxf), "Write;\r\nEdit 'PART.sch';\r\n" + header() +
                               libraryOpen("DOOR_1", "sym") + doorLine() +
                               "Edit 'DOOR_1.dev';\r\nAdd 'DOOR_1.sym' (0 0);\r\n"
                               "Write;\r\nEdit 'PART.sch';\r\n" +
                               header() +
                               "Use 'PART';\r\nAdd DOOR_1@PART R0 (R4.0000000 6.0000000);\r\n"
                               "# last\r\n");
}

TEST_F(BlockLibraryTest, APackageOrSymbolTargetGetsSymbolsWithoutDevices) {
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  for (const int kind : {kPackage, kSymbol}) {
    job.targetKind = kind;
    std::string open = "Open 'PART.lbr';\r\nEdit 'PART.";
    open.append(kind == kPackage ? "pac" : "sym").append("';\r\n").append(header());
    std::string expected = open;
    expected.append(libraryOpen("DOOR_1", "sym")).append(doorLine()).append(open);
    expected.append("Use 'PART';\r\nAdd DOOR_1@PART R0 (R4.0000000 6.0000000);\r\n# last\r\n");
    EXPECT_EQ(scriptOf(dxf), expected);
  }
}

TEST_F(BlockLibraryTest, HandlingTwoAppendsThePartsThatWereNotInserted) {
  job.blocks = kAllBlocksAsParts;
  DxfBuilder dxf = door();
  dxf.beginBlock("B").entity("POINT", {{8, "0"}}).endBlock();
  insert(dxf, "DOOR");
  EXPECT_EQ(scriptOf(dxf),
            boardOpen() + header() + libraryOpen("DOOR_1") + doorLine() + use() +
                "Add DOOR_1@PART R0 (R4.0000000 6.0000000);\r\n" + libraryOpen("B_2") +
                "Layer  20 ;\r\nCircle 0.0 (R0.0000000 0.0000000) (R0.0000000 0.3940000);\r\n"
                "# last\r\n");
}

TEST_F(BlockLibraryTest, HandlingTwoWritesAPartAsItIsWhenOnlyAScaledOneExists) {
  job.blocks = kAllBlocksAsParts;
  DxfBuilder dxf = door();
  dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {41, "2"}, {42, "2"}});
  const std::string text = scriptOf(dxf);
  EXPECT_TRUE(text.ends_with(libraryOpen("DOOR_2") + doorLine() + "# last\r\n")) << text;
}

TEST_F(BlockLibraryTest, HandlingTwoWritesADeviceForEachSymbolOfASchematic) {
  job.blocks = kAllBlocksAsParts;
  job.targetKind = kSchematic;
  DxfBuilder dxf = door();
  dxf.beginBlock("B").endBlock();
  EXPECT_EQ(scriptOf(dxf), "Write;\r\nEdit 'PART.sch';\r\n" + header() +
                               libraryOpen("DOOR_1", "sym") + doorLine() +
                               "Edit 'DOOR_1.dev';\r\nAdd 'DOOR_1.sym' (0 0);\r\n" +
                               libraryOpen("B_2", "sym") +
                               "Edit 'B_2.dev';\r\nAdd 'B_2.sym' (0 0);\r\n# last\r\n");
}

TEST_F(BlockLibraryTest, HandlingTwoSkipsTheBlocksOfLayouts) {
  job.blocks = kAllBlocksAsParts;
  DxfBuilder dxf;
  for (const char* const name :
       {"*Model_Space", "*PAPER_SPACE", "*Paper_Space0", "$MODEL_SPACE", "$PAPER_SPACE1"}) {
    dxf.beginBlock(name).endBlock();
  }
  dxf.beginBlock("MODEL_SPACE").endBlock();
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + libraryOpen("MODEL_SPACE_1") + "# last\r\n");
}

TEST_F(BlockLibraryTest, HandlingOneWritesInsertedBlocksOnly) {
  EXPECT_EQ(scriptOf(door()), boardOpen() + header() + "# last\r\n");
}

TEST_F(BlockLibraryTest, AnEmptyBlockStoreGivesNoPart) {
  job.blocks = kAllBlocksAsParts;
  EXPECT_EQ(scriptOf(DxfBuilder()), boardOpen() + header() + "# last\r\n");
}

TEST_F(BlockLibraryTest, AnUnknownBlockIsCountedAndWritesNothing) {
  DxfBuilder dxf = door();
  insert(dxf, "WINDOW");
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + "# last\r\n");
  EXPECT_EQ(result.counts[static_cast<std::size_t>(dxf::EntityKind::Insert)], 1U);
}

TEST_F(BlockLibraryTest, AnInsertionOnALayerThatIsNotConvertedMakesNoPart) {
  job.layerFile = folder.write("a.lay", "[1]\nlayername=X\nlayernr=999\n");
  DxfBuilder dxf = door();
  dxf.entity("INSERT", {{8, "X"}, {2, "DOOR"}});
  EXPECT_EQ(scriptOf(dxf), boardOpen() + header() + "# last\r\n");
  EXPECT_EQ(result.counts[static_cast<std::size_t>(dxf::EntityKind::Insert)], 1U);
}

TEST_F(BlockLibraryTest, ADimensionBecomesAPartToo) {
  DxfBuilder dxf;
  dxf.beginBlock("*D1").entity("POINT", {{8, "0"}}).endBlock();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {10, "3"}, {20, "4"}});
  const std::string text = scriptOf(dxf);
  EXPECT_NE(text.find("Edit '_D1_1.pac';"), std::string::npos);
  EXPECT_NE(text.find("Add _D1_1@PART R0 (R3.0000000 4.0000000);\r\n"), std::string::npos);
}

TEST_F(BlockLibraryTest, ABlockInsideItselfIsDrawnOnce) {
  DxfBuilder dxf;
  dxf.beginBlock("A").entity("POINT", {{8, "0"}});
  insert(dxf, "A");
  dxf.endBlock();
  insert(dxf, "A", "0", "0");
  const std::string text = scriptOf(dxf);
  EXPECT_EQ(text.find("Circle"), text.rfind("Circle"));
}

TEST_F(BlockLibraryTest, AnAdditionOutOfRangeIsFollowedByTheNote) {
  DxfBuilder dxf = door();
  insert(dxf, "DOOR", "40000", "0");
  EXPECT_TRUE(scriptOf(dxf).ends_with("Add DOOR_1@PART R0 (R39999.0000000 -1.0000000);\r\n" +
                                      std::string(kRangeNote) + "# last\r\n"));
}

TEST_F(BlockLibraryTest, TheOffsetsMovePartsAndInsertionPoints) {
  job.offsetX = 100.0;
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  const std::string text = scriptOf(dxf);
  EXPECT_NE(text.find("(R101.0000000 1.0000000) (R102.0000000 1.0000000);"), std::string::npos);
  EXPECT_NE(text.find("Add DOOR_1@PART R0 (R104.0000000 6.0000000);"), std::string::npos);
}

TEST_F(BlockLibraryTest, TheAdditionNamesTheWholeDrawingName) {
  job.drawingName = "lib/PART";
  DxfBuilder dxf = door();
  insert(dxf, "DOOR");
  EXPECT_NE(scriptOf(dxf).find("Add DOOR_1@lib/PART R0 ("), std::string::npos);
}

TEST_F(BlockLibraryTest, AScaleThatIsNotFiniteIsARunTimeError) {
  DxfBuilder dxf = door();
  dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {41, "1e999"}});
  draw(dxf);
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_NE(host.messages[0].detail.find("is not a finite number"), std::string::npos);
}

TEST(PartName, KeepsLettersDigitsUnderscoreAndHyphen) {
  constexpr auto kEncoding = base::Encoding::Windows1252;
  EXPECT_EQ(makePartName("DOOR", 1, kEncoding), "DOOR_1");
  EXPECT_EQ(makePartName("A-B_9", 12, kEncoding), "A-B_9_12");
  EXPECT_EQ(makePartName("A B.C'D;E$*", 3, kEncoding), "A_B_C_D_E___3");
  EXPECT_EQ(makePartName("", 4, kEncoding), "_4");
}

TEST(PartName, ReplacesEachCharacterBeyondAsciiByOneUnderscore) {
  EXPECT_EQ(makePartName("T\xDCR", 1, base::Encoding::Windows1252), "T_R_1");
  EXPECT_EQ(makePartName("TÜR→", 1, base::Encoding::Utf8), "T_R__1");
}

}  // namespace
}  // namespace quillon::convert

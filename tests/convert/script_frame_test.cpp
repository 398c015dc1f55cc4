#include "convert/script_frame.h"

#include <gtest/gtest.h>

#include "base/read_error.h"
#include "files/output_file.h"
#include "support/temp_folder.h"

namespace quillon::convert {
namespace {

using testing::TempFolder;
using Lines = std::vector<std::string>;

TEST(FrameText, GivesTheLinesBetweenTheMarkers) {
  const ScriptFrame frame = parseFrame(
      "[Start]\r\nSet Optimizing off;\r\nGrid mm;\r\nEndBlock\r\n\r\n[End]\r\nWindow Fit;\r\n"
      "EndBlock\r\n");
  EXPECT_EQ(frame.startBlock, (Lines{"Set Optimizing off;", "Grid mm;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"Window Fit;"}));
}

TEST(FrameText, FindsMarkersInAnyCaseAndAfterOtherText) {
  const ScriptFrame frame =
      parseFrame("# my [START] block\nA;\n# eNdBlOcK here\n  x [eNd] y\nB;\nENDBLOCK\n");
  EXPECT_EQ(frame.startBlock, (Lines{"A;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"B;"}));
}

TEST(FrameText, ALineThatHoldsEndblockInsideACommentClosesTheBlock) {
  const ScriptFrame frame = parseFrame("[start]\nA;\n# myendblocks\nB;\nendblock\n");
  EXPECT_EQ(frame.startBlock, (Lines{"A;"}));
}

TEST(FrameText, CopiesLinesByteForByte) {
  const ScriptFrame frame = parseFrame("[start]\r\n  # \xC4nderung\t \r\n\r\n;;\r\nendblock\r\n");
  EXPECT_EQ(frame.startBlock, (Lines{"  # \xC4nderung\t ", "", ";;"}));
}

TEST(FrameText, IgnoresLinesOutsideTheBlocks) {
  const ScriptFrame frame =
      parseFrame("A;\n[start]\nB;\nendblock\nC;\nendblock\n[end]\nD;\nendblock\nE;\n");
  EXPECT_EQ(frame.startBlock, (Lines{"B;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"D;"}));
}

TEST(FrameText, MayHaveTheEndBlockFirst) {
  const ScriptFrame frame = parseFrame("[end]\nB;\nendblock\n[start]\nA;\nendblock\n");
  EXPECT_EQ(frame.startBlock, (Lines{"A;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"B;"}));
}

TEST(FrameText, TakesTheFirstStartBlockAndTheFirstEndBlockOnly) {
  const ScriptFrame frame = parseFrame(
      "[start]\nA;\nendblock\n[start]\nB;\nendblock\n[end]\nC;\nendblock\n[end]\nD;\nendblock\n");
  EXPECT_EQ(frame.startBlock, (Lines{"A;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"C;"}));
}

TEST(FrameText, ABlockWithoutEndblockRunsToTheEndOfTheText) {
  const ScriptFrame frame = parseFrame("[start]\nA;\nB;\n");
  EXPECT_EQ(frame.startBlock, (Lines{"A;", "B;"}));
  EXPECT_TRUE(frame.endBlock.empty());
  EXPECT_EQ(parseFrame("[end]\nC;").endBlock, (Lines{"C;"}));
}

TEST(FrameText, WithoutMarkersHasNoBlocks) {
  for (const char* const text : {"", "A;\nB;\n", "start\nA;\nend\n"}) {
    const ScriptFrame frame = parseFrame(text);
    EXPECT_TRUE(frame.startBlock.empty()) << text;
    EXPECT_TRUE(frame.endBlock.empty()) << text;
  }
}

TEST(FrameText, ReadsEveryKindOfLineEnd) {
  for (const char* const text : {"[start]\r\nA;\r\n\r\nB;\r\nendblock",
                                 "[start]\nA;\n\nB;\nendblock", "[start]\rA;\r\rB;\rendblock"}) {
    EXPECT_EQ(parseFrame(text).startBlock, (Lines{"A;", "", "B;"}));
  }
}

TEST(DefaultFrame, HasNineLines) {
  EXPECT_EQ(defaultFrameText(),
            "[Start]\r\n"
            "Set Optimizing off;\r\n"
            "Set Undo_Log off;\r\n"
            "EndBlock\r\n"
            "\r\n"
            "[End]\r\n"
            "Set Undo_Log on;\r\n"
            "Window Fit;\r\n"
            "EndBlock\r\n");
  const ScriptFrame parsed = parseFrame(defaultFrameText());
  EXPECT_EQ(defaultFrame().startBlock, parsed.startBlock);
  EXPECT_EQ(defaultFrame().endBlock, parsed.endBlock);
}

TEST(LoadFrame, ReadsTheFileWithoutRegardToTheCaseOfItsName) {
  const TempFolder folder;
  folder.write("QUILLON.CFH", "[start]\nA;\nendblock\n");
  EXPECT_EQ(loadFrame({folder.file("quillon.cfh"), true, false}).startBlock, (Lines{"A;"}));
}

TEST(LoadFrame, TakesWhatIsLoadedAlreadyWithoutTheFile) {
  const TempFolder folder;
  FrameSource source{folder.file("missing.cfh"), true, true};
  source.loaded = std::make_shared<ScriptFrame>(ScriptFrame{{"A;"}, {"B;"}});
  EXPECT_EQ(loadFrame(source).startBlock, (Lines{"A;"}));
  EXPECT_EQ(loadFrame(source).endBlock, (Lines{"B;"}));
  EXPECT_EQ(folder.entries(), 0U);
}

TEST(LoadFrame, CreatesAMissingFileWithTheDefaultLines) {
  const TempFolder folder;
  const ScriptFrame frame = loadFrame({folder.file("quillon.cfh"), false, true});
  EXPECT_EQ(folder.read("quillon.cfh"), defaultFrameText());
  EXPECT_EQ(folder.entries(), 1U);
  EXPECT_EQ(frame.startBlock, (Lines{"Set Optimizing off;", "Set Undo_Log off;"}));
  EXPECT_EQ(frame.endBlock, (Lines{"Set Undo_Log on;", "Window Fit;"}));
}

TEST(LoadFrame, LeavesAnExistingFileAsItIs) {
  const TempFolder folder;
  folder.write("quillon.cfh", "");
  const ScriptFrame frame = loadFrame({folder.file("quillon.cfh"), false, true});
  EXPECT_EQ(folder.read("quillon.cfh"), "");
  EXPECT_TRUE(frame.startBlock.empty());
}

TEST(LoadFrame, UsesTheDefaultLinesFromMemoryWhenNoFileIsToBeCreated) {
  const TempFolder folder;
  const ScriptFrame frame = loadFrame({folder.file("quillon.cfh"), false, false});
  EXPECT_EQ(folder.entries(), 0U);
  EXPECT_EQ(frame.endBlock, (Lines{"Set Undo_Log on;", "Window Fit;"}));
  EXPECT_EQ(loadFrame({}).endBlock, frame.endBlock);
}

TEST(LoadFrame, AFileThatMustExistAndIsMissingIsAnError) {
  const TempFolder folder;
  EXPECT_THROW(loadFrame({folder.file("my.cfh"), true, false}), base::ReadError);
  EXPECT_EQ(folder.entries(), 0U);
}

TEST(LoadFrame, AFileThatCannotBeCreatedIsAnError) {
  const TempFolder folder;
  folder.write("file", "");
  EXPECT_THROW(loadFrame({folder.file("file/quillon.cfh"), false, true}), files::WriteError);
}

TEST(LoadFrame, MakesTheFolderOfAFileThatItCreates) {
  const TempFolder folder;
  loadFrame({folder.file("missing/quillon.cfh"), false, true});
  EXPECT_EQ(folder.read("missing/quillon.cfh"), defaultFrameText());
}

}  // namespace
}  // namespace quillon::convert

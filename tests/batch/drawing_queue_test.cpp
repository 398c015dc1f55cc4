#include "batch/drawing_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "batch/drawing_files.h"
#include "files/paths.h"
#include "support/conversion.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"
#include "support/timing.h"

namespace quillon::batch {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

class DrawingQueueTest : public ::testing::Test {
 protected:
  static std::string oneLine() {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    return dxf.text();
  }
  std::string draw(const std::string& name) const { return folder.write(name, oneLine()); }
  void makeFolder(const std::string& name) const { fs::create_directory(folder.path() / name); }

  bool runNext() { return queue.runNext(job, replace, surroundings, watch); }
  void runAll() {
    while (runNext()) continue;
  }
  const QueueResult& result(std::size_t index) const { return queue.entries().at(index).result; }
  Strings names() const {
    Strings names;
    for (const QueueEntry& entry : queue.entries()) {
      names.push_back(fs::path(entry.path).filename().string());
    }
    return names;
  }

  testing::TempFolder folder;
  DrawingQueue queue;
  convert::ConversionJob job;
  bool replace = false;
  convert::Surroundings surroundings = testing::fixedSurroundings();
  QueueWatch watch;
};

TEST_F(DrawingQueueTest, ConvertsEachDrawingIntoAScriptBesideIt) {
  EXPECT_EQ(queue.add(draw("b.dxf")), 1U);
  EXPECT_EQ(queue.add(draw("a.dxf")), 1U);
  EXPECT_EQ(names(), (Strings{"b.dxf", "a.dxf"}));
  EXPECT_EQ(queue.entries()[0].bytes, oneLine().size());
  EXPECT_EQ(result(0).state, EntryState::Waiting);
  ASSERT_TRUE(runNext());
  EXPECT_TRUE(folder.has("b.scr"));
  EXPECT_FALSE(folder.has("a.scr"));
  EXPECT_EQ(result(0).state, EntryState::Done);
  EXPECT_EQ(result(0).scriptFile, folder.file("b.scr"));
  EXPECT_EQ(result(0).commands, 11U);
  EXPECT_EQ(result(0).message, "");
  ASSERT_TRUE(runNext());
  EXPECT_FALSE(runNext());
  EXPECT_TRUE(folder.read("a.scr").starts_with("Write;\r\nEdit 'a.brd';\r\n"));
  EXPECT_TRUE(folder.read("b.scr").starts_with("Write;\r\nEdit 'b.brd';\r\n"));
  EXPECT_EQ(queue.counts().converted, 2U);
}

TEST_F(DrawingQueueTest, NamesEachLibraryAfterItsFile) {
  testing::DxfBuilder dxf;
  dxf.beginBlock("DOOR").endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {10, "1"}, {20, "1"}});
  queue.add(folder.write("Plan 1.dxf", dxf.text()));
  job.drawingName = "other";
  job.blocks = convert::kUsedBlocksAsParts;
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;
  const std::string script = folder.read("Plan 1.scr");
  EXPECT_NE(script.find("Plan_1"), std::string::npos) << script;
  EXPECT_EQ(script.find("other"), std::string::npos) << script;
}

TEST_F(DrawingQueueTest, TakesTheDrawingsOfAFolderSortedByName) {
  for (const char* const name : {"c.DXF", "a.dxf", "b.Dxf", "note.txt"}) draw(name);
  makeFolder("inner");
  draw("inner/d.dxf");
  EXPECT_EQ(queue.add(folder.file("")), 3U);
  EXPECT_EQ(names(), (Strings{"a.dxf", "b.Dxf", "c.DXF"}));
  EXPECT_EQ(drawingsIn(folder.path(), true).drawings.size(), 4U);
}

TEST_F(DrawingQueueTest, DrawingsOfSubfoldersAreInTheOrderOfTheirPaths) {
  for (const char* const name : {"one", "one-more", "one!"}) makeFolder(name);
  std::vector<fs::path> expected;
  for (const char* const name : {"one/a.dxf", "one-more/a.dxf", "one!/a.dxf", "one.dxf", "one!.dxf",
                                 "z.dxf", "one/B.dxf", "one/a.b.dxf"}) {
    draw(name);
    expected.push_back((folder.path() / files::toPath(name)).make_preferred());
  }
  std::sort(expected.begin(), expected.end());
  std::vector<fs::path> found;
  for (const auto& drawing : drawingsIn(folder.path(), true).drawings) {
    found.push_back(files::toPath(drawing.path));
  }
  EXPECT_EQ(found, expected);
}

TEST_F(DrawingQueueTest, TheSameFileIsOneEntry) {
  draw("a.dxf");
  EXPECT_EQ(queue.add(folder.file("a.dxf")), 1U);
  EXPECT_EQ(queue.add(folder.file("./a.dxf")), 0U);
  EXPECT_EQ(queue.add(folder.file("")), 0U);
  EXPECT_TRUE(queue.remove(0));
  EXPECT_EQ(queue.add(folder.file("")), 1U);
}

TEST_F(DrawingQueueTest, ADrawingWhoseScriptBelongsToAnotherFails) {
  queue.add(draw("a.dxf"));
  queue.add(draw("a.txt"));
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done);
  EXPECT_EQ(result(1).state, EntryState::Failed);
  EXPECT_EQ(result(1).message, folder.file("a.txt") + " was not converted because its script " +
                                   folder.file("a.scr") + " already belongs to " +
                                   folder.file("a.dxf") + ". Please rename one of the drawings.");
  // Without the other one, the script is its own.
  queue.remove(0);
  queue.retry();
  replace = true;
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;
}

TEST_F(DrawingQueueTest, AFolderWithoutDrawingsTakesNoScriptFromADrawing) {
  makeFolder("lid");
  queue.add(folder.file("lid"));
  queue.add(draw("lid.dxf"));
  runAll();
  EXPECT_EQ(result(0).message,
            folder.file("lid") + " contains no DXF file. Please specify another folder.");
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
}

TEST_F(DrawingQueueTest, ADrawingThatIsNotThereYetKeepsItsScriptForWhenItIs) {
  queue.add(folder.file("a.dxf"));
  queue.add(draw("a.txt"));
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  draw("a.dxf");
  replace = true;
  queue.retry();
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;
  EXPECT_NE(result(1).message.find("already belongs to"), std::string::npos) << result(1).message;
}

TEST_F(DrawingQueueTest, AScriptFallsToTheNextDrawingWhenItsOwnerIsRemoved) {
  for (const char* const name : {"a.dxf", "b.dxf", "a.txt", "a.old"}) queue.add(draw(name));
  queue.remove(0);
  runAll();
  EXPECT_EQ(names(), (Strings{"b.dxf", "a.txt", "a.old"}));
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
  EXPECT_EQ(result(2).message, folder.file("a.old") + " was not converted because its script " +
                                   folder.file("a.scr") + " already belongs to " +
                                   folder.file("a.txt") + ". Please rename one of the drawings.");
}

TEST_F(DrawingQueueTest, ThousandsOfDrawingsCostTheirOwnerLittle) {
  const int count = files::namesHaveCase() ? 10000 : 500;
  for (int i = 0; i < count; ++i) queue.add(folder.file("d" + std::to_string(i) + ".dxf"));
  const texts::Texts texts(surroundings.languageOffset);
  const double before = testing::processorSeconds();
  QueueResult done;
  done.state = EntryState::Done;
  while (queue.begin(job, false, texts)) queue.finish(done);
  EXPECT_LT(testing::processorSeconds() - before, 0.8 * testing::patience());
  EXPECT_EQ(queue.counts().converted, static_cast<std::size_t>(count));
}

TEST_F(DrawingQueueTest, AnExistingScriptStaysUntilTheUserWantsItReplaced) {
  queue.add(draw("a.dxf"));
  folder.write("a.scr", "mine");
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Skipped);
  EXPECT_EQ(
      result(0).message,
      folder.file("a.scr") + " exists already. \"Replace existing scripts\" replaces the file.");
  EXPECT_EQ(folder.read("a.scr"), "mine");
  replace = true;
  queue.retry();
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done);
  EXPECT_NE(folder.read("a.scr"), "mine");
}

TEST_F(DrawingQueueTest, WhatCannotBeConvertedFailsWithItsReasonAndTheOthersGoOn) {
  folder.write("empty.dxf", "");
  makeFolder("none");
  queue.add(folder.file("empty.dxf"));
  queue.add(folder.file("missing.dxf"));
  queue.add(folder.file("none"));
  queue.add(draw("a.dxf"));
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_TRUE(result(0).message.starts_with(folder.file("empty.dxf"))) << result(0).message;
  EXPECT_EQ(result(1).state, EntryState::Failed);
  EXPECT_TRUE(result(1).message.starts_with(folder.file("missing.dxf"))) << result(1).message;
  EXPECT_EQ(result(2).message,
            folder.file("none") + " contains no DXF file. Please specify another folder.");
  EXPECT_EQ(result(3).state, EntryState::Done);
  EXPECT_EQ(queue.counts().failed, 3U);
  EXPECT_EQ(queue.counts().repeatable(), 3U);
}

TEST_F(DrawingQueueTest, SpeaksTheLanguageOfTheRun) {
  makeFolder("leer");
  queue.add(folder.file("leer"));
  surroundings.languageOffset = texts::kGerman;
  runAll();
  EXPECT_EQ(result(0).message,
            folder.file("leer") + " enthält keine DXF-Datei. Bitte einen anderen Ordner angeben.");
}

TEST_F(DrawingQueueTest, CountsWhatGetsLostAndTellsWarnings) {
  testing::DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  dxf.entity("HATCH", {{8, "0"}}).entity("HATCH", {{8, "0"}});
  queue.add(folder.write("a.dxf", dxf.text()));
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done);
  EXPECT_EQ(result(0).losses, 2U);
  EXPECT_EQ(queue.counts().losses, 2U);
  EXPECT_EQ(result(0).message, folder.file("a.dxf") + ": Not recognised and left out: HATCH 2");
}

TEST_F(DrawingQueueTest, ALimitEndsItsDrawingWithAMessage) {
  queue.add(draw("a.dxf"));
  surroundings.limits.lines = 6;
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_EQ(result(0).message,
            folder.file("a.dxf") +
                ": The script has reached the limit of 6 lines. The script is not kept. Please "
                "convert the drawing in the window, which asks whether to continue.");
  EXPECT_FALSE(folder.has("a.scr"));
}

TEST_F(DrawingQueueTest, ACancelledDrawingIsConvertedAgainWithoutAskingForItsOwnScript) {
  queue.add(draw("a.dxf"));
  queue.add(draw("b.dxf"));
  watch.cancelled = [] { return true; };
  runNext();
  EXPECT_EQ(result(0).state, EntryState::Cancelled);
  EXPECT_TRUE(folder.has("a.scr"));
  EXPECT_EQ(result(1).state, EntryState::Waiting);
  watch = {};
  queue.retry();
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
}

TEST_F(DrawingQueueTest, AFaultOfTheProgramEndsItsDrawingAlone) {
  queue.add(draw("a.dxf"));
  queue.add(draw("b.dxf"));
  watch.progress = [](int) { throw std::logic_error("broken"); };
  EXPECT_THROW(runNext(), std::logic_error);
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_EQ(result(0).message, "Unknown error");
  EXPECT_EQ(queue.running(), std::nullopt);
  watch = {};
  runAll();
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
}

TEST_F(DrawingQueueTest, AFolderInPlaceOfAScriptIsAFailure) {
  queue.add(draw("a.dxf"));
  makeFolder("a.scr");
  replace = true;
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_NE(result(0).message, "");
}

TEST_F(DrawingQueueTest, TheRunningEntryStaysWhileOthersAreAddedAndRemoved) {
  for (const char* const name : {"a.dxf", "b.dxf", "c.dxf"}) queue.add(draw(name));
  const texts::Texts texts(texts::kEnglish);
  runNext();
  const auto begun = queue.begin(job, replace, texts);
  ASSERT_TRUE(begun);
  EXPECT_EQ(begun->dxfFile, folder.file("b.dxf"));
  EXPECT_EQ(queue.running(), 1U);
  EXPECT_FALSE(queue.remove(1));
  EXPECT_TRUE(queue.remove(0));
  EXPECT_EQ(queue.running(), 0U);
  queue.add(draw("d.dxf"));
  QueueResult result;
  result.state = EntryState::Done;
  queue.finish(result);
  EXPECT_EQ(queue.running(), std::nullopt);
  EXPECT_EQ(names(), (Strings{"b.dxf", "c.dxf", "d.dxf"}));
  EXPECT_EQ(queue.entries()[0].result.state, EntryState::Done);
  EXPECT_EQ(queue.counts().waiting, 2U);
}

TEST_F(DrawingQueueTest, TellsItsProgress) {
  testing::DxfBuilder dxf;  // with every section: a missing one rewinds the file
  dxf.header("$LTSCALE", 40, "1").layer("0").beginBlock("A").endBlock();
  for (int i = 0; i < 2000; ++i) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  queue.add(folder.write("a.dxf", dxf.text()));
  int last = -1;
  watch.progress = [&last](int percent) {
    EXPECT_GE(percent, last);
    last = percent;
  };
  runAll();
  EXPECT_EQ(last, 100);
}

}  // namespace
}  // namespace quillon::batch

// Entries of a queue that only some systems have: pipes, links, and files without rights.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/drawing_files.h"
#include "batch/drawing_queue.h"
#include "platform.h"
#include "support/conversion.h"
#include "support/dxf_builder.h"

namespace quillon::batch {
namespace {

namespace fs = std::filesystem;

class QueuedFilesTest : public ::testing::Test {
 protected:
  std::string draw(const std::string& name) const {
    return folder.write(name, testing::DxfBuilder().text());
  }
  void runAll() {
    while (queue.runNext({}, false, testing::fixedSurroundings())) continue;
  }
  const QueueResult& result(std::size_t index) const { return queue.entries().at(index).result; }

  testing::TempFolder folder;
  DrawingQueue queue;
};

TEST_F(QueuedFilesTest, ADrawingThatDiffersFromAnotherByItsCaseHasItsOwnScript) {
  draw("a.dxf");
  draw("A.DXF");
  draw("a.DXF");
  EXPECT_EQ(queue.add(folder.file("")), 3U);
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;  // A.DXF
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
  EXPECT_EQ(result(2).state, EntryState::Failed);
}

TEST_F(QueuedFilesTest, APipeIsRefused) {
  ASSERT_TRUE(testing::makePipe(folder.file("p.dxf")));
  EXPECT_EQ(queue.add(folder.file("")), 1U);
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_EQ(result(0).message,
            folder.file("p.dxf") +
                " is not a regular file. Please convert a copy of its contents in a file.");
}

TEST_F(QueuedFilesTest, APipeTakesNoScriptFromADrawing) {
  ASSERT_TRUE(testing::makePipe(folder.file("a.DXF")));
  EXPECT_EQ(queue.add(folder.file("a.DXF")), 1U);
  draw("a.dxf");
  EXPECT_EQ(queue.add(folder.file("a.dxf")), 1U);
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_EQ(result(1).state, EntryState::Done) << result(1).message;
}

TEST_F(QueuedFilesTest, ALinkStandsForItsDrawingAndABrokenOneFails) {
  draw("a.dxf");
  fs::create_symlink("a.dxf", folder.path() / "b.dxf");
  fs::create_symlink("nowhere", folder.path() / "c.dxf");
  EXPECT_EQ(queue.add(folder.file("")), 2U);
  runAll();
  EXPECT_EQ(result(0).state, EntryState::Done) << result(0).message;
  EXPECT_EQ(result(1).state, EntryState::Failed);
  EXPECT_TRUE(result(1).message.starts_with(folder.file("c.dxf"))) << result(1).message;
}

TEST_F(QueuedFilesTest, ALinkToAFolderAboveIsNotFollowed) {
  draw("a.dxf");
  fs::create_directory_symlink(".", folder.path() / "loop");
  EXPECT_EQ(drawingsIn(folder.path(), true).drawings.size(), 1U);
}

TEST_F(QueuedFilesTest, WhatCannotBeReadFails) {
  draw("a.dxf");
  fs::permissions(folder.path() / "a.dxf", fs::perms::none);
  fs::create_directory(folder.path() / "closed");
  fs::permissions(folder.path() / "closed", fs::perms::none);
  {
    const testing::Unprivileged user;
    queue.add(folder.file("a.dxf"));
    queue.add(folder.file("closed"));
    runAll();
  }
  EXPECT_EQ(result(0).state, EntryState::Failed);
  EXPECT_NE(result(0).message.find("Permission denied"), std::string::npos) << result(0).message;
  EXPECT_EQ(result(1).state, EntryState::Failed);
  EXPECT_NE(result(1).message.find("Permission denied"), std::string::npos) << result(1).message;
  fs::permissions(folder.path() / "closed", fs::perms::owner_all);
}

}  // namespace
}  // namespace quillon::batch

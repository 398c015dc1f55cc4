#include "shared_folder.h"

#include <gtest/gtest.h>

#include "convert/layer_file.h"
#include "convert/script_frame.h"

namespace quillon::convert {
namespace {

using SharedFolderTest = testing::SharedFolderTest;

TEST_F(SharedFolderTest, LayerAndFrameFilesAreNotWrittenThroughLinksOfOthers) {
  link(at("mine.lay"), "shared/a.lay", testing::kOther);
  link(at("mine.cfh"), "shared/a.cfh", testing::kOther);
  EXPECT_THROW(saveLayerRows(folder.file("shared/a.lay"), {{"A", "1"}}), files::WriteError);
  FrameSource frame;
  frame.path = folder.file("shared/a.cfh");
  frame.create = true;
  EXPECT_THROW(loadFrame(frame), files::WriteError);
  EXPECT_FALSE(folder.has("mine.lay"));
  EXPECT_FALSE(folder.has("mine.cfh"));
}

}  // namespace
}  // namespace quillon::convert

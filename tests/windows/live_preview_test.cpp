#include "windows/live_preview.h"

#include "windows/scarce_memory.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class LivePreviewTest : public WindowTest {
 protected:
  bool wait() {
    return QTest::qWaitFor([this] { return !live.isBusy(); }, 10000 * testing::patience());
  }

  LivePicture picture;
  LivePreview live{[this](const LivePicture& shown) { picture = shown; }};
};

TEST_F(LivePreviewTest, GoesOnAfterNotEvenAMessageWasPossible) {
  constexpr std::size_t kLong = 2000;
  convert::ConversionJob job;
  job.literalPaths = true;
  job.dxfFile = folder.file("");
  while (job.dxfFile.size() < kLong) job.dxfFile += "./";
  job.dxfFile += "a.dxf";
  writeDrawing("a.dxf");
  {
    const ScarceMemory scarce(kLong);
    live.want(job, {});
    EXPECT_TRUE(live.isBusy());
    EXPECT_TRUE(wait());
  }
  EXPECT_EQ(picture.path, "");
  live.again();
  EXPECT_TRUE(wait());
  EXPECT_EQ(picture.path, job.dxfFile);
  EXPECT_NE(picture.differences, nullptr) << picture.failure;
}

}  // namespace
}  // namespace quillon::windows

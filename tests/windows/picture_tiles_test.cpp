#include "windows/picture_tiles.h"

#include <QPainter>

#include "windows/picture_fixture.h"

namespace quillon::windows {
namespace {

class PictureTilesTest : public ::testing::Test {
 protected:
  /// Many short lines, so that painting takes its time.
  static std::shared_ptr<const PictureContent> crowd(int lines) {
    Sheet sheet;
    sheet.layer(1);
    for (int i = 0; i < lines; ++i) {
      const double x = i % 1000;
      const double y = (i / 1000.0) * 7.0;
      sheet.line({x, y}, {x + 3.0, y + 2.0});
    }
    auto content = std::make_shared<PictureContent>();
    content->scenes.result = sheet.scene();
    return content;
  }
  static PictureViewport viewOf(const PictureContent& content, QSize size) {
    PictureViewport view;
    view.resize(size);
    view.setDrawing(content.scenes.result->bounds());
    view.fit();
    return view;
  }
  bool waitUntilComplete() {
    tiles.onPainted = [this] { tiles.want(view); };
    return QTest::qWaitFor([this] { return tiles.isComplete(); }, 20000 * testing::patience());
  }

  PictureViewport view;
  PictureTiles tiles;
};

TEST_F(PictureTilesTest, PaintWhatIsWantedLast) {
  const auto content = crowd(20000);
  tiles.setContent(content, false);
  view = viewOf(*content, {900, 700});
  for (int i = 0; i < 30; ++i) {
    view.zoom(i % 7 * 50, {100.0, 100.0});
    tiles.want(view);
  }
  EXPECT_TRUE(waitUntilComplete());
}

TEST_F(PictureTilesTest, ComingBackToAScaleWhilePaintingCompletesIt) {
  const auto content = crowd(50000);
  tiles.setContent(content, false);
  view = viewOf(*content, {900, 700});
  for (int i = 0; i < 20; ++i) {
    tiles.want(view);
    QTest::qWait(1);
    PictureViewport other = view;
    other.zoom(10, {0.0, 0.0});
    tiles.want(other);
    tiles.want(view);
  }
  EXPECT_TRUE(waitUntilComplete());
}

TEST_F(PictureTilesTest, PanningPaintsNothingAgain) {
  const auto content = crowd(1000);
  tiles.setContent(content, false);
  view = viewOf(*content, {900, 700});
  tiles.want(view);
  ASSERT_TRUE(waitUntilComplete());
  view.pan({-600.0, 0.0});
  tiles.want(view);
  ASSERT_TRUE(waitUntilComplete());
  view.pan({600.0, 0.0});
  tiles.want(view);
  EXPECT_TRUE(tiles.isComplete());
}

TEST_F(PictureTilesTest, TakeBoundedMemory) {
  const auto content = crowd(10);
  tiles.setContent(content, false);
  view = viewOf(*content, {1200, 1000});
  std::size_t most = 0;
  for (int i = 0; i < 40; ++i) {
    view.pan({-1200.0, 0.0});
    tiles.want(view);
    ASSERT_TRUE(waitUntilComplete());
    most = std::max(most, tiles.bytes());
  }
  EXPECT_GT(most, PictureTiles::kMostBytes / 2);
  EXPECT_LE(most, PictureTiles::kMostBytes);
}

TEST_F(PictureTilesTest, EndWhilePaintingWithoutTheRest) {
  Sheet sheet;
  sheet.layer(1);
  constexpr int kLines = 20000;
  for (int i = 0; i < kLines; ++i) sheet.line({0.0, i * 1.0}, {kLines * 1.0, kLines - i * 1.0});
  const auto content = std::make_shared<PictureContent>();
  content->scenes.result = sheet.scene();
  view = viewOf(*content, {1800, 1400});
  const auto secondsOf = [](const auto& run) {
    const double before = testing::processorSeconds();
    run();
    return testing::processorSeconds() - before;
  };
  const double whole = secondsOf([&] {
    tiles.setContent(content, false);
    tiles.want(view);
    ASSERT_TRUE(waitUntilComplete());
  });
  double endings = 0.0;
  for (int i = 0; i < 10; ++i) {
    auto others = std::make_unique<PictureTiles>();
    others->setContent(content, false);
    others->want(view);
    QTest::qWait(i);
    endings += secondsOf([&] { others.reset(); });
  }
  EXPECT_LT(endings, whole / 2.0);
}

TEST_F(PictureTilesTest, ALargeDrawingIsSharpSoon) {
  constexpr int kLines = 100000;
  const auto content = crowd(kLines);
  const double seconds = testing::leastSeconds([&] {
    tiles.setContent(std::make_shared<const PictureContent>(*content), false);
    view = viewOf(*content, {1200, 900});
    tiles.want(view);
    ASSERT_TRUE(waitUntilComplete());
  });
  EXPECT_LT(seconds, 2.0 * testing::patience());
}

}  // namespace
}  // namespace quillon::windows

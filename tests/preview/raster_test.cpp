#include "preview/raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quillon::preview {
namespace {

using geometry::Point;

constexpr std::uint32_t kWhite = 0xFFFFFFFFU;
constexpr std::uint32_t kBlack = 0xFF000000U;

struct RasterTest : ::testing::Test {
  static constexpr int kWidth = 20;
  static constexpr int kHeight = 10;
  static constexpr std::size_t kStride = 24;

  static constexpr std::size_t kGuard = 3 * kStride;  ///< above and below the picture

  std::vector<std::uint32_t> pixels =
      std::vector<std::uint32_t>(kStride * kHeight + 2 * kGuard, kWhite);
  Raster raster{pixels.data() + kGuard, kStride, kWidth, kHeight};

  /// 0 for white to 1 for black.
  double ink(int x, int y) const {
    const std::uint32_t pixel =
        pixels[kGuard + static_cast<std::size_t>(y) * kStride + static_cast<std::size_t>(x)];
    return 1.0 - static_cast<double>(pixel & 0xFFU) / 255.0;
  }
  double allInk() const {
    double sum = 0.0;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) sum += ink(x, y);
    }
    return sum;
  }
};

TEST_F(RasterTest, ALineThroughMiddlesOfPixelsIsSharp) {
  raster.line({3.5, 4.5}, {12.5, 4.5}, 1.0, kBlack);
  for (int x = 4; x < 12; ++x) {
    EXPECT_GT(ink(x, 4), 0.99) << x;
    EXPECT_EQ(ink(x, 3), 0.0) << x;
    EXPECT_EQ(ink(x, 5), 0.0) << x;
  }
  EXPECT_EQ(ink(1, 4), 0.0);
  EXPECT_EQ(ink(14, 4), 0.0);
}

TEST_F(RasterTest, ALineBetweenPixelsSharesItsInk) {
  raster.line({6.25, 1.0}, {6.25, 9.0}, 1.0, kBlack);
  EXPECT_NEAR(ink(6, 5), 0.75, 0.01);
  EXPECT_NEAR(ink(5, 5), 0.25, 0.01);
}

TEST_F(RasterTest, LinesHaveTheirWidthInAllDirections) {
  raster.line({2.0, 1.0}, {9.0, 8.0}, 2.0, kBlack);
  const double length = std::hypot(7.0, 7.0) + 1.0;
  EXPECT_NEAR(allInk(), 2.0 * length, 0.1 * length);
}

TEST_F(RasterTest, DirectionMakesNoDifference) {
  raster.line({2.2, 1.3}, {15.0, 6.0}, 1.0, kBlack);
  const std::vector<std::uint32_t> there = pixels;
  pixels.assign(pixels.size(), kWhite);
  raster.line({15.0, 6.0}, {2.2, 1.3}, 1.0, kBlack);
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    EXPECT_NEAR(static_cast<double>(pixels[i] & 0xFFU), static_cast<double>(there[i] & 0xFFU), 1.0);
  }
}

TEST_F(RasterTest, LinesThatMeetLeaveNoGap) {
  for (double x = 1.0; x < 19.0; x += 1.7) {
    raster.line({x, 4.5}, {std::min(x + 1.7, 19.0), 4.5}, 1.0, kBlack);
  }
  for (int x = 1; x < 19; ++x) EXPECT_GT(ink(x, 4), 0.9) << x;
}

TEST_F(RasterTest, NothingIsDrawnOutside) {
  raster.line({-1e12, -1e12}, {1e12, 1e12}, 1.0, kBlack);
  raster.line({-50.0, 30.0}, {50.0, 30.0}, 3.0, kBlack);
  raster.dot({-1.0, 5.0}, 1.0, kBlack);
  raster.dot({std::numeric_limits<double>::quiet_NaN(), 5.0}, 1.0, kBlack);
  raster.dot({19.9, 9.9}, 3.0, kBlack);
  raster.line({5.0, -50.0}, {5.0, 50.0}, 3.0, kBlack);
  raster.line({0.0, -0.4}, {19.0, -0.4}, 1.5, kBlack);
  raster.line({0.0, 10.4}, {19.0, 10.4}, 1.5, kBlack);
  raster.dot({5.0, -1.0}, 3.0, kBlack);
  raster.dot({5.0, 11.0}, 3.0, kBlack);
  EXPECT_GT(ink(5, 5), 0.5);
  EXPECT_GT(ink(10, 0), 0.1);
  EXPECT_GT(ink(10, 9), 0.1);
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    const bool isInRows = i >= kGuard && i < kGuard + kStride * kHeight;
    if (isInRows && i % kStride < kWidth) continue;
    EXPECT_EQ(pixels[i], kWhite) << i;
  }
}

TEST_F(RasterTest, ADotIsASquareOfItsWidth) {
  raster.dot({5.2, 5.2}, 1.0, kBlack);
  EXPECT_EQ(allInk(), 1.0);
  EXPECT_EQ(ink(5, 5), 1.0);
  raster.dot({12.5, 5.5}, 3.0, kBlack);
  EXPECT_EQ(allInk(), 10.0);
  EXPECT_EQ(ink(11, 4), 1.0);
  EXPECT_EQ(ink(13, 6), 1.0);
}

TEST(ClipLine, KeepsThePartWithin) {
  Point from{-10.0, 5.0};
  Point to{30.0, 5.0};
  EXPECT_TRUE(clipLine(from, to, 20.0, 10.0, 1.0));
  EXPECT_EQ(from, (Point{-1.0, 5.0}));
  EXPECT_EQ(to, (Point{21.0, 5.0}));
  from = {-10.0, 0.0};
  to = {0.0, 30.0};
  EXPECT_FALSE(clipLine(from, to, 20.0, 10.0, 1.0));
}

}  // namespace
}  // namespace quillon::preview

#include "windows/picture_viewport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillon::windows {
namespace {

using geometry::Box;
using geometry::Point;

PictureViewport fitted(const Box& drawing, QSize size = {800, 600}) {
  PictureViewport view;
  view.resize(size);
  view.setDrawing(drawing);
  view.fit();
  return view;
}

bool sees(const PictureViewport& view, Point mm) {
  const Point pixel = view.plane().pixel(mm);
  return pixel.x >= 0.0 && pixel.y >= 0.0 && pixel.x <= view.size().width() &&
         pixel.y <= view.size().height();
}

TEST(PictureViewport, FitsDrawingsOfAllSizesAndPlaces) {
  for (const double size : {1e-4, 1.0, 5e3, 1e11}) {
    for (const double distant : {0.0, 1.0, -1e3}) {
      const Point low{distant * size, -distant * size};
      const Box box{low, {low.x + size, low.y + size / 7.0}};
      const PictureViewport view = fitted(box);
      EXPECT_TRUE(sees(view, box.low)) << size;
      EXPECT_TRUE(sees(view, box.high)) << size;
      EXPECT_GT(view.plane().scale * size, 600.0) << size;
    }
  }
}

TEST(PictureViewport, ADotOrNothingHasAViewToo) {
  EXPECT_TRUE(sees(fitted({}), {0.0, 0.0}));
  EXPECT_TRUE(sees(fitted({{5.0, 5.0}, {5.0, 5.0}}), {5.0, 5.0}));
}

TEST(PictureViewport, CornersAreAtWholePixels) {
  PictureViewport view = fitted({{0.0, 0.0}, {123.4, 56.7}}, {801, 599});
  for (int i = 0; i < 20; ++i) {
    view.zoom(77, {13.3, 400.7});
    view.pan({0.4, -3.6});
    EXPECT_EQ(view.plane().left, std::floor(view.plane().left));
    EXPECT_EQ(view.plane().top, std::floor(view.plane().top));
  }
}

TEST(PictureViewport, ZoomingInAndOutComesBackToTheSameScale) {
  PictureViewport view = fitted({{0.0, 0.0}, {100.0, 100.0}});
  const double scale = view.plane().scale;
  for (int i = 0; i < 9; ++i) view.zoom(100, {1.0, 1.0});
  for (int i = 0; i < 9; ++i) view.zoom(-100, {700.0, 1.0});
  EXPECT_EQ(view.plane().scale, scale);
}

TEST(PictureViewport, ScalesHaveLimits) {
  for (const double size : {1e-3, 100.0, 1e11}) {
    PictureViewport view = fitted({{0.0, 0.0}, {size, size}});
    view.zoom(1'000'000, {400.0, 300.0});
    const PicturePlane plane = view.plane();
    // Neighbouring pixels are different places.
    EXPECT_NE(plane.millimetres({400.0, 0.0}).x, plane.millimetres({401.0, 0.0}).x);
    view.zoom(-1'000'000, {400.0, 300.0});
    EXPECT_GT(view.plane().scale * size, 20.0);
  }
}

}  // namespace
}  // namespace quillon::windows

// What a picture shows.
#include "windows/picture_view.h"

#include <QPainter>

#include "preview/scene_colours.h"
#include "windows/picture_fixture.h"

namespace quillon::windows {
namespace {

class PictureViewTest : public PictureTest {
 protected:
  /// A frame of 100 by 60 millimetres on layer 20, and a bar on layer 1.
  static Sheet plate() {
    Sheet sheet;
    sheet.layer(20).line({0.0, 0.0}, {100.0, 0.0}).line({100.0, 0.0}, {100.0, 60.0});
    sheet.line({100.0, 60.0}, {0.0, 60.0}).line({0.0, 60.0}, {0.0, 0.0});
    sheet.layer(1).line({20.0, 30.0}, {80.0, 30.0}, 10.0);
    return sheet;
  }
};

TEST_F(PictureViewTest, NothingIsAPictureToo) {
  waitUntilSharp();
  EXPECT_EQ(colourAt({50.0, 50.0}), background());
  view.setScenes({});
  view.setMode(PictureView::Mode::Both);
  show(Sheet());
  EXPECT_EQ(colourAt({50.0, 50.0}), background());
}

TEST_F(PictureViewTest, LayersHaveTheirColoursInBothThemes) {
  show(plate());
  for (const preview::Theme theme : {preview::Theme::Light, preview::Theme::Dark}) {
    view.setTheme(theme);
    waitUntilSharp();
    EXPECT_EQ(colourAt({50.0, 30.0}), layerColour(1));
    EXPECT_EQ(colourAt({50.0, 34.0}), layerColour(1));
    EXPECT_EQ(colourAt({50.0, 36.0}), background());
    EXPECT_EQ(colourAt({50.0, 50.0}), background());
    EXPECT_GT(count(layerColour(20)), 200);
  }
}

TEST_F(PictureViewTest, EverythingIsInSightAtFirst) {
  show(plate());
  const QRectF inside = QRectF(view.rect()).adjusted(5, 5, -5, -5);
  EXPECT_TRUE(inside.contains(view.pixelOf({0.0, 0.0})));
  EXPECT_TRUE(inside.contains(view.pixelOf({100.0, 60.0})));
  EXPECT_GT(view.scale() * 100.0, 0.7 * view.width());
  EXPECT_GT(view.pixelOf({0.0, 0.0}).y(), view.pixelOf({0.0, 60.0}).y());
}

TEST_F(PictureViewTest, HiddenLayersAreNotShown) {
  show(plate());
  view.setLayerVisible(1, false);
  EXPECT_FALSE(view.isLayerVisible(1));
  waitUntilSharp();
  EXPECT_EQ(colourAt({50.0, 30.0}), background());
  view.setLayerVisible(1, true);
  waitUntilSharp();
  EXPECT_EQ(colourAt({50.0, 30.0}), layerColour(1));
}

TEST_F(PictureViewTest, AreasArcsAndCurvesAreFilledAndRound) {
  Sheet sheet;
  sheet.layer(21).square({0.0, 0.0}, 20.0);
  sheet.layer(1).line({60.0, 20.0}, {60.0, 40.0}, 4.0, -180.0);  // to the left
  show(sheet);
  EXPECT_EQ(colourAt({10.0, 10.0}), layerColour(21));
  EXPECT_EQ(colourAt({21.0, 10.0}), background());
  EXPECT_EQ(colourAt({50.0, 30.0}), layerColour(1));
  EXPECT_EQ(colourAt({60.0, 30.0}), background());
}

TEST_F(PictureViewTest, ModesShowTheDrawingTheResultOrBothWithTheirDifferences) {
  const Sheet bar = plate();
  Sheet drawing;
  drawing.layer(5).line({0.0, 50.0}, {100.0, 50.0}, 4.0);
  auto differences = std::make_shared<preview::Differences>();
  differences->onlyDrawing =
      preview::DifferenceSide({{{10.0, 50.0}, {20.0, 50.0}}}, 0, geometry::StopCheck());
  differences->onlyResult =
      preview::DifferenceSide({{{30.0, 30.0}, {40.0, 30.0}}}, 0, geometry::StopCheck());
  view.setScenes({bar.scene(), drawing.scene(), differences});
  const auto seen = [&](QPointF at) {
    const QPointF sharp = view.millimetresOf(view.pixelOf(at));
    return colourAt(sharp);
  };
  const preview::Theme theme = view.theme();
  waitUntilSharp();
  EXPECT_EQ(seen({60.0, 50.0}), background());
  EXPECT_EQ(seen({60.0, 30.0}), layerColour(1));
  view.setMode(PictureView::Mode::Drawing);
  waitUntilSharp();
  EXPECT_EQ(seen({60.0, 50.0}), toQt(preview::drawingColour(theme)));
  EXPECT_EQ(seen({60.0, 30.0}), background());
  view.setMode(PictureView::Mode::Both);
  waitUntilSharp();
  EXPECT_EQ(seen({60.0, 50.0}), toQt(preview::paleDrawingColour(theme)));
  EXPECT_EQ(seen({60.0, 30.0}), layerColour(1));
  // At least two pixels wide: 10 mm long at some three pixels each.
  EXPECT_GE(count(toQt(preview::onlyDrawingColour(theme))), 40);
  EXPECT_GE(count(toQt(preview::onlyResultColour(theme))), 40);
}

TEST_F(PictureViewTest, WhatIsNotShownLeavesThePictureAsItIs) {
  const auto result = plate().scene();
  view.setScenes({result, nullptr, nullptr});
  view.showPlace({50.0, 30.0});
  waitUntilSharp();
  const int marked = count(toQt(preview::markColour(view.theme())));
  EXPECT_GT(marked, 20);
  view.setScenes({result, nullptr, nullptr});
  EXPECT_TRUE(view.isSharp());
  view.setScenes({result, plate().scene(), nullptr});
  EXPECT_TRUE(view.isSharp());
  view.setScenes({result, view.scenes().drawing, std::make_shared<preview::Differences>()});
  EXPECT_TRUE(view.isSharp());
  EXPECT_EQ(count(toQt(preview::markColour(view.theme()))), marked);
  view.setScenes({plate().scene(), nullptr, nullptr});
  EXPECT_FALSE(view.isSharp());
  EXPECT_EQ(count(toQt(preview::markColour(view.theme()))), 0);
}

TEST_F(PictureViewTest, ADistanceStaysUntilThereIsAnotherResult) {
  const auto result = plate().scene();
  view.setScenes({result, nullptr, nullptr});
  view.setMeasuring(true);
  for (const QPointF place : {QPointF(10.0, 10.0), QPointF(80.0, 10.0)}) {
    QTest::mouseClick(&view, Qt::LeftButton, {}, pixel(place));
  }
  EXPECT_TRUE(view.isMeasured());
  view.setScenes({result, plate().scene(), nullptr});
  EXPECT_TRUE(view.isMeasured());
  view.setScenes({plate().scene(), nullptr, nullptr});
  EXPECT_FALSE(view.isMeasured());
}

TEST_F(PictureViewTest, OldTilesServeUntilSharpOnesAreThere) {
  show(plate());
  view.zoomBy(1.5, view.pixelOf({50.0, 30.0}));
  EXPECT_FALSE(view.isSharp());
  EXPECT_EQ(colourAt({50.0, 30.0}), layerColour(1));
  EXPECT_EQ(colourAt({50.0, 45.0}), background());
}

TEST_F(PictureViewTest, ANewSizeShowsEverythingAgainUnlessTheUserZoomed) {
  show(plate());
  const double before = view.scale();
  view.resize(800, 600);
  EXPECT_NEAR(view.scale(), 2.0 * before, 0.05 * before);
  view.zoomBy(3.0, {400.0, 300.0});
  const double zoomed = view.scale();
  const QPointF middle = view.millimetresOf({400.0, 300.0});
  view.resize(400, 300);
  EXPECT_EQ(view.scale(), zoomed);
  expectNear(view.millimetresOf({200.0, 150.0}), middle, 1.5 / zoomed);
}

TEST_F(PictureViewTest, NewScenesKeepTheUsersView) {
  show(plate());
  view.zoomBy(3.0, {100.0, 100.0});
  const double zoomed = view.scale();
  show(plate());
  EXPECT_EQ(view.scale(), zoomed);
}

TEST_F(PictureViewTest, EaglesLimitsAreDashedWhereTheyAreInSight) {
  Sheet sheet;
  sheet.layer(1).line({800.0, 0.0}, {900.0, 60.0});
  show(sheet);
  const QColor note = toQt(preview::noteColour(view.theme()));
  const QImage image = view.grab().toImage();
  const double ratio = image.devicePixelRatio();
  const int edge = static_cast<int>(std::floor(view.pixelOf({838.86, 0.0}).x() * ratio));
  int dashes = 0;
  int gaps = 0;
  for (int y = image.height() / 5; y < image.height() * 4 / 5; ++y) {
    bool isNote = false;
    for (int x = edge - 2; x <= edge + 2; ++x) isNote = isNote || image.pixelColor(x, y) == note;
    ++(isNote ? dashes : gaps);
  }
  EXPECT_GT(dashes, 50);
  EXPECT_GT(gaps, 50);
}

TEST_F(PictureViewTest, TheOriginHasACross) {
  Sheet sheet;
  sheet.layer(1).line({-50.0, -50.0}, {-50.0, 50.0}).line({50.0, -50.0}, {50.0, 50.0});
  show(sheet);
  EXPECT_EQ(colourAt({0.0, 0.0}), toQt(preview::noteColour(view.theme())));
}

TEST_F(PictureViewTest, HugeAndTinyCoordinatesAreShown) {
  for (const double size : {1e-3, 1e9}) {
    Sheet sheet;
    sheet.layer(1).line({0.0, 0.0}, {size, 0.0}).line({size / 2, 0.0}, {size / 2, size / 2});
    sheet.square({size / 4, size / 4}, size / 8);
    view.fit();
    show(sheet);
    EXPECT_EQ(colourAt({size * 5 / 16, size * 5 / 16}), layerColour(1)) << size;
    EXPECT_EQ(colourAt({size * 0.9, size * 0.4}), background()) << size;
  }
}

TEST_F(PictureViewTest, ZoomingInAsFarAsItGoesKeepsThePlace) {
  Sheet sheet;
  sheet.layer(1).line({0.0, 0.0}, {200.0, 100.0}, 5.0, 90.0);
  sheet.square({30.0, 80.0}, 1.0);
  show(sheet);
  const QPointF place(30.5, 80.5);
  view.showPlace(place);
  view.zoomBy(1e12, view.pixelOf(place));
  view.clearMark();
  waitUntilSharp();
  EXPECT_GT(view.scale(), 1e5);
  expectNear(view.millimetresOf({200.0, 150.0}), place, 1e-3);
  EXPECT_EQ(colourAt(place), layerColour(1));
  view.zoomBy(1e-12, {200.0, 150.0});
  waitUntilSharp();
  EXPECT_GT(view.scale() * 200.0, 10.0);
}

TEST_F(PictureViewTest, ImagesShowWhatIsInSight) {
  show(plate());
  const QColor bar = layerColour(1);
  const QImage all = view.toImage({500, 400}, 2.0);
  EXPECT_EQ(all.size(), QSize(1000, 800));
  EXPECT_EQ(all.pixelColor(500, 400), bar);
  EXPECT_EQ(all.pixelColor(500, 600), background());
  view.zoomBy(20.0, view.pixelOf({50.0, 30.0}));
  const QImage part = view.toImage({500, 400}, 1.0);
  EXPECT_EQ(part.pixelColor(250, 200), bar);
  EXPECT_EQ(part.pixelColor(20, 20), bar);
  EXPECT_TRUE(view.toImage({0, 0}, 1.0).isNull());
}

TEST_F(PictureViewTest, PrintsIntoARectangleInTheColoursOfAnyTheme) {
  show(plate());
  view.setTheme(preview::Theme::Dark);
  QImage paper(600, 600, QImage::Format_RGB32);
  paper.fill(Qt::yellow);
  QPainter painter(&paper);
  view.paintTo(painter, {100.0, 100.0, 400.0, 400.0}, preview::Theme::Light);
  painter.end();
  EXPECT_EQ(paper.pixelColor(300, 300), toQt(preview::colourOfLayer(1, preview::Theme::Light)));
  EXPECT_EQ(paper.pixelColor(300, 450), QColor(Qt::white));
  EXPECT_EQ(paper.pixelColor(50, 300), QColor(Qt::yellow));
  EXPECT_EQ(paper.pixelColor(300, 550), QColor(Qt::yellow));
}

TEST_F(PictureViewTest, FocusHasAFrame) {
  show(plate());
  view.clearFocus();
  const QColor frame = toQt(preview::markColour(view.theme()));
  EXPECT_EQ(view.grab().toImage().pixelColor(1, 150), background());
  view.activateWindow();
  view.setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.hasFocus(); }, 5000 * testing::patience()));
  EXPECT_EQ(view.grab().toImage().pixelColor(1, 150), frame);
}

}  // namespace
}  // namespace quillon::windows

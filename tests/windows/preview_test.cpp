// The main window shows what its settings come to, as they change.
#include <QComboBox>
#include <QFileInfo>
#include <QMenu>
#include <QTabWidget>

#include "files/paths.h"
#include "platform.h"
#include "windows/help_viewer.h"
#include "windows/opened_addresses.h"
#include "windows/preview_fixture.h"
#include "windows/window_state.h"

namespace quillon::windows {
namespace {

TEST_F(PreviewTest, WithoutADrawingItSaysWhatToDo) {
  start();
  EXPECT_EQ(labelText("labPreviewMessage"),
            "What EAGLE will draw appears here. Choose a DXF file or drag one into the window.");
  EXPECT_TRUE(labelText("labSize").isEmpty());
  EXPECT_TRUE(hints().isEmpty());
}

TEST_F(PreviewTest, ADroppedDrawingIsShown) {
  start();
  dropPlate();
  ASSERT_NE(picture().result, nullptr);
  EXPECT_EQ(labelText("labSize"), "2.54 x 2.032 mm (0.100 x 0.080 in)");  // 100 x 80 mil
  const auto* const layers = &find<QTreeWidget>(*window, "lstLayers");
  ASSERT_EQ(layers->topLevelItemCount(), 1);
  EXPECT_EQ(layers->topLevelItem(0)->text(0), "20 Dimension (B)");
  EXPECT_TRUE(labelText("labPreviewMessage").isEmpty());
}

TEST_F(PreviewTest, TheDrawingsUnitIsTakenByAButtonAlone) {
  start();
  dropPlate();
  EXPECT_EQ(window->settings().unit, base::Unit::Mil);
  EXPECT_EQ(hints().front(), "Unit named in the drawing: mm");
  takeHint("Unit named");
  EXPECT_EQ(window->settings().unit, base::Unit::Mm);
  EXPECT_EQ(labelText("labSize"), "100.0 x 80.0 mm (3.937 x 3.150 in)");
  EXPECT_NE(hints().value(0), "Unit named in the drawing: mm");
  EXPECT_EQ(labelText("labDrawingUnit"), "Unit named in the drawing: mm");
}

TEST_F(PreviewTest, ChangedRulesAreShownAtOnce) {
  start();
  dropPlate();
  const std::size_t classicArcs = picture().result->scene->segmentCount();
  auto& rules = find<QComboBox>(*window, "cboRules");
  QTest::keyClick(&rules, Qt::Key_Down);
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(window->settings().rules, "exact");
  EXPECT_TRUE(picture().result->result.exact.has_value());
  EXPECT_NE(picture().result->scene->segmentCount(), classicArcs);
  EXPECT_EQ(labelText("labSize"), "100.0 x 80.0 mm (3.937 x 3.150 in)");
}

TEST_F(PreviewTest, HintsAreOffersThatCanBeTakenAndUndone) {
  start();
  dropPlate();
  takeHint("1 closed outline would be filled.");
  EXPECT_EQ(window->settings().poly, 1);
  EXPECT_FALSE(hints().contains("1 closed outline would be filled."));
  takeHint("The exact rules would");
  EXPECT_EQ(window->settings().rules, "exact");
  click(*window, "btnUndo");
  EXPECT_NE(window->settings().rules, "exact");
  EXPECT_EQ(window->settings().poly, 1);
  ASSERT_TRUE(waitForPicture());
  QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window->settings().poly, 2);
  ASSERT_TRUE(waitForPicture());
  EXPECT_TRUE(hints().contains("1 closed outline would be filled."));
  EXPECT_FALSE(find<QToolButton>(*window, "btnUndo").isEnabled());
  expectSamePath(toQt(window->settings().dxfFile), path("plate.dxf"));
}

TEST_F(PreviewTest, TypedDigitsAreUndoneAsOne) {
  start();
  dropPlate();
  auto& scale = find<QLineEdit>(*window, "txtmasst");
  scale.selectAll();
  QTest::keyClicks(&scale, "12.5", Qt::NoModifier, 5);
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(labelText("labSize"), "31.75 x 25.4 mm (1.250 x 1.000 in)");
  click(*window, "btnUndo");
  EXPECT_EQ(scale.text(), "1.000");
}

TEST_F(PreviewTest, AChosenLossGoesToItsPlace) {
  start();
  dropPlate();
  auto& losses = find<QTreeWidget>(*window, "lstLosses");
  find<QTabWidget>(*window, "tabPreview").setCurrentIndex(2);
  ASSERT_GE(losses.topLevelItemCount(), 2);
  const double before = view().scale();
  QTest::mouseClick(losses.viewport(), Qt::LeftButton, {},
                    losses.visualItemRect(losses.topLevelItem(0)).center());
  EXPECT_GT(view().scale(), 2.0 * before);
  // Places are those of the result, which is in mil here.
  const QPointF middle = view().millimetresOf(QPointF(view().rect().center()));
  EXPECT_NEAR(middle.x(), 60.0 * 0.0254, 0.3);
  EXPECT_NEAR(middle.y(), 60.0 * 0.0254, 0.3);
  const QString text = labelText("labPreviewMessage");
  EXPECT_TRUE(text.startsWith("Not drawn, triangle: 1 SOLID on layer PLATE, first in line "))
      << fromQt(text);
}

TEST_F(PreviewTest, OpenEndsAreShownByTheirHint) {
  testing::DxfBuilder dxf;
  dxf.header("$INSUNITS", 70, "4");
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "50"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {10, "50"}, {20, "0"}, {11, "50"}, {21, "40"}});
  dxf.entity("LINE", {{8, "0"}, {10, "50"}, {20, "40"}, {11, "0"}, {21, "2"}});
  start();
  drop({toQt(folder.write("open.dxf", dxf.text()))});
  ASSERT_TRUE(waitForPicture());
  takeHint("Unit named");
  const double before = view().scale();
  takeHint("2 ends of outlines are open.");
  EXPECT_GT(view().scale(), 2.0 * before);
  EXPECT_LT(view().millimetresOf(QPointF(view().rect().center())).x(), 5.0);
}

TEST_F(PreviewTest, WhatIsOutsideIsMovedInside) {
  testing::DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "90000"}, {20, "0"}, {11, "90100"}, {21, "50"}});
  start();
  drop({toQt(folder.write("far.dxf", dxf.text()))});
  ASSERT_TRUE(waitForPicture());
  takeHint("Part of it is outside EAGLE's drawing area.");
  EXPECT_EQ(find<QLineEdit>(*window, "txtOffsetX").text(), "-90000");
  EXPECT_FALSE(picture().result->result.rangeWarning);
}

TEST_F(PreviewTest, TheLayerIsChangedInPlace) {
  start();
  dropPlate();
  find<QTabWidget>(*window, "tabPreview").setCurrentIndex(1);
  auto& list = find<QTreeWidget>(*window, "lstAssignment");
  ASSERT_EQ(list.topLevelItemCount(), 2);
  EXPECT_EQ(list.topLevelItem(1)->text(0), "HOLES");
  EXPECT_EQ(list.topLevelItem(1)->text(1), "(standard layer)");
  EXPECT_EQ(list.findChild<QComboBox*>(), nullptr);
  const QRect cell = list.visualRect(list.model()->index(1, 1));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell.center());
  auto* const entries = list.findChild<QComboBox*>();
  ASSERT_NE(entries, nullptr);
  entries->setCurrentIndex(entries->findText("45 Holes (B)"));
  Q_EMIT entries->activated(entries->currentIndex());
  ASSERT_TRUE(waitForPicture());
  expectSamePath(find<QLabel>(*window, "labLayerDatei").text(), path("plate.lay"));
  EXPECT_NE(folder.read("plate.lay").find("layernr=45"), std::string::npos);
  EXPECT_EQ(picture().result->scene->layers().size(), 2U);
  EXPECT_EQ(find<QTreeWidget>(*window, "lstLayers").topLevelItem(1)->text(0), "45 Holes (B)");
  expectSamePath(labelText("labAssignmentFile"), "Assignments in " + path("plate.lay"));
}

TEST_F(PreviewTest, ClosedPolylinesOfALayerBecomeAreasByAClickOrAKey) {
  folder.write("own.lay", "[1]\nlayername=PLATE\nlayernr=20\n");
  context.store.WriteIni("dxf", {{"layerfile", folder.file("own.lay")}, {"rules", "exact"}});
  start();
  dropPlate();
  find<QTabWidget>(*window, "tabPreview").setCurrentIndex(1);
  auto& list = find<QTreeWidget>(*window, "lstAssignment");
  EXPECT_EQ(list.headerItem()->text(2), "Areas");
  ASSERT_FALSE(list.isColumnHidden(2));
  EXPECT_EQ(list.topLevelItem(0)->data(2, Qt::CheckStateRole), Qt::Unchecked);
  EXPECT_FALSE(list.topLevelItem(1)->data(2, Qt::CheckStateRole).isValid());  // not assigned
  const QRect cell = list.visualRect(list.model()->index(0, 2));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    QPoint(cell.left() + 10, cell.center().y()));
  ASSERT_TRUE(waitForPicture());
  EXPECT_NE(folder.read("own.lay").find("areas=1"), std::string::npos);
  EXPECT_EQ(list.topLevelItem(0)->checkState(2), Qt::Checked);
  EXPECT_EQ(list.findChild<QComboBox*>(), nullptr);
  list.setCurrentItem(list.topLevelItem(0), 2);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space);
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(folder.read("own.lay").find("areas=1"), std::string::npos);
  QTest::keyClick(&list, Qt::Key_F2);
  EXPECT_NE(list.findChild<QComboBox*>(), nullptr);
}

TEST_F(PreviewTest, TheClassicRulesHaveNoChoiceOfAreas) {
  folder.write("own.lay", "[1]\nlayername=PLATE\nlayernr=20\n");
  context.store.WriteIni("dxf", {{"layerfile", folder.file("own.lay")}});
  start();
  dropPlate();
  EXPECT_TRUE(find<QTreeWidget>(*window, "lstAssignment").isColumnHidden(2));
}

TEST_F(PreviewTest, AFileThatCannotBeKeptIsLeftToTheEditor) {
  folder.write("own.lay", "[1]\nlayername=PLATE\nlayernr=700\n");
  context.store.WriteIni("dxf", {{"layerfile", folder.file("own.lay")}});
  start();
  dropPlate();
  auto& list = find<QTreeWidget>(*window, "lstAssignment");
  whenAsked(QMessageBox::Ok);
  list.topLevelItem(1)->setText(1, "45 Holes (B)");
  EXPECT_EQ(boxText, "The file " + path("own.lay") +
                         " has assignments that cannot be saved as they are. Please use the button "
                         "Layer Definition.");
}

TEST_F(PreviewTest, LayersAreHiddenAndStaySo) {
  start();
  dropPlate();
  auto& layers = find<QTreeWidget>(*window, "lstLayers");
  layers.topLevelItem(0)->setCheckState(0, Qt::Unchecked);
  EXPECT_FALSE(view().isLayerVisible(20));
  takeHint("Unit named");
  EXPECT_EQ(layers.topLevelItem(0)->checkState(0), Qt::Unchecked);
  EXPECT_FALSE(view().isLayerVisible(20));
}

TEST_F(PreviewTest, StartConvertsWhatIsShown) {
  start();
  dropPlate();
  find<QCheckBox>(*window, "chkReport").setChecked(false);
  takeHint("Unit named");
  click(*window, "befStart");
  EXPECT_TRUE(folder.has("plate.scr"));
  EXPECT_NE(folder.read("plate.scr").find("Grid mm"), std::string::npos);
}

TEST_F(PreviewTest, ViewsAreChosenByKeys) {
  start();
  dropPlate();
  QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(view().mode(), PictureMode::Both);
  EXPECT_GT(picture().differences->onlyDrawing.length(), 0.0);
  QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(view().mode(), PictureMode::Drawing);
  QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(view().mode(), PictureMode::Result);
  QTest::keyClick(window.get(), Qt::Key_M, Qt::ControlModifier);
  EXPECT_TRUE(view().isMeasuring());
  QTest::keyClick(&view(), Qt::Key_Escape);
  EXPECT_FALSE(find<QToolButton>(*window, "btnMeasure").isChecked());
}

TEST_F(PreviewTest, AMeasuredDistanceIsTold) {
  start();
  dropPlate();
  click(*window, "btnMeasure");
  const auto clickAt = [this](QPointF place) {
    QTest::mouseClick(&view(), Qt::LeftButton, {}, view().pixelOf(place).toPoint());
  };
  clickAt({0.127, 0.0});
  clickAt({2.413, 0.0});
  EXPECT_EQ(labelText("labPointer"), "Distance: 2.286 mm (90 mil), across 2.286 mm, up 0.0 mm");
}

TEST_F(PreviewTest, ThePointersPlaceIsTold) {
  start();
  dropPlate();
  takeHint("Unit named");
  QTest::mouseMove(&view(), view().pixelOf({50.0, 40.0}).toPoint());
  const auto told = [this] { return !labelText("labPointer").isEmpty(); };
  ASSERT_TRUE(QTest::qWaitFor(told, 5000 * testing::patience()));
  EXPECT_TRUE(labelText("labPointer").contains(" mm (")) << fromQt(labelText("labPointer"));
}

TEST_F(PreviewTest, ThePictureIsToldAsText) {
  start();
  dropPlate();
  EXPECT_TRUE(view().accessibleDescription().contains("Size: 2.54 x 2.032 mm"));
  EXPECT_TRUE(view().accessibleDescription().contains("Layer 20 Dimension (B), objects: 2"));
  EXPECT_EQ(view().accessibleName(), "Preview");
}

TEST_F(PreviewTest, ADrawingThatIsNoneSaysWhy) {
  start();
  drop({toQt(folder.write("a.dxf", std::string(64, '\0')))});
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(
      fromQt(labelText("labPreviewMessage")),
      folder.file("a.dxf") +
          " is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF file.");
  EXPECT_TRUE(labelText("labSize").isEmpty());
  EXPECT_EQ(modalWindows, 0);
}

TEST_F(PreviewTest, ADrawingTooLargeForMemoryHasNoPreview) {
  start();
  const std::string huge = folder.write("huge.dxf", plate().text());
  std::filesystem::resize_file(files::toPath(huge), (std::uint64_t{1} << 30) + 1);
  drop({toQt(huge)});
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(labelText("labPreviewMessage"),
            "The drawing is too large for the preview. It can be converted all the same.");
}

TEST_F(PreviewTest, APipeIsNotReadByThePreview) {
  start();
  const std::string pipe = folder.file("pipe.dxf");
  ASSERT_TRUE(testing::makePipe(pipe));
  drop({toQt(pipe)});
  EXPECT_TRUE(waitForPicture());
  EXPECT_EQ(labelText("labPreviewMessage"),
            "Pipes and devices have no preview. They can be converted all the same.");
  // Whoever reads it all the same waits for a writer, and the window for the end of that.
  const std::fstream writer(files::toPath(pipe), std::ios::in | std::ios::out);
}

TEST_F(PreviewTest, AnEmptyDrawingHasNothingToShow) {
  start();
  drop({toQt(folder.write("empty.dxf", testing::DxfBuilder().text()))});
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(labelText("labPreviewMessage"),
            "Nothing would be drawn. Please check the drawing and the assignment of its layers.");
}

/// A drawing in which someone changes something while it is shown.
class ChangedDrawingTest : public PreviewTest {
 protected:
  void start() {
    PreviewTest::start();
    dropPlate();
    takeHint("Unit named");
  }
  static std::string longerPlate() {
    testing::DxfBuilder longer = plate();
    longer.entity("LINE", {{8, "PLATE"}, {10, "0"}, {20, "0"}, {11, "200"}, {21, "0"}});
    return longer.text();
  }
  bool waitForSize(const QString& size) {
    const auto isShown = [&] { return labelText("labSize") == size; };
    return QTest::qWaitFor(isShown, 10000 * testing::patience());
  }
};

TEST_F(ChangedDrawingTest, WrittenAgainIsShownAgain) {
  start();
  folder.write("plate.dxf", longerPlate());
  EXPECT_TRUE(waitForSize("200.0 x 80.0 mm (7.874 x 3.150 in)")) << fromQt(labelText("labSize"));
}

TEST_F(ChangedDrawingTest, ReplacedByAnotherFileIsShownAgain) {
  start();
  std::filesystem::remove(folder.path() / "plate.dxf");
  EXPECT_TRUE(waitForSize("")) << fromQt(labelText("labSize"));
  EXPECT_TRUE(labelText("labPreviewMessage").contains("plate.dxf"))
      << fromQt(labelText("labPreviewMessage"));
  folder.write("new.dxf", longerPlate());
  std::filesystem::rename(folder.path() / "new.dxf", folder.path() / "plate.dxf");
  EXPECT_TRUE(waitForSize("200.0 x 80.0 mm (7.874 x 3.150 in)")) << fromQt(labelText("labSize"));
}

TEST_F(ChangedDrawingTest, ALayerFileThatAnotherProgramWritesCounts) {
  start();
  drop({toQt(folder.write("own.lay", "[1]\r\nlayername=PLATE\r\nlayernr=21\r\n"))});
  ASSERT_TRUE(waitForPicture());
  const auto has = [this](int layer) {
    return [this, layer] {
      const auto& layers = picture().result->scene->layers();
      return std::any_of(layers.begin(), layers.end(),
                         [layer](const auto& item) { return item.number() == layer; });
    };
  };
  ASSERT_TRUE(QTest::qWaitFor(has(21), 10000 * testing::patience()));
  folder.write("own.lay", "[1]\r\nlayername=PLATE\r\nlayernr=125\r\n");
  EXPECT_TRUE(QTest::qWaitFor(has(125), 10000 * testing::patience()));
}

TEST_F(PreviewTest, FoldsAwayAndBack) {
  start();
  dropPlate();
  click(*window, "btnPreview");
  EXPECT_FALSE(panel().isVisible());
  find<QComboBox>(*window, "cboUnit").setCurrentIndex(1);
  click(*window, "btnPreview");
  EXPECT_TRUE(panel().isVisible());
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(labelText("labSize"), "100.0 x 80.0 mm (3.937 x 3.150 in)");
}

TEST_F(PreviewTest, TheStateIsRememberedBesideTheSettings) {
  start();
  click(*window, "btnPreview");
  find<QToolButton>(*window, "btnUnfoldRules").setChecked(true);
  window->close();
  EXPECT_TRUE(folder.has("program/window.ini"));
  open();
  EXPECT_FALSE(panel().isVisible());
  EXPECT_TRUE(find<QWidget>(*window, "fraExactOptions").isVisible());
}

TEST_F(PreviewTest, RecentDrawingsAreOffered) {
  start();
  dropPlate();
  find<QCheckBox>(*window, "chkReport").setChecked(false);
  drop({toQt(writeDrawing("other.dxf"))});
  const WindowState state = WindowState::load(context.store);
  ASSERT_EQ(state.recentDrawings.size(), 2);
  expectSamePath(state.recentDrawings[0], path("other.dxf"));
  expectSamePath(state.recentDrawings[1], path("plate.dxf"));
  window->findChild<QAction*>("actRecent")->trigger();
  auto& menu = find<QMenu>(*window, "mnuRecent");
  ASSERT_EQ(menu.actions().size(), 2);
  menu.actions()[1]->trigger();
  menu.close();
  expectSamePath(toQt(window->settings().dxfFile), path("plate.dxf"));
}

TEST_F(PreviewTest, ExactOptionsAreReadAndShown) {
  start();
  dropPlate();
  find<QComboBox>(*window, "cboRules").setCurrentIndex(1);
  Q_EMIT find<QComboBox>(*window, "cboRules").activated(1);
  find<QComboBox>(*window, "cboHatch").setCurrentIndex(3);
  find<QLineEdit>(*window, "txtHoles").setText("HOLES");
  find<QLineEdit>(*window, "txtTolerance").setText("0.01");
  find<QCheckBox>(*window, "chkHidden").setChecked(true);
  ASSERT_TRUE(waitForPicture());
  const exact::Options& options = picture().result->job.exact;
  EXPECT_EQ(options.hatch, exact::HatchStyle::None);
  EXPECT_EQ(options.holeLayers, std::vector<std::string>{"HOLES"});
  EXPECT_EQ(options.curveTolerance, 0.01);
  EXPECT_TRUE(options.hiddenLayers);
}

TEST_F(PreviewTest, AnOptionThatCannotBeUsedShowsWhatIsUsed) {
  start();
  auto& tolerance = find<QLineEdit>(*window, "txtTolerance");
  tolerance.setText("17");
  Q_EMIT tolerance.editingFinished();
  EXPECT_EQ(tolerance.text(), "0.001");
}

TEST_F(PreviewTest, WithoutAViewersPageTheLinkLeadsToTheHelp) {
  start();
  OpenedAddresses opened({"https"});
  // Beside the tests there are no pages.
  whenAsked(QMessageBox::Ok);
  Q_EMIT find<QLabel>(*window, "labViewer").linkActivated("viewer");
  EXPECT_TRUE(boxText.startsWith("The help was not found.")) << fromQt(boxText);
  EXPECT_TRUE(opened.urls.isEmpty());
  ASSERT_TRUE(openHelp(context, QUILLON_HELP, kPreviewHelp, window.get()));
  auto& page = find<QTextBrowser>(find<HelpViewer>(*window, "frmHelp"), "txtHelp");
  EXPECT_EQ(page.source().fileName(), "preview.html");
}

TEST_F(PreviewTest, EveryControlHasANameForScreenReaders) {
  start();
  dropPlate();
  QStringList nameless;
  for (QWidget* const control : window->findChildren<QWidget*>()) {
    if (control->focusPolicy() == Qt::NoFocus) continue;
    const auto* const button = qobject_cast<QAbstractButton*>(control);
    const bool speaks = button != nullptr && !button->text().isEmpty();
    const bool isText = qobject_cast<QLabel*>(control) != nullptr;
    const bool isPart = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr;
    const bool isList = QString(control->metaObject()->className()).startsWith("QComboBoxListView");
    if (speaks || isList || isText || isPart || !control->accessibleName().isEmpty()) continue;
    nameless << control->objectName() + " (" + control->metaObject()->className() + ")";
  }
  for (const QAction* const action : window->findChildren<QAction*>()) {
    if (!action->isSeparator() && action->text().isEmpty()) nameless << action->objectName();
  }
  EXPECT_EQ(fromQt(nameless.join(", ")), "");
}

}  // namespace
}  // namespace quillon::windows

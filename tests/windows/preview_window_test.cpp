// What the main window does around its preview: files, language, undo and what it remembers.
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QPrinter>

#include "files/paths.h"
#include "windows/language_dialog.h"
#include "windows/picture_output.h"
#include "windows/preview_fixture.h"
#include "windows/window_state.h"

namespace quillon::windows {
namespace {

class PreviewWindowTest : public PreviewTest {
 protected:
  QTreeWidget& assignments() { return find<QTreeWidget>(*window, "lstAssignment"); }
  /// Chooses a layer for the drawing's layer HOLES.
  void assignHoles() { assignments().topLevelItem(1)->setText(1, "45 Holes (B)"); }
  void chooseLanguage(int index) {
    whenModal<LanguageDialog>([index](LanguageDialog& dialog) {
      find<QComboBox>(dialog, "cboLanguage").setCurrentIndex(index);
      click(dialog, "OKButton");
    });
    click(*window, "befLanguage");
  }
  QMenu& recent() {
    window->findChild<QAction*>("actRecent")->trigger();
    return find<QMenu>(*window, "mnuRecent");
  }
};

TEST_F(PreviewWindowTest, AnotherLanguageIsNoStepToUndo) {
  start();
  dropPlate();
  auto& layers = find<QComboBox>(*window, "komStandartlayer");
  layers.setCurrentIndex(layers.findText("100", Qt::MatchStartsWith));
  ASSERT_TRUE(layers.currentText().endsWith(" Userdefined")) << fromQt(layers.currentText());
  ASSERT_TRUE(waitForPicture());
  takeHint("Unit named");
  chooseLanguage(1);
  ASSERT_TRUE(waitForPicture());
  EXPECT_TRUE(layers.currentText().endsWith(" Nutzerdefiniert")) << fromQt(layers.currentText());
  click(*window, "btnUndo");
  EXPECT_EQ(window->settings().unit, base::Unit::Mil);
  EXPECT_TRUE(layers.currentText().endsWith(" Nutzerdefiniert")) << fromQt(layers.currentText());
  click(*window, "btnUndo");
  EXPECT_EQ(layers.currentText(), "20 Dimension (B)");
  EXPECT_FALSE(find<QToolButton>(*window, "btnUndo").isEnabled());
}

TEST_F(PreviewWindowTest, TheActionForRecentFilesHasAName) {
  start();
  EXPECT_EQ(window->findChild<QAction*>("actRecent")->text(), "Recent files");
}

TEST_F(PreviewWindowTest, AnAssignmentThatCannotBeWrittenSaysWhy) {
  const std::string missing = folder.file("missing/own.lay");
  context.store.WriteIni("dxf", {{"layerfile", missing}});
  start();
  dropPlate();
  whenAsked(QMessageBox::Ok);
  assignHoles();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_TRUE(boxText.startsWith(toQt(missing))) << fromQt(boxText);
  EXPECT_EQ(assignments().topLevelItem(1)->text(1), "(standard layer)");
}

TEST_F(PreviewWindowTest, AnAssignmentLeavesAFileOfAnotherKindAlone) {
  const std::string drawing = folder.write("own.lay", plate().text());
  context.store.WriteIni("dxf", {{"layerfile", drawing}});
  start();
  dropPlate();
  whenAsked(QMessageBox::Ok);
  assignHoles();
  EXPECT_EQ(fromQt(boxText), drawing +
                                 " is not a layer assignment file but a DXF drawing. Please choose "
                                 "another file.");
  EXPECT_EQ(folder.read("own.lay"), plate().text());
}

TEST_F(PreviewWindowTest, ALayerFileThatWasNotChosenIsChangedOnRequestOnly) {
  const std::string before = "[1]\r\nlayername=HOLES\r\nlayernr=44\r\n";
  const std::string file = folder.write("plate.lay", before);
  start();
  dropPlate();
  whenAsked(QMessageBox::No);
  assignHoles();
  EXPECT_EQ(fromQt(boxText),
            file +
                " exists already. Use it as the layer definition file and change the assignment "
                "there?");
  EXPECT_EQ(folder.read("plate.lay"), before);
  EXPECT_TRUE(find<QLabel>(*window, "labLayerDatei").text().isEmpty());
  EXPECT_EQ(assignments().topLevelItem(1)->text(1), "(standard layer)");
  whenAsked(QMessageBox::Yes);
  assignHoles();
  ASSERT_TRUE(waitForPicture());
  EXPECT_NE(folder.read("plate.lay").find("layernr=45"), std::string::npos);
  EXPECT_EQ(modalWindows, 2);
  EXPECT_EQ(assignments().topLevelItem(1)->text(1), "45 Holes (B)");
}

TEST_F(PreviewWindowTest, ALayerFileBesideTheDrawingIsFoundWhateverItsCase) {
  const std::string before = "[1]\r\nlayername=PLATE\r\nlayernr=20\r\n";
  const std::string file = folder.write("Plate.LAY", before);
  start();
  dropPlate();
  whenAsked(QMessageBox::No);
  assignHoles();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(folder.read("Plate.LAY"), before);
  whenAsked(QMessageBox::Yes);
  assignHoles();
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(modalWindows, 2);
  EXPECT_NE(folder.read("Plate.LAY").find("layernr=20"), std::string::npos);
  EXPECT_NE(folder.read("Plate.LAY").find("layernr=45"), std::string::npos);
  expectSamePath(find<QLabel>(*window, "labLayerDatei").text(), toQt(file));
}

TEST_F(PreviewWindowTest, TheNameOfTheScriptConvertsNothingAgain) {
  start();
  dropPlate();
  const auto before = picture().result;
  auto& script = find<QLineEdit>(*window, "txtScriptdatei");
  script.setFocus();
  QTest::keyClicks(&script, "x");
  find<QCheckBox>(*window, "chkReport").toggle();
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(picture().result, before);
}

TEST_F(PreviewWindowTest, OnlyTheUserFoldsThePreviewForGood) {
  start();
  find<QToolButton>(*window, "btnPreview").setChecked(false);  // as for a small screen
  window->close();
  EXPECT_FALSE(WindowState::load(context.store).previewFolded);
  window->show();
  click(*window, "btnPreview");
  click(*window, "btnPreview");
  window->close();
  EXPECT_TRUE(WindowState::load(context.store).previewFolded);
}

TEST_F(PreviewWindowTest, ConvertedDrawingsAreRecentOnesUntilTheyAreGone) {
  start();
  EXPECT_EQ(recent().actions().front()->text(), "(none)");
  EXPECT_FALSE(recent().actions().front()->isEnabled());
  find<QMenu>(*window, "mnuRecent").close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  find<QCheckBox>(*window, "chkReport").setChecked(false);
  auto& field = find<QLineEdit>(*window, "txtDXFDatei");
  field.setText(toQt(writeDrawing("typed.dxf")));
  find<QLineEdit>(*window, "txtScriptdatei").setText(path("typed.scr"));
  click(*window, "befStart");
  ASSERT_TRUE(folder.has("typed.scr"));
  dropPlate();
  drop({toQt(writeDrawing("gone.dxf"))});
  std::filesystem::remove(files::toPath(folder.file("gone.dxf")));
  QStringList names;
  for (const QAction* const action : recent().actions()) {
    names << action->text().section('/', -1).section('\\', -1).toLower();
  }
  EXPECT_EQ(fromQt(names.join(' ')), "plate.dxf typed.dxf");
}

TEST_F(PreviewWindowTest, UndoWorksInAFieldThatHasNothingToUndo) {
  start();
  dropPlate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  takeHint("Unit named");
  auto& scale = find<QLineEdit>(*window, "txtmasst");
  scale.setFocus();
  QTest::keyClick(&scale, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window->settings().unit, base::Unit::Mil);
  ASSERT_TRUE(waitForPicture());
  takeHint("Unit named");
  scale.setFocus();
  scale.selectAll();
  QTest::keyClicks(&scale, "2");
  QTest::keyClick(&scale, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(scale.text(), "1.000");
  EXPECT_EQ(window->settings().unit, base::Unit::Mm);
}

TEST_F(PreviewWindowTest, WhatPointsBecomeIsSaidInTheLanguageOfTheWindow) {
  start();
  auto& points = find<QComboBox>(*window, "cboPoints");
  EXPECT_EQ(points.currentText(), "Symbol of the drawing");
  chooseLanguage(1);
  EXPECT_EQ(points.currentText(), "Symbol der Zeichnung");
  QStringList entries;
  for (int i = 0; i < points.count(); ++i) entries << points.itemText(i);
  EXPECT_EQ(entries, (QStringList{"Symbol der Zeichnung", "Punkt", "Nichts", "Bohrung: 0.8 mm"}));
  points.setCurrentIndex(2);
  EXPECT_EQ(window->settings().exact.points, exact::PointStyle::None);
  points.setCurrentIndex(3);
  EXPECT_EQ(window->settings().exact.points, exact::PointStyle::Hole);
  EXPECT_EQ(window->settings().exact.pointDrill, 0.8);
  points.setEditText("hole:1.2");
  EXPECT_EQ(window->settings().exact.pointDrill, 1.2);
  Q_EMIT points.lineEdit()->editingFinished();
  EXPECT_EQ(points.currentText(), "hole:1.2");
  points.setEditText("dot");
  EXPECT_EQ(window->settings().exact.points, exact::PointStyle::Dot);
  Q_EMIT points.lineEdit()->editingFinished();
  EXPECT_EQ(points.currentText(), "Punkt");
  points.setEditText("nonsense");
  EXPECT_EQ(window->settings().exact.points, exact::PointStyle::Glyph);
}

TEST_F(PreviewWindowTest, WithoutTheHelpItsButtonSaysWhatToDo) {
  start();
  whenAsked(QMessageBox::Ok);
  click(*window, "befHilfe");
  const QString place = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
  EXPECT_EQ(boxText,
            "The help was not found. Please copy the folder help to this folder: " + place);
}

TEST_F(PreviewWindowTest, SwatchesHaveTheColoursOfThePicture) {
  start();
  dropPlate();
  const QTreeWidgetItem* const line = find<QTreeWidget>(*window, "lstLayers").topLevelItem(0);
  const QImage swatch = line->icon(0).pixmap(12, 12).toImage();
  EXPECT_EQ(swatch.pixelColor(swatch.width() / 2, swatch.height() / 2),
            toQt(preview::colourOfLayer(20, view().theme())));
}

TEST_F(PreviewWindowTest, ThePictureIsPrinted) {
  start();
  dropPlate();
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(path("plate.pdf"));
  printView(context, view(), printer, window.get());
  EXPECT_TRUE(folder.read("plate.pdf").starts_with("%PDF-"));
  EXPECT_GT(folder.read("plate.pdf").size(), 1000U);
  printer.setOutputFileName(path("missing/plate.pdf"));
  whenAsked(QMessageBox::Ok);
  printView(context, view(), printer, window.get());
  EXPECT_EQ(boxText, "The picture cannot be printed on " + path("missing/plate.pdf") +
                         ". Please check the printer, or save the picture.");
}

TEST_F(PreviewWindowTest, ThePictureIsSaved) {
  start();
  dropPlate();
  whenModal<QFileDialog>([this](QFileDialog& dialog) { enterName(dialog, path("picture.png")); });
  click(*window, "btnSavePicture");
  const QImage saved(path("picture.png"));
  EXPECT_EQ(saved.width(), 2 * view().width());
  EXPECT_EQ(saved.height(), 2 * view().height());
}

TEST_F(PreviewWindowTest, ThePictureFitsAgainByItsButton) {
  start();
  dropPlate();
  const double fitting = view().scale();
  view().zoomBy(4.0, {100.0, 100.0});
  EXPECT_GT(view().scale(), fitting);
  click(*window, "btnFit");
  EXPECT_EQ(view().scale(), fitting);
}

TEST_F(PreviewWindowTest, ThePictureSaysThatItShowsNotAllDifferences) {
  start();
  dropPlate();
  LivePicture shown = picture();
  auto cut = std::make_shared<preview::Differences>(*shown.differences);
  cut->isCut = true;
  shown.differences = cut;
  panel().showPicture(shown);
  EXPECT_EQ(labelText("labPreviewMessage"), "Too many differences: only the first ones are shown.");
}

TEST_F(PreviewWindowTest, TheLanguageOfThePreviewIsThatOfTheWindow) {
  start();
  dropPlate();
  chooseLanguage(1);
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(find<QToolButton>(*window, "btnViewBoth").text(), "Unterschiede");
  EXPECT_EQ(view().accessibleName(), "Vorschau");
  EXPECT_TRUE(hints().contains("1 geschlossener Umriss würde gefüllt."))
      << fromQt(hints().join(" | "));
}

TEST_F(PreviewWindowTest, ABorderThatWasMovedIsRemembered) {
  start();
  auto& border = find<QSplitter>(*window, "splMain");
  const QList<int> before = border.sizes();
  border.setSizes({before[0] + 60, before[1] - 60});
  Q_EMIT border.splitterMoved(before[0] + 60, 1);
  const QList<int> moved = border.sizes();
  window->close();
  start();
  const auto restored = [&] { return find<QSplitter>(*window, "splMain").sizes() == moved; };
  EXPECT_TRUE(QTest::qWaitFor(restored, 5000 * testing::patience()));
}

TEST_F(PreviewWindowTest, QuickChangesEndWithTheLastOneAndAnEndInBetweenIsClean) {
  start();
  dropPlate();
  auto& unit = find<QComboBox>(*window, "cboUnit");
  for (int i = 0; i < 40; ++i) {
    unit.setCurrentIndex(i % 3);
    QTest::qWait(i % 8 == 0 ? 2 * LivePreview::kDebounceMilliseconds : 3);
  }
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(picture().result->job.unit, base::unitAt(39 % 3));
  unit.setCurrentIndex(1);
  QTest::qWait(LivePreview::kDebounceMilliseconds + 5);
  window.reset();
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace quillon::windows

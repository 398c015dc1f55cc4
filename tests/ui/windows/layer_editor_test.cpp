#include "ui/windows/layer_editor.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "support/timing.h"
#include "ui/windows/window_fixture.h"

namespace quillon::ui {
namespace {

class LayerEditorTest : public WindowTest {
 protected:
  LayerEditor& open(const QString& file = {}) {
    editor = std::make_unique<LayerEditor>(
        context, file, [this](const QString& path) { accepted << path; }, nullptr);
    editor->show();
    return *editor;
  }
  LayerGrid& grid() { return *static_cast<LayerGrid*>(&find<QTableWidget>(*editor, "grdLayers")); }
  QString cell(int row, int column) { return grid().item(row, column)->text(); }
  QListWidget& scanned() { return find<QListWidget>(*editor, "lstScanDXF"); }
  QLineEdit& pathField() { return find<QLineEdit>(*editor, "txtLayerDatei"); }
  /// Lets events run and closed editors go.
  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QPoint placeOf(int row, int column) {
    QTableWidgetItem* const item = grid().item(row, column);
    grid().scrollToItem(item);
    return grid().visualItemRect(item).center();
  }
  void clickCell(int row, int column, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, keys, placeOf(row, column));
  }
  /// Opens the editor of a cell.
  void doubleClick(int row, int column) {
    const QPoint place = placeOf(row, column);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
  }
  QComboBox& openedList() {
    auto* const list = qobject_cast<QComboBox*>(grid().indexWidget(grid().currentIndex()));
    if (list == nullptr) throw std::runtime_error("no list is open");
    return *list;
  }
  /// Chooses from the menu of a cell.
  void chooseInMenu(int row, int column, const QString& entry) {
    QTimer::singleShot(20, &timers, [this, entry] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      menuTexts.clear();
      for (QAction* const action : menu->actions()) {
        const QString text = action->text().remove('&');
        if (!text.isEmpty()) menuTexts << text;
        if (text == entry) menu->setActiveAction(action);
      }
      QTest::keyClick(menu, entry.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    const QPoint place = placeOf(row, column);
    QTest::mousePress(grid().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid().viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid().viewport(), &event);
  }
  /// Types into a cell and confirms with Enter.
  void type(int row, int column, const QString& text) {
    doubleClick(row, column);
    auto* const field = grid().findChild<QLineEdit*>("txtDXFLay");
    ASSERT_NE(field, nullptr);
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    settle();
  }
  std::string writeLayers(int count) const {
    std::string text;
    for (int i = 1; i <= count; ++i) {
      const std::string n = std::to_string(i);
      text += "[" + n + "]\r\nlayername=L" + n + "\r\nlayernr=20\r\n";
    }
    return folder.write("a.lay", text);
  }
  std::string drawingWithLayers(int count) const {
    testing::DxfBuilder dxf;
    for (int i = 1; i <= count; ++i) dxf.layer("L" + std::to_string(i));
    return folder.write("a.dxf", dxf.text());
  }

  std::unique_ptr<LayerEditor> editor;
  QStringList accepted;
  QStringList menuTexts;
};

TEST_F(LayerEditorTest, OpensWithTheAssignmentsOfTheFile) {
  folder.write("a.lay", "[1]\nlayername=OUTLINE\nlayernr=20\n[2]\nlayername=x\nlayernr=50\n");
  open(path("a.lay"));
  EXPECT_EQ(cell(0, 0), "OUTLINE");
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  EXPECT_EQ(cell(1, 1), "51 tDocu (B)");
  EXPECT_EQ(pathField().text(), path("a.lay"));
  EXPECT_EQ(grid().rowCount(), 490);
  EXPECT_EQ(grid().horizontalHeaderItem(0)->text(), "DXF Layer");
  EXPECT_EQ(grid().horizontalHeaderItem(1)->text(), "EAGLE Layer");
}

TEST_F(LayerEditorTest, StartsEmptyWithoutAFile) {
  for (const QString& file : {QString(), path("none.lay"), QString("C:"), QString("C:\\")}) {
    open(file);
    EXPECT_EQ(cell(0, 0), "");
    EXPECT_EQ(pathField().text(), "");
  }
}

TEST_F(LayerEditorTest, ListsTheLayersOfTheDrawingAndChecksThoseInTheTable) {
  writeLayers(1);
  open(path("a.lay")).layerScanDXF(toQt(drawingWithLayers(3)));
  ASSERT_EQ(scanned().count(), 3);
  EXPECT_EQ(scanned().item(0)->text(), "L1");
  EXPECT_EQ(scanned().item(0)->checkState(), Qt::Checked);
  EXPECT_EQ(scanned().item(1)->checkState(), Qt::Unchecked);
  editor->layerScanDXF(path("none.dxf"));
  EXPECT_EQ(scanned().count(), 0);
}

TEST_F(LayerEditorTest, TakesSelectedLayersOnce) {
  open().layerScanDXF(toQt(drawingWithLayers(4)));
  const auto clickLayer = [this](int row, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(scanned().viewport(), Qt::LeftButton, keys,
                      scanned().visualItemRect(scanned().item(row)).center());
  };
  clickLayer(1, {});
  clickLayer(3, Qt::ControlModifier);
  click(*editor, "btnTake");
  click(*editor, "btnTake");
  EXPECT_EQ(cell(0, 0), "L2");
  EXPECT_EQ(cell(1, 0), "L4");
  EXPECT_EQ(cell(2, 0), "");
  EXPECT_EQ(scanned().item(3)->checkState(), Qt::Checked);
}

TEST_F(LayerEditorTest, ADoubleClickTakesALayer) {
  open().layerScanDXF(toQt(drawingWithLayers(2)));
  const QPoint place = scanned().visualItemRect(scanned().item(1)).center();
  QTest::mouseClick(scanned().viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(scanned().viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(cell(0, 0), "L2");
}

TEST_F(LayerEditorTest, TypesNamesAndNumbersAndEnterGoesDown) {
  open();
  type(0, 0, "Outline");
  EXPECT_EQ(cell(0, 0), "Outline");
  type(0, 1, "20");
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  grid().setCurrentCell(0, 1);
  QTest::keyClick(&grid(), Qt::Key_Return);
  EXPECT_EQ(grid().currentRow(), 1);
  EXPECT_EQ(grid().currentColumn(), 1);
}

TEST_F(LayerEditorTest, LettersAreDiscardedInTheLayerColumn) {
  open();
  type(0, 1, "a2b0x");
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  grid().setCurrentCell(1, 1);
  QTest::keyClick(&grid(), Qt::Key_X);
  EXPECT_EQ(cell(1, 1), "");
  settle();
  EXPECT_EQ(grid().findChild<QLineEdit*>("txtDXFLay"), nullptr);
}

TEST_F(LayerEditorTest, ChoosesALayerFromTheList) {
  open();
  doubleClick(0, 1);
  QComboBox& list = openedList();
  EXPECT_EQ(list.count(), 256);
  choose(list, 15);
  EXPECT_EQ(cell(0, 1), "16 Bottom (B)");
  const auto colour = [this] {
    return grid().item(0, 1)->icon().pixmap(12, 12).toImage().pixelColor(6, 6);
  };
  EXPECT_EQ(colour(), QColor(50, 50, 200));
  choose(list, 0);
  EXPECT_EQ(colour(), QColor(200, 50, 50));
}

TEST_F(LayerEditorTest, TheOpenedListFindsAnEntryByAnyPartOfIt) {
  open();
  doubleClick(0, 1);
  QComboBox& list = openedList();
  QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(list.view()->isVisible());
  QTest::keyClicks(list.view(), "dim");
  EXPECT_EQ(list.view()->currentIndex().data().toString(), "20 Dimension (B)");
  QTest::keyClick(list.view(), Qt::Key_Return);
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
}

TEST_F(LayerEditorTest, TellsOfANameThatIsUsedAlready) {
  open();
  type(0, 0, "Outline");
  whenAsked(QMessageBox::Ok);
  type(3, 0, "OUTLINE");
  QTest::qWait(50);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(boxTitle, "Error");
  EXPECT_EQ(boxText, "This Layername will be used already!");
  EXPECT_EQ(cell(3, 0), "OUTLINE");
}

TEST_F(LayerEditorTest, SeveralRowsGetOneLayerTogether) {
  open();
  for (int row = 0; row < 3; ++row) type(row, 0, "L" + QString::number(row));
  clickCell(0, 1);
  clickCell(2, 1, Qt::ShiftModifier);
  QTest::keyClick(&grid(), Qt::Key_2);
  QTest::keyClick(openedList().lineEdit(), Qt::Key_1);
  QTest::keyClick(openedList().lineEdit(), Qt::Key_Return);
  settle();
  for (int row = 0; row < 3; ++row) EXPECT_EQ(cell(row, 1), "21 tPlace (B)");
  EXPECT_EQ(cell(3, 1), "");
}

TEST_F(LayerEditorTest, AClickIntoTheLayersOfSelectedRowsChoosesForAllOfThem) {
  writeLayers(4);
  open(path("a.lay"));
  clickCell(0, 0);
  clickCell(2, 0, Qt::ShiftModifier);
  clickCell(1, 1);
  ASSERT_TRUE(openedList().view()->isVisible());
  clickEntry(openedList(), 15);
  for (int row = 0; row < 3; ++row) EXPECT_EQ(cell(row, 1), "16 Bottom (B)") << row;
  EXPECT_EQ(cell(3, 1), "20 Dimension (B)");
  // The rows stay selected, so that another choice goes to all of them, too.
  choose(openedList(), 0);
  for (int row = 0; row < 3; ++row) EXPECT_EQ(cell(row, 1), "1  Top (B)") << row;
  // A click elsewhere selects one row again.
  clickCell(3, 0);
  settle();
  clickCell(3, 1);
  EXPECT_EQ(grid().indexWidget(grid().currentIndex()), nullptr);
  EXPECT_EQ(cell(3, 1), "20 Dimension (B)");
}

TEST_F(LayerEditorTest, TheMenuOfARowCutsPastesClearsAndUndoes) {
  writeLayers(3);
  open(path("a.lay"));
  clickCell(0, 0);
  clickCell(1, 1, Qt::ShiftModifier);
  chooseInMenu(0, 0, "Cut");
  EXPECT_EQ(menuTexts,
            (QStringList{"Undo", "Cut", "Copy", "Paste", "Clear rows", "Assign EAGLE layer"}));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "L1\t20 Dimension (B)\nL2\t20 Dimension (B)\n");
  EXPECT_EQ(cell(0, 0) + cell(1, 0), "");
  chooseInMenu(4, 0, "Paste");
  EXPECT_EQ(cell(4, 0) + "=" + cell(4, 1), "L1=20 Dimension (B)");
  EXPECT_EQ(cell(5, 0), "L2");
  chooseInMenu(5, 0, "Clear rows");
  EXPECT_EQ(cell(5, 0), "");
  chooseInMenu(5, 0, "Undo");
  EXPECT_EQ(cell(5, 0), "L2");
  chooseInMenu(5, 0, "Copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "L2\n");
  context.LanguageOffset = resources::kGerman;
  chooseInMenu(0, 0, "");
  EXPECT_EQ(menuTexts, (QStringList{"Rückgängig", "Ausschneiden", "Kopieren", "Einfügen",
                                    "Zeilen leeren", "EAGLE-Layer zuweisen"}));
}

TEST_F(LayerEditorTest, TheMenuAssignsALayerToAllSelectedRows) {
  writeLayers(4);
  open(path("a.lay"));
  clickCell(1, 0);
  clickCell(3, 0, Qt::ShiftModifier);
  chooseInMenu(2, 0, "Assign EAGLE layer");
  clickEntry(openedList(), 15);
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  for (int row = 1; row < 4; ++row) EXPECT_EQ(cell(row, 1), "16 Bottom (B)") << row;
}

TEST_F(LayerEditorTest, CutByKeyboardClearsTheRows) {
  writeLayers(2);
  open(path("a.lay"));
  clickCell(0, 0);
  QTest::keySequence(&grid(), QKeySequence::Cut);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "L1\n");
  EXPECT_EQ(cell(0, 0), "");
}

TEST_F(LayerEditorTest, DelClearsRowsAndUndoBringsThemBack) {
  writeLayers(3);
  open(path("a.lay"));
  grid().setRangeSelected({0, 0, 1, 0}, true);
  QTest::keyClick(&grid(), Qt::Key_Delete);
  EXPECT_EQ(cell(0, 0) + cell(0, 1) + cell(1, 0), "");
  EXPECT_EQ(cell(2, 0), "L3");
  QTest::keySequence(&grid(), QKeySequence::Undo);
  EXPECT_EQ(cell(0, 0), "L1");
  EXPECT_EQ(cell(1, 1), "20 Dimension (B)");
}

TEST_F(LayerEditorTest, RowsAreCopiedAndPastedAsTabbedText) {
  writeLayers(2);
  open(path("a.lay"));
  grid().setRangeSelected({0, 0, 1, 1}, true);
  QTest::keySequence(&grid(), QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "L1\t20 Dimension (B)\nL2\t20 Dimension (B)\n");
  QGuiApplication::clipboard()->setText("A\t16\r\nB\t999\r\n");
  grid().clearSelection();
  grid().setCurrentCell(5, 0);
  QTest::keySequence(&grid(), QKeySequence::Paste);
  EXPECT_EQ(cell(5, 0) + "=" + cell(5, 1), "A=16 Bottom (B)");
  EXPECT_EQ(cell(6, 0) + "=" + cell(6, 1), "B=999 unconverted");
  EXPECT_EQ(cell(7, 0), "");
}

TEST_F(LayerEditorTest, OneColumnIsPastedWhereTheCursorIs) {
  writeLayers(2);
  open(path("a.lay"));
  QGuiApplication::clipboard()->setText("16\r\n17");
  grid().setCurrentCell(0, 1);
  QTest::keySequence(&grid(), QKeySequence::Paste);
  EXPECT_EQ(cell(0, 0) + "=" + cell(0, 1), "L1=16 Bottom (B)");
  EXPECT_EQ(cell(1, 0) + "=" + cell(1, 1), "L2=17 Pads (B)");
  grid().clearSelection();
  grid().setRangeSelected({0, 1, 1, 1}, true);
  QTest::keySequence(&grid(), QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "16 Bottom (B)\n17 Pads (B)\n");
}

TEST_F(LayerEditorTest, ANameThatIsUsedAlreadyIsToldBeforeTheFileIsSaved) {
  writeLayers(2);
  open(path("a.lay"));
  const std::string before = folder.read("a.lay");
  doubleClick(1, 0);
  auto* const field = grid().findChild<QLineEdit*>("txtDXFLay");
  ASSERT_NE(field, nullptr);
  field->selectAll();
  QTest::keyClicks(field, "l1");
  std::string whenTold;
  whenModal<QMessageBox>([this, &whenTold](QMessageBox& box) {
    boxText = box.text();
    whenTold = folder.read("a.lay");
    box.accept();
  });
  EXPECT_TRUE(editor->saveLayers(path("a.lay")));
  EXPECT_EQ(boxText, "This Layername will be used already!");
  EXPECT_EQ(whenTold, before);
}

TEST_F(LayerEditorTest, NamesTheRowsThatTheFileCannotHold) {
  open();
  grid().setCurrentCell(0, 0);
  grid().pasteText("good\t20\nŁĄKA\t21\nnone\t\nfar\t300");
  whenAsked(QMessageBox::Ok);
  EXPECT_TRUE(editor->saveLayers(path("a.lay")));
  EXPECT_TRUE(boxText.endsWith(": ŁĄKA, none, far")) << fromQt(boxText);
}

TEST_F(LayerEditorTest, AModifiedTableIsNotDiscardedWithoutAsking) {
  writeLayers(1);
  open(path("a.lay"));
  type(1, 0, "new");
  for (const char* button : {"btnNew", "btnScan"}) {
    whenAsked(QMessageBox::Cancel);
    click(*editor, button);
    EXPECT_EQ(cell(1, 0), "new") << button;
  }
  whenAsked(QMessageBox::Cancel);
  editor->close();
  EXPECT_EQ(modalWindows, 3);
  EXPECT_TRUE(editor->isVisible());
}

TEST_F(LayerEditorTest, ReplacingALongFileThatWasNotReadAsksFirst) {
  writeLayers(600);
  open();
  type(0, 0, "A");
  type(0, 1, "20");
  whenAsked(QMessageBox::No);
  EXPECT_FALSE(editor->saveLayers(path("a.lay")));
  EXPECT_TRUE(boxText.startsWith("The file holds 110 more assignments")) << fromQt(boxText);
}

TEST_F(LayerEditorTest, SavesUnderANewName) {
  open();
  type(0, 0, "Outline");
  type(0, 1, "20");
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Layer Definition File");
    enterName(dialog, path("new"));
  });
  click(*editor, "btnSave");
  EXPECT_EQ(folder.read("new.LAY"), "[1]\r\nlayername=Outline\r\nlayernr=20\r\n");
  EXPECT_EQ(pathField().text(), path("new.LAY"));
}

TEST_F(LayerEditorTest, ACancelledSaveSavesNothing) {
  open();
  whenModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(editor->saveLayers({}));
}

TEST_F(LayerEditorTest, OkOnAnUnmodifiedTableHandsThePathOverWithoutAsking) {
  writeLayers(1);
  open(path("a.lay"));
  click(*editor, "OKButton");
  EXPECT_EQ(accepted, QStringList{path("a.lay")});
  EXPECT_FALSE(editor->isVisible());
  EXPECT_EQ(modalWindows, 0);
}

TEST_F(LayerEditorTest, OkOnAModifiedTableAsks) {
  writeLayers(1);
  open(path("a.lay"));
  type(1, 0, "new");
  type(1, 1, "21");
  whenAsked(QMessageBox::Cancel);
  click(*editor, "OKButton");
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(boxText, "Layer Definition File file wasn't saved. Save now?");
  EXPECT_TRUE(editor->isVisible());
  EXPECT_TRUE(accepted.isEmpty());
  whenAsked(QMessageBox::Yes);
  click(*editor, "OKButton");
  EXPECT_EQ(accepted, QStringList{path("a.lay")});
  EXPECT_TRUE(folder.read("a.lay").ends_with("[2]\r\nlayername=new\r\nlayernr=21\r\n"));
}

TEST_F(LayerEditorTest, OkWithoutSavingKeepsTheFile) {
  const std::string file = writeLayers(1);
  const std::string before = folder.read("a.lay");
  open(path("a.lay"));
  type(1, 0, "new");
  whenAsked(QMessageBox::No);
  click(*editor, "OKButton");
  EXPECT_EQ(accepted, QStringList{path("a.lay")});
  EXPECT_EQ(folder.read("a.lay"), before);
}

TEST_F(LayerEditorTest, CancelHandsNothingOver) {
  open();
  type(0, 0, "new");
  click(*editor, "CancelButton");
  EXPECT_TRUE(accepted.isEmpty());
  EXPECT_EQ(modalWindows, 0);
}

TEST_F(LayerEditorTest, ALongFileShowsItsFirst490AssignmentsAndSavingAsksFirst) {
  writeLayers(600);
  const std::string before = folder.read("a.lay");
  whenAsked(QMessageBox::Ok);
  open(path("a.lay"));
  EXPECT_EQ(boxText, "The file holds 600 assignments. The table shows the first 490.");
  EXPECT_EQ(cell(489, 0), "L490");
  whenAsked(QMessageBox::No);
  click(*editor, "btnSave");
  EXPECT_TRUE(boxText.startsWith("The file holds 110 more assignments")) << fromQt(boxText);
  EXPECT_EQ(folder.read("a.lay"), before);
  whenAsked(QMessageBox::Yes);
  click(*editor, "btnSave");
  EXPECT_TRUE(folder.read("a.lay").ends_with("[490]\r\nlayername=L490\r\nlayernr=20\r\n"));
}

TEST_F(LayerEditorTest, SaysWhenAFileCannotBeSaved) {
  open();
  type(0, 0, "a");
  whenAsked(QMessageBox::Ok);
  EXPECT_FALSE(editor->saveLayers(path("")));
  EXPECT_EQ(boxTitle, "Error");
}

TEST_F(LayerEditorTest, BrowsesForAFile) {
  writeLayers(1);
  open();
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Layer Definition File open");
    dialog.setDirectory(toQt(folder.path().string()));
    enterName(dialog, path("a.lay"));
  });
  click(*editor, "btnLayerbrowse");
  EXPECT_EQ(pathField().text(), path("a.lay"));
  click(*editor, "btnScan");
  EXPECT_EQ(cell(0, 0), "L1");
  click(*editor, "btnNew");
  EXPECT_EQ(cell(0, 0), "");
  EXPECT_EQ(pathField().text(), "");
}

TEST_F(LayerEditorTest, TellsThatTheHelpIsMissing) {
  open();
  whenAsked(QMessageBox::Ok);
  click(*editor, "befHilfe");
  EXPECT_EQ(boxTitle, "File Error");
  EXPECT_EQ(boxText, "Can't find Help file");
}

TEST_F(LayerEditorTest, ThousandsOfLayersStayInstant) {
  open();
  const QString drawing = toQt(drawingWithLayers(5000));
  const double seconds = testing::leastSeconds([this, &drawing] {
    editor->layerScanDXF(drawing);
    QCoreApplication::processEvents();
    scanned().selectAll();
    click(*editor, "btnTake");
    QCoreApplication::processEvents();
  });
  EXPECT_EQ(cell(489, 0), "L490");
  EXPECT_LT(seconds, 0.1 * testing::patience());
}

TEST_F(LayerEditorTest, TheMainWindowTakesTheFileAndConvertsWithIt) {
  MainWindow main(context);
  main.LoadSettings();
  find<QCheckBox>(main, "chkReport").setChecked(false);
  testing::DxfBuilder dxf;
  dxf.layer("Outline").layer("hidden").layer("rest");
  for (const char* layer : {"OUTLINE", "hidden", "rest"}) {
    dxf.entity("LINE", {{8, layer}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  }
  main.setDrawing(toQt(folder.write("part.dxf", dxf.text())));
  main.show();
  click(main, "befLayeredit");
  auto& opened = static_cast<LayerEditor&>(find<QDialog>(main, "frmLayers"));
  auto& table = static_cast<LayerGrid&>(find<QTableWidget>(opened, "grdLayers"));
  EXPECT_EQ(find<QListWidget>(opened, "lstScanDXF").count(), 3);
  table.setCurrentCell(0, 0);
  table.pasteText("Outline\t21\nHIDDEN\t999\n");
  EXPECT_TRUE(opened.saveLayers(path("my.lay")));
  click(opened, "OKButton");
  EXPECT_EQ(find<QLabel>(main, "labLayerDatei").text(), path("my.lay"));
  EXPECT_EQ(main.befStart_Click().outcome, convert::Outcome::Converted);
  const std::string script = folder.read("part.scr");
  EXPECT_NE(script.find("Layer  21 ;\r\nWire "), std::string::npos) << script;
  EXPECT_NE(script.find("Layer  20 ;\r\nWire "), std::string::npos) << script;
  EXPECT_EQ(script.find("999"), std::string::npos);
  EXPECT_TRUE(find<QLabel>(main, "labResult")
                  .text()
                  .contains("Left out because their layer is assigned to 999: 1\n"));
}

}  // namespace
}  // namespace quillon::ui

#include "windows/layer_grid.h"

#include <QInputMethodEvent>

#include "preview/palette.h"
#include "windows/layer_editor_fixture.h"
#include "windows/picture_plane.h"

namespace quillon::windows {
namespace {

using LayerGridTest = LayerEditorTest;

TEST_F(LayerGridTest, TypesNamesAndNumbersAndEnterGoesDown) {
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

TEST_F(LayerGridTest, LettersAreDiscardedInTheLayerColumn) {
  open();
  type(0, 1, "a2b0x");
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  grid().setCurrentCell(1, 1);
  QTest::keyClick(&grid(), Qt::Key_X);
  EXPECT_EQ(cell(1, 1), "");
  settle();
  EXPECT_EQ(grid().findChild<QLineEdit*>("txtDXFLay"), nullptr);
}

TEST_F(LayerGridTest, LettersAreDiscardedInEveryKeyOfAnEdit) {
  open();
  grid().setFocus();
  grid().setCurrentCell(0, 1);
  typeWhereTheFocusIs("a2x0b");
  EXPECT_EQ(openedList().currentText(), "20");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  settle();
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  EXPECT_EQ(grid().currentRow(), 1);
  typeWhereTheFocusIs("2o0");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  settle();
  EXPECT_EQ(cell(1, 1), "20 Dimension (B)");
}

TEST_F(LayerGridTest, DigitsAndBackspaceChangeAnEntry) {
  writeLayers(1);
  open(path("a.lay"));
  grid().setFocus();
  grid().setCurrentCell(0, 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
  typeWhereTheFocusIs("x1");
  EXPECT_EQ(openedList().currentText(), "10 Dimension (B)");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  settle();
  EXPECT_EQ(cell(0, 1), "10 Route10 (B)");
  // A text that is no longer a number or an entry is rejected.
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
  for (int i = 0; i < 3; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
  EXPECT_EQ(openedList().currentText(), "Route10 (B)");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  settle();
  EXPECT_EQ(cell(0, 1), "10 Route10 (B)");
}

TEST_F(LayerGridTest, PastedLettersAreDiscardedInACell) {
  open();
  doubleClick(0, 1);
  QGuiApplication::clipboard()->setText("2o0");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(openedList().currentText(), "");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_4);
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(openedList().currentText(), "4");
  QGuiApplication::clipboard()->setText("5");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(openedList().currentText(), "45");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Undo);
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Redo);
  EXPECT_EQ(openedList().currentText(), "45");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::SelectAll);
  QGuiApplication::clipboard()->setText("16 Bottom (B)");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  settle();
  EXPECT_EQ(cell(0, 1), "16 Bottom (B)");
}

TEST_F(LayerGridTest, PastedLettersAreDiscardedInACellWithAnInvalidNumber) {
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=-3\n");
  open(path("a.lay"));
  doubleClick(0, 1);
  QGuiApplication::clipboard()->setText("x");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(openedList().currentText(), "-3");
}

TEST_F(LayerGridTest, LettersOfAnInputMethodAreDiscarded) {
  open();
  grid().setFocus();
  grid().setCurrentCell(0, 1);
  const auto compose = [](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
  };
  compose("2o0");
  compose("2");
  compose("x");
  compose("0");
  EXPECT_EQ(openedList().currentText(), "20");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  settle();
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
}

TEST_F(LayerGridTest, RowsArePastedWithoutInvalidLayers) {
  open();
  grid().setFocus();
  grid().setCurrentCell(0, 0);
  QGuiApplication::clipboard()->setText("A\t2o0\nB\tlayer\nC\t16\nD\t100 Nutzerdefiniert\n");
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(cell(0, 0) + "=" + cell(0, 1), "A=");
  EXPECT_EQ(cell(1, 0) + "=" + cell(1, 1), "B=");
  EXPECT_EQ(cell(2, 0) + "=" + cell(2, 1), "C=16 Bottom (B)");
  EXPECT_EQ(cell(3, 0) + "=" + cell(3, 1), "D=100 Userdefined");
  QGuiApplication::clipboard()->setText("17x");
  grid().setCurrentCell(2, 1);
  QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
  EXPECT_EQ(cell(2, 1), "16 Bottom (B)");
}

TEST_F(LayerGridTest, ChoosesALayerFromTheList) {
  open();
  doubleClick(0, 1);
  QComboBox& list = openedList();
  EXPECT_EQ(list.count(), 256);
  choose(list, 15);
  EXPECT_EQ(cell(0, 1), "16 Bottom (B)");
  const auto colour = [this] {
    return grid().item(0, 1)->icon().pixmap(12, 12).toImage().pixelColor(6, 6);
  };
  const auto inPictures = [](int layer) {
    return toQt(preview::colourOfLayer(layer, preview::Theme::Light));
  };
  EXPECT_EQ(colour(), inPictures(16));
  choose(list, 0);
  EXPECT_EQ(colour(), inPictures(1));
  EXPECT_NE(inPictures(1), inPictures(16));
}

TEST_F(LayerGridTest, TheOpenedListFindsAnEntryByAnyPartOfIt) {
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

TEST_F(LayerGridTest, TellsOfANameThatIsUsedAlready) {
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

TEST_F(LayerGridTest, SeveralRowsGetOneLayerTogether) {
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

TEST_F(LayerGridTest, AClickIntoTheLayersOfSelectedRowsChoosesForAllOfThem) {
  writeLayers(4);
  open(path("a.lay"));
  clickCell(0, 0);
  clickCell(2, 0, Qt::ShiftModifier);
  clickCell(1, 1);
  ASSERT_TRUE(openedList().view()->isVisible());
  clickEntry(openedList(), 15);
  for (int row = 0; row < 3; ++row) EXPECT_EQ(cell(row, 1), "16 Bottom (B)") << row;
  EXPECT_EQ(cell(3, 1), "20 Dimension (B)");
  // The rows stay selected, so that the next choice applies to all of them too.
  choose(openedList(), 0);
  for (int row = 0; row < 3; ++row) EXPECT_EQ(cell(row, 1), "1  Top (B)") << row;
  // A click elsewhere selects one row again.
  clickCell(3, 0);
  settle();
  clickCell(3, 1);
  EXPECT_EQ(grid().indexWidget(grid().currentIndex()), nullptr);
  EXPECT_EQ(cell(3, 1), "20 Dimension (B)");
}

TEST_F(LayerGridTest, TheMenuOfARowCutsPastesClearsAndUndoes) {
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
  context.LanguageOffset = texts::kGerman;
  chooseInMenu(0, 0, "");
  EXPECT_EQ(menuTexts, (QStringList{"Rückgängig", "Ausschneiden", "Kopieren", "Einfügen",
                                    "Zeilen leeren", "EAGLE-Layer zuweisen"}));
}

TEST_F(LayerGridTest, TheMenuAssignsALayerToAllSelectedRows) {
  writeLayers(4);
  open(path("a.lay"));
  clickCell(1, 0);
  clickCell(3, 0, Qt::ShiftModifier);
  chooseInMenu(2, 0, "Assign EAGLE layer");
  clickEntry(openedList(), 15);
  EXPECT_EQ(cell(0, 1), "20 Dimension (B)");
  for (int row = 1; row < 4; ++row) EXPECT_EQ(cell(row, 1), "16 Bottom (B)") << row;
}

TEST_F(LayerGridTest, CutByKeyboardClearsTheRows) {
  writeLayers(2);
  open(path("a.lay"));
  clickCell(0, 0);
  QTest::keySequence(&grid(), QKeySequence::Cut);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "L1\n");
  EXPECT_EQ(cell(0, 0), "");
}

TEST_F(LayerGridTest, DelClearsRowsAndUndoBringsThemBack) {
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

TEST_F(LayerGridTest, RowsAreCopiedAndPastedAsTabbedText) {
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

TEST_F(LayerGridTest, OneColumnIsPastedWhereTheCursorIs) {
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

}  // namespace
}  // namespace quillon::windows

#include "windows/layer_editor.h"

#include <QHelpEvent>
#include <QToolTip>

#include "support/timing.h"
#include "windows/cut_texts.h"
#include "windows/layer_editor_fixture.h"

namespace quillon::windows {
namespace {

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

TEST_F(LayerEditorTest, ListsTheLayersInUseOfADrawingThatDeclaresNone) {
  testing::DxfBuilder dxf;
  dxf.entity("POINT", {{8, "Outline"}, {10, "0"}, {20, "0"}});
  open().layerScanDXF(toQt(folder.write("a.dxf", dxf.text())));
  ASSERT_EQ(scanned().count(), 1);
  EXPECT_EQ(scanned().item(0)->text(), "OUTLINE");
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
  EXPECT_EQ(boxText,
            "These rows are missing from the file or appear there with question marks, because "
            "their EAGLE layer is not from 1 to 255 (or 999) or their name has characters that the "
            "file cannot store: ŁĄKA, none, far");
}

TEST_F(LayerEditorTest, LongNamesOfRowsDoNotCutAMessage) {
  open();
  grid().setCurrentCell(0, 0);
  grid().pasteText("A" + QString("X").repeated(250) + "Z\t300");
  QString cut;
  whenModal<QMessageBox>([this, &cut](QMessageBox& box) {
    boxText = box.text();
    cut = cutTexts(box).join(", ");
    box.accept();
  });
  EXPECT_TRUE(editor->saveLayers(path("a.lay")));
  EXPECT_EQ(cut, "");
  EXPECT_TRUE(boxText.contains("AXXXX")) << fromQt(boxText);
  EXPECT_TRUE(boxText.contains("XXX…XXX")) << fromQt(boxText);
  EXPECT_TRUE(boxText.endsWith("XXXXZ")) << fromQt(boxText);
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
  EXPECT_EQ(boxText,
            "The file contains 110 more assignments than the table has room "
            "for. Saving would lose them. Save anyway?");
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

TEST_F(LayerEditorTest, ADrawingIsNotTakenForALayerFile) {
  const QString drawing = toQt(writeDrawing("part.dxf"));
  const std::string before = folder.read("part.dxf");
  open();
  type(0, 0, "Outline");
  type(0, 1, "20");
  pathField().setText(drawing);
  whenAsked(QMessageBox::Ok);
  click(*editor, "btnSave");
  EXPECT_EQ(boxTitle, "Error");
  EXPECT_EQ(boxText, drawing +
                         " is not a layer assignment file but a DXF drawing. Please choose "
                         "another file.");
  EXPECT_EQ(folder.read("part.dxf"), before);
  // Nor does OK hand it over as saved.
  whenModal<QMessageBox>([this](QMessageBox& box) {
    whenAsked(QMessageBox::Ok);
    box.button(QMessageBox::Yes)->click();
  });
  click(*editor, "OKButton");
  EXPECT_EQ(modalWindows, 3);
  EXPECT_TRUE(editor->isVisible());
  EXPECT_TRUE(accepted.isEmpty());
  EXPECT_EQ(folder.read("part.dxf"), before);
}

TEST_F(LayerEditorTest, SaysWhatAFileIsThatHoldsNoAssignments) {
  using std::string_literals::operator""s;
  const std::vector<std::pair<std::string, const char*>> files = {
      {"0\nSECTION\n", "a DXF drawing"},
      {"AutoCAD Binary DXF\r\n", "a binary DXF file"},
      {"AC1015\0"s, "a DWG drawing"},
      {"\0\0"s, "a binary file"},
      {"Set Undo_Log off;\n", "another kind of text file"}};
  open();
  for (const auto& [bytes, kind] : files) {
    folder.write("a.lay", bytes);
    pathField().setText(path("a.lay"));
    whenAsked(QMessageBox::Ok);
    click(*editor, "btnScan");
    EXPECT_EQ(boxText, path("a.lay") + " is not a layer assignment file but " + kind +
                           ". Please choose another file.");
  }
  context.LanguageOffset = texts::kGerman;
  const std::array<const char*, 5> german = {"eine DXF-Zeichnung", "eine binäre DXF-Datei",
                                             "eine DWG-Zeichnung", "eine Binärdatei",
                                             "eine andere Textdatei"};
  for (std::size_t i = 0; i < german.size(); ++i) {
    folder.write("a.lay", files[i].first);
    whenAsked(QMessageBox::Ok);
    click(*editor, "btnScan");
    EXPECT_EQ(boxText, path("a.lay") + " ist keine Layerzuweisungsdatei, sondern " + german[i] +
                           ". Bitte eine andere Datei wählen.");
  }
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
  EXPECT_EQ(boxText, "The file contains 600 assignments. The table shows the first 490.");
  EXPECT_EQ(cell(489, 0), "L490");
  whenAsked(QMessageBox::No);
  click(*editor, "btnSave");
  EXPECT_TRUE(boxText.startsWith("The file contains 110 more assignments")) << fromQt(boxText);
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

TEST_F(LayerEditorTest, SavesNothingInAFolderThatIsMissing) {
  open();
  type(0, 0, "a");
  whenAsked(QMessageBox::Ok);
  EXPECT_FALSE(editor->saveLayers(path("none/a.lay")));
  EXPECT_EQ(fromQt(boxText), folder.file("none/a.lay") + " cannot be written: the folder " +
                                 folder.file("none") +
                                 " does not exist. Please create the folder or correct the path.");
  EXPECT_FALSE(folder.has("none"));
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

TEST_F(LayerEditorTest, WholeNamesAreToolTipsWhereTheyAreCut) {
  const std::string name = "A-" + std::string(200, 'X') + "<B>";
  testing::DxfBuilder dxf;
  dxf.layer(name).layer("SHORT");
  open().layerScanDXF(toQt(folder.write("a.dxf", dxf.text())));
  scanned().selectAll();
  click(*editor, "btnTake");
  const auto tip = [](const QAbstractItemView& list, const QRect& entry) {
    const QPoint place(30, entry.center().y());
    QHelpEvent help(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &help);
    return QToolTip::text();
  };
  const auto listed = [this](int row) { return scanned().visualItemRect(scanned().item(row)); };
  const auto tabled = [this](int row) { return grid().visualItemRect(grid().item(row, 0)); };
  // As plain text: a name is not markup.
  const QString whole = "<qt>" + toQt(name).toHtmlEscaped() + "</qt>";
  EXPECT_EQ(tip(scanned(), listed(0)), whole);
  EXPECT_EQ(tip(scanned(), listed(1)), scanned().toolTip());
  EXPECT_EQ(tip(grid(), tabled(0)), whole);
  EXPECT_EQ(tip(grid(), tabled(1)), grid().toolTip());
  QToolTip::hideText();
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
  EXPECT_TRUE(
      find<QLabel>(main, "labResult")
          .text()
          .contains("Left out because their layer is assigned to 999 or to no EAGLE layer: 1\n"));
}

}  // namespace
}  // namespace quillon::windows

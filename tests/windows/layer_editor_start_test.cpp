// The layer editor beside the main window: what happens to its rows when a conversion starts.
#include <QDir>

#include "windows/layer_editor_fixture.h"

namespace quillon::windows {
namespace {

class LayerEditorStartTest : public LayerEditorTest {
 protected:
  LayerEditorStartTest() {
    main.LoadSettings();
    find<QCheckBox>(main, "chkReport").setChecked(false);
    testing::DxfBuilder dxf;
    dxf.layer("Outline");
    dxf.entity("LINE", {{8, "Outline"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    main.setDrawing(toQt(folder.write("part.dxf", dxf.text())));
    main.show();
  }

  /// Opens the editor with a file, as the main window's button does.
  void openEditor(const QString& file = {}) {
    find<QLabel>(main, "labLayerDatei").setText(file);
    click(main, "befLayeredit");
    opened = &static_cast<LayerEditor&>(find<QDialog>(main, "frmLayers"));
    EXPECT_TRUE(QTest::qWaitForWindowActive(opened));
  }
  LayerGrid& table() { return *static_cast<LayerGrid*>(&find<QTableWidget>(*opened, "grdLayers")); }
  void assign(const QString& layer) {
    table().setFocus();
    table().setCurrentCell(0, LayerGrid::kName);
    typeWhereTheFocusIs("Outline");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    table().setCurrentCell(0, LayerGrid::kLayer);
    typeWhereTheFocusIs(layer);
  }
  void confirm() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
  }
  std::string script() const { return folder.read("part.scr"); }
  QString layerFile() { return find<QLabel>(main, "labLayerDatei").text(); }

  MainWindow main{context};
  LayerEditor* opened = nullptr;
};

TEST_F(LayerEditorStartTest, AsksAboutRowsThatAreNotSavedAndConvertsNothingAfterCancel) {
  openEditor();
  assign("21");
  confirm();
  whenAsked(QMessageBox::Cancel);
  click(main, "befStart");
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(boxText,
            "The changed layer assignments are not saved yet. Save them now and use them for this "
            "conversion?");
  EXPECT_FALSE(folder.has("part.scr"));
  EXPECT_TRUE(opened->isVisible());
  EXPECT_EQ(table().item(0, LayerGrid::kLayer)->text(), "21 tPlace (B)");
  context.LanguageOffset = texts::kGerman;
  whenAsked(QMessageBox::Cancel);
  click(main, "befStart");
  EXPECT_EQ(boxText,
            "Die geänderten Layerzuweisungen sind noch nicht gespeichert. Jetzt speichern und für "
            "diese Konvertierung verwenden?");
}

TEST_F(LayerEditorStartTest, GoesOnWithoutTheRowsAfterNo) {
  openEditor();
  assign("21");
  confirm();
  whenAsked(QMessageBox::No);
  click(main, "befStart");
  EXPECT_NE(script().find("Layer  20 ;\r\nWire "), std::string::npos) << script();
  EXPECT_EQ(layerFile(), "");
  // The rows can still be saved.
  whenAsked(QMessageBox::Cancel);
  click(*opened, "OKButton");
  EXPECT_EQ(modalWindows, 2);
}

TEST_F(LayerEditorStartTest, SavesTheRowsAndConvertsWithThemAfterYes) {
  folder.write("a.lay", "[1]\nlayername=other\nlayernr=1\n");
  openEditor(path("a.lay"));
  assign("21");  // still being typed when Start is clicked
  whenAsked(QMessageBox::Yes);
  click(main, "befStart");
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(folder.read("a.lay"), "[1]\r\nlayername=Outline\r\nlayernr=21\r\n");
  EXPECT_NE(script().find("Layer  21 ;\r\nWire "), std::string::npos) << script();
  EXPECT_TRUE(opened->isVisible());
}

TEST_F(LayerEditorStartTest, UsesANewFileThatIsSavedThenAndNoneWhenItsDialogIsCancelled) {
  openEditor();
  assign("21");
  confirm();
  const auto save = [this](const std::function<void(QFileDialog&)>& answer) {
    whenModal<QMessageBox>([this, answer](QMessageBox& box) {
      whenModal<QFileDialog>(answer);
      box.button(QMessageBox::Yes)->click();
    });
    click(main, "befStart");
  };
  save([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(folder.has("part.scr"));
  save([](QFileDialog& dialog) {
    QTest::keyClick(&find<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  });
  EXPECT_EQ(layerFile(), path("part.lay"));
  EXPECT_NE(script().find("Layer  21 ;\r\nWire "), std::string::npos) << script();
}

TEST_F(LayerEditorStartTest, DoesNotAskWhereNothingIsUnsaved) {
  openEditor();
  click(main, "befStart");
  EXPECT_EQ(modalWindows, 0);
  EXPECT_NE(script().find("Layer  20 ;\r\nWire "), std::string::npos) << script();
}

TEST_F(LayerEditorStartTest, ExitLeavesRelativePathsAsTheyAreUntilNothingIsUnsaved) {
  const QString before = QDir::currentPath();
  QDir(path("")).mkdir("program");
  QDir::setCurrent(path(""));
  folder.write("a.lay", "[1]\nlayername=other\nlayernr=1\n");
  openEditor("a.lay");
  assign("21");
  confirm();
  whenAsked(QMessageBox::Cancel);
  click(main, "befEnde");
  EXPECT_TRUE(main.isVisible());
  EXPECT_EQ(QDir::current(), QDir(path("")));
  whenAsked(QMessageBox::Yes);
  click(main, "befEnde");
  EXPECT_FALSE(main.isVisible());
  EXPECT_EQ(folder.read("a.lay"), "[1]\r\nlayername=Outline\r\nlayernr=21\r\n");
  EXPECT_FALSE(folder.has("program/a.lay"));
  EXPECT_EQ(QDir::current(), QDir(path("program")));
  QDir::setCurrent(before);
}

TEST_F(LayerEditorStartTest, ANewLayerFileIsOfferedBesideTheDrawing) {
  openEditor();
  assign("21");
  confirm();
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().canonicalPath(), QDir(path("")).canonicalPath());
    auto& name = find<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_EQ(name.text(), "part.lay");
    QTest::keyClick(&name, Qt::Key_Return);
  });
  click(*opened, "btnSave");
  EXPECT_EQ(folder.read("part.lay"), "[1]\r\nlayername=Outline\r\nlayernr=21\r\n");
}

TEST_F(LayerEditorStartTest, AnotherNameIsAskedForInTheFolderOfTheFile) {
  QDir(path("")).mkdir("layers");
  folder.write("layers/a.lay", "[1]\nlayername=A\nlayernr=1\n");
  openEditor(path("layers/a.lay"));
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().canonicalPath(), QDir(path("layers")).canonicalPath());
    EXPECT_EQ(find<QLineEdit>(dialog, "fileNameEdit").text(), "");
    dialog.reject();
  });
  click(*opened, "btnSaveAs");
  EXPECT_EQ(modalWindows, 1);
}

}  // namespace
}  // namespace quillon::windows

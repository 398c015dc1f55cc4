#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>

#include "files/paths.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class MainWindowTest : public WindowTest {
 protected:
  MainWindowTest() { window.LoadSettings(); }

  QComboBox& list(const char* name) { return find<QComboBox>(window, name); }
  QLineEdit& field(const char* name) { return find<QLineEdit>(window, name); }
  std::string savedSettings() const { return folder.read("program/larkspur.ini"); }
  void loadFrom(const std::string& lines) {
    context.store.WriteIni("dxf", "brd", "0");
    folder.write("program/larkspur.ini", "[dxf]\r\n" + lines);
    window.LoadSettings();
  }
  /// Chooses a file in the next dialog.
  void chooseInDialog(const QString& name) {
    whenModal<QFileDialog>([this, name](QFileDialog& dialog) {
      dialogTitle = dialog.windowTitle();
      dialogFolder = dialog.directory().absolutePath();
      dialogFilters = dialog.nameFilters();
      if (name.isEmpty()) {
        dialog.reject();
        return;
      }
      enterName(dialog, name);
    });
  }

  void setDrawingByBrowsing(const std::string& name) {
    writeDrawing(name);
    chooseInDialog(path(name));
    click(window, "btnDXFbrowse");
  }

  MainWindow window{context};
  QString dialogTitle;
  QString dialogFolder;
  QStringList dialogFilters;
};

TEST_F(MainWindowTest, ShowsTheDefaultsOfAnEmptySettingsFile) {
  EXPECT_EQ(field("txtDXFDatei").text(), "C:\\*.DXF");
  EXPECT_EQ(field("txtScriptdatei").text(), "C:\\CONVERS.SCR");
  EXPECT_EQ(field("txtBRDname").text(), "");
  EXPECT_TRUE(find<QRadioButton>(window, "chkBRDSCH_0").isChecked());
  EXPECT_EQ(list("cboVersion").currentText(), "4.x/5.x");
  EXPECT_EQ(list("cboUnit").currentText(), "mil");
  EXPECT_EQ(field("txtmasst").text(), "1.000");
  EXPECT_EQ(list("komStandartlayer").currentText(), "20 Dimension (B)");
  EXPECT_EQ(list("cboPoly").currentText(), "Polyline");
  EXPECT_EQ(list("cboBlocks").currentIndex(), 0);
  EXPECT_TRUE(find<QCheckBox>(window, "chkReport").isChecked());
  for (const char* name : {"chkDotLines", "chkEllipses", "chkArc"}) {
    EXPECT_FALSE(find<QCheckBox>(window, name).isChecked()) << name;
  }
}

TEST_F(MainWindowTest, SelectingAPackageRefillsTheLayersAndForcesBlocksToBeDrawn) {
  list("cboBlocks").setCurrentIndex(2);
  list("komStandartlayer").setCurrentIndex(0);
  click(window, "chkBRDSCH_2");
  EXPECT_EQ(list("komStandartlayer").count(), 250);
  EXPECT_EQ(list("komStandartlayer").currentIndex(), 19);
  EXPECT_EQ(list("cboBlocks").currentIndex(), 0);
  EXPECT_FALSE(list("cboBlocks").isEnabled());
}

TEST_F(MainWindowTest, SelectingASchematicFillsItsLayersAndLetsBlocksBeChosen) {
  click(window, "chkBRDSCH_3");
  click(window, "chkBRDSCH_1");
  EXPECT_EQ(list("komStandartlayer").count(), 203);
  EXPECT_EQ(list("komStandartlayer").currentText(), "94 Symbols (S)");
  EXPECT_TRUE(list("cboBlocks").isEnabled());
}

TEST_F(MainWindowTest, ShowsAPathInUpperCaseOnceTheFieldLosesFocus) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QLineEdit& drawing = field("txtDXFDatei");
  drawing.setFocus();
  drawing.setText("c:\\in\\gehäuse.dxf");
  field("txtBRDname").setFocus();
  EXPECT_EQ(drawing.text(), "C:\\IN\\GEHÄUSE.DXF");
  const std::string kept = files::namesHaveCase() ? "c:\\in\\gehäuse.dxf" : "C:\\IN\\GEHÄUSE.DXF";
  EXPECT_EQ(window.settings().dxfFile, kept);
  drawing.setFocus();
  EXPECT_EQ(drawing.text(), toQt(kept));
}

TEST_F(MainWindowTest, ACommaBecomesAPointOnceANumbersFieldIsLeft) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const char* const name : {"txtmasst", "txtOffsetX", "txtOffsetY"}) {
    QLineEdit& number = field(name);
    number.setFocus();
    number.clear();
    QTest::keyClicks(&number, "-2,5");
    EXPECT_EQ(number.text(), "-2,5");
    QTest::keyClick(&number, Qt::Key_Tab);
    EXPECT_EQ(number.text(), "-2.5") << name;
    number.setFocus();
    number.setText("1,000.5");
    QTest::keyClick(&number, Qt::Key_Tab);
    EXPECT_EQ(number.text(), "1,000.5");
    number.setFocus();
    number.setText("1,000,5");
    QTest::keyClick(&number, Qt::Key_Tab);
    EXPECT_EQ(number.text(), "1,000,5");
  }
}

TEST_F(MainWindowTest, SavesAndReloadsEverySetting) {
  field("txtDXFDatei").setText("D:\\a.dxf");
  field("txtScriptdatei").setText("D:\\b.scr");
  field("txtBRDname").setText("Name");
  click(window, "chkBRDSCH_1");
  list("cboVersion").setCurrentIndex(0);
  list("cboUnit").setCurrentIndex(3);
  field("txtmasst").setText("2,5");
  list("komStandartlayer").setCurrentText("91 Nets (S)");
  for (const char* name : {"chkDotLines", "chkReport", "chkEllipses", "chkArc"}) {
    find<QCheckBox>(window, name).toggle();
  }
  list("cboPoly").setCurrentIndex(0);
  list("cboBlocks").setCurrentIndex(2);
  click(window, "befSave");
  EXPECT_EQ(savedSettings(),
            "[dxf]\r\ndxffile=D:\\a.dxf\r\nscr=D:\\b.scr\r\nlayerfile=\r\nbrdsch=Name\r\nbrd=1\r\n"
            "version=0\r\nunit=3\r\nscale=2,5\r\nlayer=91 Nets (S)\r\ndotted=1\r\nreport=0\r\n"
            "ellipses=1\r\narc2line=1\r\npoly=0\r\nblocks=2\r\n");
  MainWindow next(context);
  next.LoadSettings();
  QTest::mouseClick(&find<QPushButton>(next, "befSave"), Qt::LeftButton);
  EXPECT_EQ(find<QComboBox>(next, "komStandartlayer").currentText(), "91 Nets (S)");
  EXPECT_EQ(find<QLineEdit>(next, "txtmasst").text(), "2,5");
  EXPECT_EQ(next.settings().blocks, 2);
  EXPECT_TRUE(next.settings().arcToLine);
}

TEST_F(MainWindowTest, SaysWhereTheSettingsWereSaved) {
  auto& notice = find<QLabel>(window, "labResult");
  EXPECT_TRUE(notice.isHidden() || notice.text().isEmpty());
  window.show();
  click(window, "befSave");
  EXPECT_EQ(notice.text(), "Settings saved in " +
                               toQt(files::fromPath(folder.path() / "program" / "larkspur.ini")));
  EXPECT_TRUE(notice.isVisible());
  EXPECT_FALSE(find<QPushButton>(window, "btnOpenFolder").isVisible());
  EXPECT_FALSE(find<QPushButton>(window, "btnCopyCommand").isVisible());
  context.LanguageOffset = texts::kGerman;
  click(window, "befSave");
  EXPECT_EQ(notice.text(), "Einstellungen gespeichert in " +
                               toQt(files::fromPath(folder.path() / "program" / "larkspur.ini")));
}

TEST_F(MainWindowTest, SaysWhichTextsTheSettingsFileDoesNotKeep) {
  field("txtDXFDatei").setText("C:\\" + QString(255, 'x') + ".dxf");
  click(window, "befSave");
  EXPECT_EQ(find<QLabel>(window, "labResult").text(),
            "Settings saved in " +
                toQt(files::fromPath(folder.path() / "program" / "larkspur.ini")) +
                "\nlarkspur.ini, dxffile: the next start has only the first 254 characters of this "
                "text, with question marks for those that the file cannot store.");
}

TEST_F(MainWindowTest, NamesNumbersOfTheSettingsThatAreFollowedBySomethingElse) {
  loadFrom("polywidth=0,2\r\nunit=1\r\n");
  EXPECT_EQ(find<QLabel>(window, "labResult").text(),
            "larkspur.ini, polywidth: \"0,2\" counts as 0, because something follows that is "
            "not part of a number. Please correct the number; the decimal sign is a point.");
}

TEST_F(MainWindowTest, ShowsOneMessageWhenTheSettingsCannotBeSaved) {
  AppContext nowhere{settings::SettingsStore(folder.write("file", "")), {}, texts::kEnglish};
  MainWindow other(nowhere);
  whenAsked(QMessageBox::Ok);
  click(other, "befSave");
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(boxText, "The settings could not be saved in the folder " + path("file") +
                         ". Please check its permissions and the free space.");
}

TEST_F(MainWindowTest, ATargetOutsideTheFourSelectsNone) {
  loadFrom("brd=4\r\n");
  EXPECT_EQ(window.settings().targetKind, settings::kNoTarget);
  EXPECT_EQ(list("komStandartlayer").count(), 0);
  click(window, "befSave");
  EXPECT_NE(savedSettings().find("brd=4\r\n"), std::string::npos);
  click(window, "chkBRDSCH_0");
  EXPECT_EQ(list("komStandartlayer").currentText(), "20 Dimension (B)");
}

TEST_F(MainWindowTest, BrowsesForTheDrawingInItsFolder) {
  writeDrawing("part.dxf");
  field("txtDXFDatei").setText(path("*.dxf"));
  chooseInDialog(path("part.dxf"));
  click(window, "btnDXFbrowse");
  EXPECT_EQ(dialogTitle, "DXF File open");
  EXPECT_EQ(dialogFilters, QStringList{"DXF files (*)"});
  EXPECT_EQ(dialogFolder, QDir::fromNativeSeparators(toQt(folder.path().string())));
  EXPECT_EQ(field("txtDXFDatei").text(), path("part.dxf"));
  // No script has been chosen yet, so it goes beside the drawing.
  EXPECT_EQ(field("txtScriptdatei").text(), path("part.scr"));
}

TEST_F(MainWindowTest, TheScriptFollowsTheDrawingUntilOneIsChosen) {
  setDrawingByBrowsing("a.dxf");
  setDrawingByBrowsing("b.dxf");
  EXPECT_EQ(field("txtScriptdatei").text(), path("b.scr"));
  field("txtScriptdatei").setText(path("mine.scr"));
  setDrawingByBrowsing("a.dxf");
  EXPECT_EQ(field("txtScriptdatei").text(), path("mine.scr"));
}

TEST_F(MainWindowTest, ATypedDrawingGetsItsScriptBesideIt) {
  writeDrawing("Part.dxf");
  find<QCheckBox>(window, "chkReport").setChecked(false);
  window.show();
  QLineEdit& drawing = field("txtDXFDatei");
  drawing.setFocus();
  drawing.selectAll();
  QTest::keyClicks(&drawing, path("Part.dxf"));
  QTest::keyClick(&drawing, Qt::Key_Return);
  EXPECT_TRUE(folder.has("Part.scr"));
  EXPECT_EQ(window.settings().scriptFile, folder.file("Part.scr"));
  EXPECT_FALSE(std::filesystem::exists("C:\\CONVERS.SCR"));
}

TEST_F(MainWindowTest, ADrawingThatIsChosenAfterStartGetsItsScriptBesideIt) {
  writeDrawing("part.dxf");
  find<QCheckBox>(window, "chkReport").setChecked(false);
  chooseInDialog(path("part.dxf"));
  EXPECT_EQ(window.befStart_Click().scriptFile, folder.file("part.scr"));
  EXPECT_TRUE(folder.has("part.scr"));
}

TEST_F(MainWindowTest, BrowsesForAScriptThatNeedNotExist) {
  chooseInDialog(path("new.scr"));
  click(window, "btnSCRbrowse");
  EXPECT_EQ(dialogTitle, "Script File open");
  EXPECT_EQ(dialogFilters, (QStringList{"Script Files (*.scr)", "All Files (*)"}));
  EXPECT_EQ(field("txtScriptdatei").text(), path("new.scr"));
}

TEST_F(MainWindowTest, TheNameEndsBeforeTheFirstDotOfThePath) {
  chooseInDialog(path("my.board.brd"));
  click(window, "btnBRDbrowse");
  EXPECT_EQ(dialogTitle, "Please put in Board- or Schematicname without Extension");
  EXPECT_EQ(field("txtBRDname").text(), path("my"));
}

TEST_F(MainWindowTest, ACancelledDialogLeavesTheField) {
  for (const char* button : {"btnDXFbrowse", "btnSCRbrowse", "btnBRDbrowse"}) {
    chooseInDialog("");
    click(window, button);
  }
  EXPECT_EQ(modalWindows, 3);
  EXPECT_EQ(field("txtDXFDatei").text(), "C:\\*.DXF");
  EXPECT_EQ(field("txtScriptdatei").text(), "C:\\CONVERS.SCR");
  EXPECT_EQ(field("txtBRDname").text(), "");
}

TEST_F(MainWindowTest, ADroppedFileBecomesTheDrawing) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path("a.part.dxf"))});
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({1.0, 1.0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  EXPECT_EQ(field("txtDXFDatei").text(), path("a.part.dxf"));
  EXPECT_EQ(field("txtScriptdatei").text(), path("a.part.scr"));
}

TEST_F(MainWindowTest, SaysHowAPathWithSlashesIsWritten) {
  window.warnOfSplitPath();
  EXPECT_EQ(modalWindows, 0);
  context.line = convert::parseCommandLine("/x:/home/me/in.dxf");
  whenAsked(QMessageBox::Ok);
  window.warnOfSplitPath();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(fromQt(boxTitle), "Warning");
  EXPECT_EQ(fromQt(boxText),
            "\"/\" begins a new item here and has split a path. Please write paths with \"\\\": "
            "/x:\\home\\me\\in.dxf");
}

TEST_F(MainWindowTest, PathFieldsLeaveADropToTheWindow) {
  EXPECT_FALSE(field("txtDXFDatei").acceptDrops());
  EXPECT_FALSE(field("txtScriptdatei").acceptDrops());
  EXPECT_TRUE(window.acceptDrops());
}

TEST_F(MainWindowTest, OnlyOneLocalFileCanBeDropped) {
  QMimeData data;
  data.setUrls({QUrl("https://quillon.example/a.dxf")});
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(MainWindowTest, EscapeDoesNotEndTheProgram) {
  window.show();
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(MainWindowTest, ExitClosesTheWindowWithoutSaving) {
  const QString before = QDir::currentPath();
  QDir().mkdir(path("program"));
  window.show();
  click(window, "befEnde");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(savedSettings(), "");
  EXPECT_EQ(QDir::current(), QDir(path("program")));
  QDir::setCurrent(before);
}

TEST_F(MainWindowTest, ControlsHaveTheirToolTips) {
  EXPECT_EQ(field("txtmasst").toolTip(),
            "Factor for all coordinates, with a decimal point.\n1.000 keeps the size, a negative "
            "value mirrors.");
  EXPECT_TRUE(find<QPushButton>(window, "befStart").toolTip().contains("SCRIPT"));
  for (const char* name : {"chkBRDSCH_0", "chkBRDSCH_3"}) {
    EXPECT_TRUE(find<QRadioButton>(window, name).toolTip().startsWith("Board and Package")) << name;
  }
}

}  // namespace
}  // namespace quillon::windows

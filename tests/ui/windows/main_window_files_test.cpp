// How the main window gets its files, and what it says about those that it has.
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>

#include "convert/paths.h"
#include "ui/windows/window_fixture.h"

namespace quillon::ui {
namespace {

class MainWindowFilesTest : public WindowTest {
 protected:
  /// The window after a start with these saved settings.
  MainWindow& start(const std::string& settings = "report=0\r\n") {
    context.store.WriteIni("dxf", "brd", "0");
    folder.write("program/larkspur.ini", "[dxf]\r\n" + settings);
    window = std::make_unique<MainWindow>(context);
    window->LoadSettings();
    window->show();
    return *window;
  }
  QLineEdit& field(const char* name) { return find<QLineEdit>(*window, name); }
  std::string shown(const char* name) { return fromQt(field(name).text()); }
  void type(const char* name, const QString& text) {
    field(name).setFocus();
    field(name).selectAll();
    QTest::keyClicks(&field(name), text);
  }
  void drop(const std::string& name) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(toQt(writeDrawing(name)))});
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event({1.0, 1.0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
  }
  /// Names a file in the dialog that opens next.
  void chooseNext(const std::string& name) {
    whenModal<QFileDialog>([this, name](QFileDialog& dialog) { enterName(dialog, path(name)); });
  }
  void browse(const char* button, const std::string& name) {
    chooseNext(name);
    click(*window, button);
  }
  void browseForDrawing(const std::string& name) {
    writeDrawing(name);
    browse("btnDXFbrowse", name);
  }

  std::unique_ptr<MainWindow> window;
};

TEST_F(MainWindowFilesTest, AChosenScriptStaysWhenADrawingIsDropped) {
  start();
  drop("a.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("a.scr"));
  browse("btnSCRbrowse", "mine.scr");
  click(*window, "befStart");
  EXPECT_TRUE(folder.has("mine.scr"));
  drop("b.dxf");
  EXPECT_EQ(shown("txtDXFDatei"), folder.file("b.dxf"));
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("mine.scr"));
}

TEST_F(MainWindowFilesTest, ATypedScriptStaysWhenADrawingIsDropped) {
  start();
  drop("a.dxf");
  type("txtScriptdatei", path("mine.scr"));
  drop("b.dxf");
  EXPECT_EQ(window->settings().scriptFile, folder.file("mine.scr"));
}

TEST_F(MainWindowFilesTest, AScriptOfTheDrawingsOwnNameIsChosenAsWell) {
  start();
  drop("a.dxf");
  browse("btnSCRbrowse", "a.scr");
  drop("b.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("a.scr"));
}

TEST_F(MainWindowFilesTest, AScriptOnTheCommandLineIsChosen) {
  context.line = convert::parseCommandLine("/s:mine.scr");
  start();
  drop("b.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), "mine.scr");
}

TEST_F(MainWindowFilesTest, AnEmptiedScriptFieldIsNoChoice) {
  start();
  browse("btnSCRbrowse", "mine.scr");
  field("txtScriptdatei").setFocus();
  field("txtScriptdatei").selectAll();
  QTest::keyClick(&field("txtScriptdatei"), Qt::Key_Delete);
  drop("b.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("b.scr"));
}

TEST_F(MainWindowFilesTest, TheSavedScriptOfAnotherDrawingIsNoChoiceInThisWindow) {
  const std::string saved =
      "dxffile=" + folder.file("old.dxf") + "\r\nscr=" + folder.file("old.scr") + "\r\n";
  start(saved);
  drop("a.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("a.scr"));
  start(saved);
  browseForDrawing("b.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("b.scr"));
}

TEST_F(MainWindowFilesTest, LeavingTheDrawingsFieldKeepsTheSavedScript) {
  start("dxffile=" + folder.file("a.dxf") + "\r\nscr=" + folder.file("old.scr") + "\r\n");
  field("txtDXFDatei").setFocus();
  QTest::keyClick(&field("txtDXFDatei"), Qt::Key_Tab);
  EXPECT_EQ(window->settings().scriptFile, folder.file("old.scr"));
}

}  // namespace
}  // namespace quillon::ui

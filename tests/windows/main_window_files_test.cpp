// How the main window gets its files, and what it says about them.
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>

#include "support/timing.h"
#include "windows/language_dialog.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class MainWindowFilesTest : public WindowTest {
 protected:
  /// The window after a start with these settings.
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
  void drop(const std::string& name) { dropFiles({writeDrawing(name)}); }
  void dropFiles(const std::vector<std::string>& paths) {
    QList<QUrl> urls;
    for (const std::string& path : paths) urls << QUrl::fromLocalFile(toQt(path));
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event({1.0, 1.0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
  }
  /// Enters a file in the next dialog.
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

  void startConversion() { click(*window, "befStart"); }
  bool says(const char* name) { return find<QWidget>(*window, name).isVisible(); }
  std::string result() { return fromQt(wholeText(find<QLabel>(*window, "labResult"))); }
  void chooseLanguage(int index) {
    whenModal<LanguageDialog>([index](LanguageDialog& dialog) {
      choose(find<QComboBox>(dialog, "cboLanguage"), index);
      click(dialog, "OKButton");
    });
    click(*window, "befLanguage");
  }
  /// The window with a script of its own: where paths have drives, one that nobody chose would be
  /// written to the first drive, and still be there at the next run.
  void startWithScript() { start("report=0\r\nscr=" + folder.file("mine.scr") + "\r\n"); }
  /// The window with a drawing and the layer file made for it.
  void startWithLayers() {
    folder.write("a.lay", "[1]\r\nlayername=0\r\nlayernr=21\r\n");
    start("report=0\r\ndxffile=" + folder.file("a.dxf") + "\r\nscr=" + folder.file("a.scr") +
          "\r\nlayerfile=" + folder.file("a.lay") + "\r\n");
  }
  std::string layersStay() {
    return "The layer definition file of the last drawing is still in use: " + folder.file("a.lay");
  }

  std::unique_ptr<MainWindow> window;
};

TEST_F(MainWindowFilesTest, SeveralDroppedDrawingsAreConvertedByAQueueWithTheSettingsShown) {
  folder.write("mine.lay", "[1]\r\nlayername=0\r\nlayernr=21\r\n");
  start("report=0\r\nlayerfile=" + folder.file("mine.lay") + "\r\n");
  dropFiles({writeDrawing("a.dxf"), writeDrawing("b.dxf")});
  auto& queue = find<QueueWindow>(*window, "frmQueue");
  EXPECT_TRUE(queue.isVisible());
  EXPECT_NE(shown("txtDXFDatei"), folder.file("a.dxf"));
  queue.start();
  ASSERT_TRUE(
      QTest::qWaitFor([&queue] { return !queue.isRunning(); }, 60000 * testing::patience()));
  EXPECT_EQ(fromQt(find<QLabel>(queue, "labSummary").text()),
            "2 converted, 0 failed, 0 skipped; losses: 2");
  EXPECT_NE(folder.read("b.scr").find("Layer  21 ;"), std::string::npos) << folder.read("b.scr");
}

TEST_F(MainWindowFilesTest, TheQueueWarnsOfNumbersAsStartDoes) {
  start("report=0\r\n");
  find<QLineEdit>(*window, "txtmasst").setText("2x");
  dropFiles({writeDrawing("a.dxf"), writeDrawing("b.dxf")});
  auto& queue = find<QueueWindow>(*window, "frmQueue");
  whenAsked(QMessageBox::Ok);
  queue.start();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_TRUE(boxText.contains("2x")) << fromQt(boxText);
  EXPECT_TRUE(queue.isRunning());
  EXPECT_TRUE(
      QTest::qWaitFor([&queue] { return !queue.isRunning(); }, 60000 * testing::patience()));
}

TEST_F(MainWindowFilesTest, ADroppedFolderJoinsTheQueueThatIsOpen) {
  start();
  dropFiles({writeDrawing("a.dxf"), writeDrawing("b.dxf")});
  writeDrawing("c.dxf");
  dropFiles({folder.file("")});
  const QList<QueueWindow*> queues = window->findChildren<QueueWindow*>("frmQueue");
  ASSERT_EQ(queues.size(), 1);
  EXPECT_EQ(find<QTableView>(*queues.front(), "tabQueue").model()->rowCount(), 3);
  queues.front()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window->findChildren<QueueWindow*>("frmQueue").isEmpty());
}

TEST_F(MainWindowFilesTest, ADroppedLayerFileBecomesTheLayerFile) {
  start();
  const std::string layers = folder.write("other.LAY", "[1]\r\nlayername=0\r\nlayernr=21\r\n");
  dropFiles({layers});
  EXPECT_EQ(window->settings().layerFile, layers);
  EXPECT_TRUE(window->findChildren<QueueWindow*>("frmQueue").isEmpty());
}

TEST_F(MainWindowFilesTest, ALayerFileDroppedWithADrawingBelongsToIt) {
  start();
  const std::string layers = folder.write("other.lay", "[1]\r\nlayername=0\r\nlayernr=21\r\n");
  dropFiles({layers, writeDrawing("a.dxf")});
  EXPECT_EQ(window->settings().layerFile, layers);
  EXPECT_EQ(shown("txtDXFDatei"), folder.file("a.dxf"));
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("a.scr"));
  EXPECT_FALSE(says("fraResult"));
  EXPECT_TRUE(window->findChildren<QueueWindow*>("frmQueue").isEmpty());
  dropFiles({folder.file("a.dxf"), writeDrawing("b.dxf"), layers});
  EXPECT_EQ(window->findChildren<QueueWindow*>("frmQueue").size(), 1);
}

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

TEST_F(MainWindowFilesTest, AnEmptiedScriptFieldIsNotAChoice) {
  start();
  browse("btnSCRbrowse", "mine.scr");
  field("txtScriptdatei").setFocus();
  field("txtScriptdatei").selectAll();
  QTest::keyClick(&field("txtScriptdatei"), Qt::Key_Delete);
  drop("b.dxf");
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("b.scr"));
}

TEST_F(MainWindowFilesTest, TheSavedScriptOfAnotherDrawingIsNotAChoiceInThisWindow) {
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

TEST_F(MainWindowFilesTest, ADrawingChosenAfterStartStaysInItsField) {
  startWithScript();
  writeDrawing("part.dxf");
  chooseNext("part.dxf");
  startConversion();
  EXPECT_EQ(shown("txtDXFDatei"), folder.file("part.dxf"));
  EXPECT_TRUE(says("fraResult"));
  whenAsked(QMessageBox::No);
  startConversion();
  EXPECT_EQ(fromQt(boxText),
            "Scripfile exists already.\n" + folder.file("mine.scr") + "\nOverwrite?");
}

TEST_F(MainWindowFilesTest, ADrawingChosenAfterStartStaysAlsoWhenItIsRefused) {
  startWithScript();
  folder.write("empty.dxf", "");
  chooseNext("empty.dxf");
  whenModal<QMessageBox>([](QMessageBox& box) { box.accept(); });
  startConversion();
  EXPECT_EQ(modalWindows, 2);
  EXPECT_EQ(shown("txtDXFDatei"), folder.file("empty.dxf"));
}

TEST_F(MainWindowFilesTest, AScriptThatFollowsIsWrittenBesideADrawingChosenAfterStart) {
  if (settings::pathsHaveDrives()) GTEST_SKIP() << "There the script's path stays as it is.";
  start();
  drop("a.dxf");
  std::filesystem::remove(folder.file("a.dxf"));
  writeDrawing("b.dxf");
  chooseNext("b.dxf");
  startConversion();
  EXPECT_TRUE(folder.has("b.scr"));
  EXPECT_FALSE(folder.has("a.scr"));
  EXPECT_EQ(shown("txtScriptdatei"), folder.file("b.scr"));
}

TEST_F(MainWindowFilesTest, TheResultFollowsTheLanguage) {
  start();
  drop("a.dxf");
  startConversion();
  const std::string english = result();
  EXPECT_TRUE(english.starts_with("Entities converted: 1 ")) << english;
  chooseLanguage(1);
  EXPECT_TRUE(result().starts_with("Konvertierte Elemente: 1 (aus 30 Zeilen von " +
                                   folder.file("a.dxf") + ")\n"))
      << result();
  chooseLanguage(0);
  EXPECT_EQ(result(), english);
}

TEST_F(MainWindowFilesTest, TheResultGoesWhenAnotherDrawingIsChosen) {
  const std::vector<std::function<void()>> ways = {[this] { drop("b.dxf"); },
                                                   [this] { browseForDrawing("b.dxf"); },
                                                   [this] { type("txtDXFDatei", "b"); }};
  for (const auto& chooseAnother : ways) {
    start();
    drop("a.dxf");
    std::filesystem::remove(folder.file("a.scr"));
    startConversion();
    EXPECT_TRUE(says("fraResult"));
    chooseAnother();
    EXPECT_FALSE(says("fraResult"));
  }
}

TEST_F(MainWindowFilesTest, TheResultStaysWhenTheFieldOfItsDrawingIsLeft) {
  start();
  drop("a.dxf");
  startConversion();
  field("txtDXFDatei").setFocus();
  QTest::keyClick(&field("txtDXFDatei"), Qt::Key_Tab);
  EXPECT_TRUE(says("fraResult"));
}

TEST_F(MainWindowFilesTest, TheLayerFileOfTheLastDrawingIsNamedWhenItStaysInForce) {
  startWithLayers();
  EXPECT_FALSE(says("fraResult"));
  drop("b.dxf");
  EXPECT_TRUE(says("fraResult"));
  EXPECT_EQ(result(), layersStay());
  EXPECT_FALSE(says("btnOpenFolder") || says("btnCopyCommand"));
  chooseLanguage(1);
  EXPECT_EQ(result(), "Die Layer-Definitions-Datei der letzten Zeichnung gilt weiter: " +
                          folder.file("a.lay"));
  chooseLanguage(0);
  startConversion();
  EXPECT_TRUE(result().starts_with("Entities converted: 1 ")) << result();
  EXPECT_TRUE(result().ends_with("\n" + layersStay())) << result();
  EXPECT_TRUE(says("btnOpenFolder") && says("btnCopyCommand"));
  // By now it belongs to this drawing.
  std::filesystem::remove(folder.file("b.scr"));
  startConversion();
  EXPECT_EQ(result().find("last drawing"), std::string::npos) << result();
}

TEST_F(MainWindowFilesTest, TheLayerFileIsNamedAlsoForADrawingChosenAfterStart) {
  startWithLayers();
  writeDrawing("b.dxf");
  chooseNext("b.dxf");
  startConversion();
  EXPECT_TRUE(result().ends_with("\n" + layersStay())) << result();
}

TEST_F(MainWindowFilesTest, TheLayerFileIsNotNamedForItsOwnDrawingOrOnceItIsChosenAgain) {
  startWithLayers();
  drop("b.dxf");
  drop("a.dxf");
  EXPECT_FALSE(says("fraResult"));
  drop("b.dxf");
  EXPECT_TRUE(says("fraResult"));
  click(*window, "befLayeredit");
  click(find<LayerEditor>(*window, "frmLayers"), "OKButton");
  EXPECT_FALSE(says("fraResult"));
}

TEST_F(MainWindowFilesTest, WithoutALayerFileOrALastDrawingNothingIsNamed) {
  start("dxffile=" + folder.file("a.dxf") + "\r\n");
  drop("b.dxf");
  EXPECT_FALSE(says("fraResult"));
  start("layerfile=" + folder.file("a.lay") + "\r\n");
  drop("b.dxf");
  EXPECT_FALSE(says("fraResult"));
}

}  // namespace
}  // namespace quillon::windows

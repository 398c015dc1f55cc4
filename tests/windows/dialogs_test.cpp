#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>

#include "windows/file_dialog.h"
#include "windows/help_viewer.h"
#include "windows/language_dialog.h"
#include "windows/report_window.h"
#include "windows/shell.h"
#include "windows/splash.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class LanguageDialogTest : public WindowTest {
 protected:
  LanguageDialogTest() { main.LoadSettings(); }
  static void chooseLanguage(QDialog& dialog, int index) {
    choose(find<QComboBox>(dialog, "cboLanguage"), index);
  }
  std::string ini() const { return folder.read("program/larkspur.ini"); }

  MainWindow main{context};
};

TEST_F(LanguageDialogTest, ShowsTheChosenLanguageAtOnce) {
  LanguageDialog dialog(context, [] {});
  dialog.show();
  EXPECT_EQ(find<QPushButton>(dialog, "CancelButton").text(), "&Cancel");
  chooseLanguage(dialog, 1);
  EXPECT_EQ(context.LanguageOffset, 0);
  EXPECT_EQ(find<QPushButton>(dialog, "CancelButton").text(), "&Abbrechen");
  chooseLanguage(dialog, 0);
  EXPECT_EQ(context.LanguageOffset, 10000);
}

TEST_F(LanguageDialogTest, OkKeepsTheLanguageAndTheFiveChoicesOfTheMainWindow) {
  const std::vector<std::pair<const char*, int>> choices = {{"cboUnit", 0},
                                                            {"cboVersion", 0},
                                                            {"cboPoly", 1},
                                                            {"cboBlocks", 2},
                                                            {"komStandartlayer", 60}};
  for (const auto& [name, index] : choices) find<QComboBox>(main, name).setCurrentIndex(index);
  whenModal<LanguageDialog>([](LanguageDialog& dialog) {
    chooseLanguage(dialog, 1);
    click(dialog, "OKButton");
  });
  click(main, "befLanguage");
  EXPECT_EQ(ini(), "[global]\r\nlanguage=0\r\n");
  EXPECT_EQ(find<QPushButton>(main, "befEnde").text(), "&Beenden");
  for (const auto& [name, index] : choices) {
    EXPECT_EQ(find<QComboBox>(main, name).currentIndex(), index) << name;
  }
  EXPECT_EQ(find<QComboBox>(main, "cboPoly").currentText(), "Wire mit def. Breite");
  EXPECT_TRUE(find<QComboBox>(main, "komStandartlayer").currentText().endsWith("Nutzerdefiniert"));
}

TEST_F(LanguageDialogTest, CancelLeavesTheFileAndTheCaptionsButNotTheOffset) {
  whenModal<LanguageDialog>([](LanguageDialog& dialog) {
    chooseLanguage(dialog, 1);
    click(dialog, "CancelButton");
  });
  click(main, "befLanguage");
  EXPECT_EQ(ini(), "");
  EXPECT_EQ(find<QPushButton>(main, "befEnde").text(), "E&xit");
  EXPECT_EQ(context.LanguageOffset, 0);
  EXPECT_EQ(ProgressDialog(context).windowTitle(), "Konvertierung");
}

TEST_F(LanguageDialogTest, SaysWhenTheLanguageCannotBeKept) {
  AppContext nowhere{settings::SettingsStore(folder.write("file", "")), {}, texts::kEnglish};
  LanguageDialog dialog(nowhere, [] {});
  whenAsked(QMessageBox::Ok);
  click(dialog, "OKButton");
  EXPECT_EQ(modalWindows, 1);
}

class ReportWindowTest : public WindowTest {
 protected:
  ReportWindow window{context};
};

TEST_F(ReportWindowTest, ShowsCopiesAndSavesTheReport) {
  window.loadInfo("\r\nConversion Report \r\nTür");
  EXPECT_EQ(find<QPlainTextEdit>(window, "txtInfo").toPlainText(), "\nConversion Report \nTür");
  click(window, "btnCopy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "\nConversion Report \nTür");
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Conversion Report");
    EXPECT_EQ(dialog.nameFilters(), QStringList{"Text files (*.txt)"});
    enterName(dialog, path("report"));
  });
  click(window, "btnSave");
  EXPECT_EQ(folder.read("report.txt"), "\r\nConversion Report \r\nTür");
}

TEST_F(ReportWindowTest, AReportIsNotSavedInAFolderThatIsMissing) {
  window.loadInfo("report");
  whenModal<QFileDialog>([this](QFileDialog& dialog) { enterName(dialog, path("none/report")); });
  whenAsked(QMessageBox::Ok);
  click(window, "btnSave");
  EXPECT_EQ(fromQt(boxText), folder.file("none/report.txt") + " cannot be written: the folder " +
                                 folder.file("none") +
                                 " does not exist. Please create the folder or correct the path.");
  EXPECT_FALSE(folder.has("none"));
}

/// A window that fails to show its text.
class FullReportWindow : public ReportWindow {
 public:
  using ReportWindow::ReportWindow;

 protected:
  void fill(std::string_view report) override {
    ReportWindow::fill(report.substr(0, 3));
    throw std::bad_alloc();
  }
};

TEST_F(ReportWindowTest, StaysEmptyAndSaysSoWhenItCannotBeFilled) {
  FullReportWindow full(context);
  whenAsked(QMessageBox::Ok);
  full.loadInfo("Conversion Report");
  EXPECT_EQ(boxTitle, "Error");
  EXPECT_EQ(boxText, "Can't load file '" + path("program") + "\\Convers.lgf'!");
  EXPECT_EQ(find<QPlainTextEdit>(full, "txtInfo").toPlainText(), "");
}

TEST_F(WindowTest, TheProgressDialogShowsPercentagesNextToItsLabels) {
  ProgressDialog dialog(context);
  EXPECT_EQ(find<QLabel>(dialog, "labRead").text(), "Read in DXF file");
  dialog.read(7);
  EXPECT_EQ(find<QLabel>(dialog, "labRead").text(), "Read in DXF file 7%");
  EXPECT_EQ(dialog.readBeam(), 0);
  dialog.setProgress(false, 40);
  dialog.setProgress(true, 5);
  EXPECT_EQ(find<QLabel>(dialog, "labRead").text(), "Read in DXF file 40%");
  EXPECT_EQ(find<QLabel>(dialog, "labWrite").text(), "Write into Script file 5%");
  EXPECT_EQ(dialog.readBeam(), 40);
  EXPECT_EQ(dialog.writeBeam(), 5);
  context.LanguageOffset = texts::kGerman;
  dialog.loadResources();
  EXPECT_EQ(find<QLabel>(dialog, "labRead").text(), "Einlesen der DXF-Datei");
  dialog.read(100);
  EXPECT_EQ(find<QLabel>(dialog, "labRead").text(), "Einlesen der DXF-Datei 100%");
}

class FileDialogTest : public WindowTest {
 protected:
  static QString nul(const char* text) {
    QString out(text);
    return out.replace('|', QChar(u'\0'));
  }
  ObjFiledialog dialog{context};
};

TEST_F(FileDialogTest, WithoutAFilterShowsAllFiles) {
  EXPECT_EQ(dialog.record("Open").filter, nul("Alle Dateien|*.*||"));
}

TEST_F(FileDialogTest, JoinsTheFiltersThatAreComplete) {
  dialog.Filter1Text = "Scripts";
  dialog.Filter1Suffix = "*.scr";
  dialog.Filter2Text = "no pattern";
  dialog.Filter4Text = "All";
  dialog.Filter4Suffix = "*.*";
  dialog.Filter = nul("Free|*.lay");
  EXPECT_EQ(dialog.record("Open").filter, nul("Scripts|*.scr|All|*.*|Free|*.lay||"));
}

TEST_F(FileDialogTest, AFilterThatEndsInTwoNulStaysAsItIs) {
  dialog.Filter = nul("Layers|*.lay||");
  EXPECT_EQ(dialog.record("Open").filter, nul("Layers|*.lay||"));
}

TEST_F(FileDialogTest, ChoosesFlagsByTheIntent) {
  EXPECT_TRUE(dialog.CheckFlags("Open", nullptr));
  EXPECT_EQ(dialog.Flags, 6145U);
  dialog.Flags = 0;
  EXPECT_TRUE(dialog.CheckFlags("Save", nullptr));
  EXPECT_EQ(dialog.Flags, 2054U);
  EXPECT_TRUE(dialog.CheckFlags("Other", nullptr));
  EXPECT_EQ(dialog.Flags, 2054U);
}

TEST_F(FileDialogTest, TellsOfAnUnknownIntent) {
  whenAsked(QMessageBox::Ok);
  EXPECT_FALSE(dialog.CheckFlags("Print", nullptr));
  EXPECT_EQ(boxTitle, "CheckFlags");
  EXPECT_EQ(boxText, "Unbekannte Intention: Print");
}

TEST_F(FileDialogTest, TheTitleFallsBackByTheIntent) {
  EXPECT_EQ(dialog.record("Open").title, nul("Datei öffnen|"));
  EXPECT_EQ(dialog.record("Save").title, nul("Datei speichern unter|"));
  dialog.DialogTitle = "Mine";
  EXPECT_EQ(dialog.record("Save").title, nul("Mine|"));
}

TEST_F(FileDialogTest, TheNameBufferIsLongerThan512Characters) {
  dialog.setFilename("*.SCR");
  EXPECT_EQ(dialog.record("Open").buffer.size(), 513);
  EXPECT_TRUE(dialog.record("Open").buffer.startsWith(nul("*.SCR|")));
  dialog.setFilename(QString(600, 'x'));
  EXPECT_EQ(dialog.record("Open").buffer.size(), 600);
}

TEST_F(FileDialogTest, ACancelledDialogGivesNoNameWhateverWasPreset) {
  dialog.setFilename("*.SCR");
  whenModal<QFileDialog>([](QFileDialog& box) { box.reject(); });
  EXPECT_EQ(dialog.ShowOpen(nullptr), "");
  EXPECT_EQ(dialog.Filename(), "");
  EXPECT_EQ(modalWindows, 1);
}

TEST_F(FileDialogTest, SavingAddsTheDefaultExtension) {
  dialog.DefaultExt = "LAY";
  dialog.InitDir = toQt(folder.path().string());
  whenModal<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
    enterName(box, "new");
  });
  EXPECT_EQ(dialog.ShowSave(nullptr), path("new.LAY"));
}

/// Receives what would open in a browser.
class Opened : public QObject {
  Q_OBJECT
 public:
  QList<QUrl> urls;
 public Q_SLOTS:
  void take(const QUrl& url) { urls.push_back(url); }
};

class ShellTest : public WindowTest {
 protected:
  ShellTest() {
    for (const char* scheme : {"https", "file"}) {
      QDesktopServices::setUrlHandler(scheme, &opened, "take");
    }
  }
  ~ShellTest() override {
    for (const char* scheme : {"https", "file"}) QDesktopServices::unsetUrlHandler(scheme);
  }
  void open(const QString& file) {
    ShellRequest request;
    request.file = file;
    EXPECT_TRUE(ShellEx(context, request, nullptr));
  }
  int failureOf(const QString& file) {
    try {
      ShellRequest request;
      request.file = file;
      ShellEx(context, request, nullptr);
    } catch (const ShellError& error) {
      description = error.what();
      EXPECT_EQ(error.number(), static_cast<int>(0x80040418U) + error.result());
      EXPECT_EQ(error.source(), "Quillon.GShell");
      return error.result();
    }
    return -1;
  }

  Opened opened;
  std::string description;
};

TEST_F(ShellTest, OpensAddressesFilesAndFolders) {
  open("https://quillon.example/x");
  open(path(""));
  open(toQt(folder.write("a.txt", "")));
  ASSERT_EQ(opened.urls.size(), 3);
  EXPECT_EQ(opened.urls[0], QUrl("https://quillon.example/x"));
  EXPECT_EQ(opened.urls[2], QUrl::fromLocalFile(path("a.txt")));
}

TEST_F(ShellTest, SaysWhatIsMissing) {
  EXPECT_EQ(failureOf(path("none.txt")), 2);
  EXPECT_EQ(description, "File not found");
  EXPECT_EQ(failureOf(path("none/none.txt")), 3);
  EXPECT_EQ(description, "Path not found");
}

TEST_F(ShellTest, EveryResultHasItsText) {
  const texts::Texts german(texts::kGerman);
  EXPECT_EQ(shellErrorText(0, german), "Speicher zu klein");
  EXPECT_EQ(shellErrorText(5, german), "Datei/Pfad Zugriffsfehler");
  EXPECT_EQ(shellErrorText(11, german), "Die Programmdatei ist defekt oder manipuliert");
  EXPECT_EQ(shellErrorText(26, context.texts()), "A sharing violation occurred.");
  EXPECT_EQ(shellErrorText(27, context.texts()),
            "This file type does not have a valid file association.");
  EXPECT_EQ(shellErrorText(28, context.texts()),
            "The file could not be opened due to time out. Please try again in a moment.");
  EXPECT_EQ(shellErrorText(29, context.texts()),
            "The file could not be opened because the DDE transaction failed. Please try again in "
            "a moment.");
  EXPECT_EQ(shellErrorText(30, context.texts()),
            "The file could not be opened because the target application is busy. Please try again "
            "in a moment.");
  EXPECT_EQ(shellErrorText(31, context.texts()),
            "No application is associated with this file type.");
  EXPECT_EQ(shellErrorText(32, context.texts()),
            "The specified dynamic-link library was not found.");
  EXPECT_EQ(shellErrorText(7, context.texts()),
            "An error occurred while trying to open the selected file.");
}

TEST_F(ShellTest, TheViewersLinkOpensItsPage) {
  context.viewerPage = "https://quillon.example/viewer";
  MainWindow main(context);
  main.show();
  auto& link = find<QLabel>(main, "labViewer");
  QTest::mouseClick(&link, Qt::LeftButton, {}, {link.fontMetrics().height(), link.height() / 2});
  ASSERT_EQ(opened.urls.size(), 1);
  EXPECT_EQ(opened.urls[0].scheme(), "https");
}

TEST_F(WindowTest, ASplashClosesOnAClickAndByItself) {
  Splash clicked;
  clicked.show();
  QTest::mouseClick(&find<QLabel>(clicked, "labCaption"), Qt::LeftButton);
  EXPECT_FALSE(clicked.isVisible());
  Splash waiting;
  EXPECT_EQ(find<QLabel>(waiting, "labVersion").text(), "Version " QUILLON_VERSION);
  EXPECT_EQ(waiting.exec(), QDialog::Accepted);
}

TEST_F(WindowTest, HelpShowsThePageOfAContext) {
  folder.write("x", "");
  std::filesystem::create_directories(folder.path() / "help" / "en");
  folder.write("help/en/main-window.html", "<html><head><title>Main</title></head><p>Hi</html>");
  EXPECT_EQ(findHelpFolder(toQt(folder.path().string())), path("help"));
  EXPECT_EQ(findHelpFolder(path("none")), "");
  HelpViewer viewer(path("help"));
  EXPECT_TRUE(viewer.showPage(11000));
  EXPECT_EQ(viewer.windowTitle(), "Main");
  EXPECT_TRUE(find<QTextBrowser>(viewer, "txtHelp").toPlainText().contains("Hi"));
  EXPECT_FALSE(viewer.showPage(1000));
  EXPECT_FALSE(viewer.showPage(7));
}

TEST_F(WindowTest, HelpOpensInTheViewerThatIsOpenAlready) {
  QWidget owner;
  const auto viewers = [&owner] { return owner.findChildren<HelpViewer*>(); };
  EXPECT_TRUE(openHelp(context, QUILLON_HELP, kMainWindowHelp, &owner));
  EXPECT_TRUE(openHelp(context, QUILLON_HELP, kLayerEditorHelp, &owner));
  ASSERT_EQ(viewers().size(), 1);
  EXPECT_EQ(find<QTextBrowser>(*viewers().front(), "txtHelp").source().fileName(),
            "layer-editor.html");
  viewers().front()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(openHelp(context, QUILLON_HELP, kMainWindowHelp, &owner));
  EXPECT_EQ(viewers().size(), 1);
  EXPECT_FALSE(openHelp(context, "", kMainWindowHelp, &owner));
}

TEST_F(WindowTest, EveryWindowHasItsHelpPageInBothLanguages) {
  HelpViewer viewer(QUILLON_HELP);
  for (const int language : {texts::kGerman, texts::kEnglish}) {
    for (const int page : {kMainWindowHelp, kLayerEditorHelp}) {
      EXPECT_TRUE(viewer.showPage(language + page)) << language + page;
      EXPECT_GT(find<QTextBrowser>(viewer, "txtHelp").toPlainText().size(), 1000);
    }
  }
}

}  // namespace
}  // namespace quillon::windows

#include "dialogs_test.moc"

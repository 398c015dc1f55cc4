#include "windows/error_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>
#include <QPrinterInfo>

#include "errors/attempt.h"
#include "files/output_file.h"
#include "windows/opened_addresses.h"
#include "windows/print_protocol.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

using errors::kEnd;
using errors::kLeave;
using errors::kResume;
using errors::kRetry;

class ErrorWindowTest : public WindowTest {
 protected:
  /// Makes a procedure fail and acts on the window that opens.
  void fail(std::function<void(ErrorWindow&)> action,
            unsigned allowed = errors::kEveryContinuation) {
    whenModal<ErrorWindow>(std::move(action));
    try {
      const errors::Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
      throw files::WriteError(ENOSPC);
    } catch (...) {
      choice = faults.OnError("frmDXF", "befStart_Click", allowed);
    }
    EXPECT_EQ(modalWindows, expectedWindows);
  }
  static void clickAndLeave(ErrorWindow& window, const char* name) {
    click(window, name);
    window.reject();
  }
  QString text(ErrorWindow& window, const char* name) { return find<QLabel>(window, name).text(); }

  std::filesystem::path home = folder.path() / "program";
  int expectedWindows = 1;
  int choice = -1;
};

TEST_F(ErrorWindowTest, ShowsTheErrorAndHowItWasReached) {
  fail([this](ErrorWindow& window) {
    EXPECT_EQ(window.windowTitle(), "Quillon - Fehlermeldung");
    EXPECT_EQ(find<QGroupBox>(window, "framFehler").title(), "Fehlerbeschreibung:");
    EXPECT_EQ(text(window, "lblErrTitel_0"), "Fehler-Nr:");
    EXPECT_EQ(text(window, "lblErrTitel_1"), "Modul:");
    EXPECT_EQ(text(window, "lblErrTitel_2"), "Prozedur:");
    EXPECT_EQ(text(window, "lblErrTitel_3"), "Zeilen-Nr.:");
    EXPECT_EQ(text(window, "lblError_0"), "61");
    EXPECT_EQ(text(window, "lblError_1"), "frmDXF");
    EXPECT_EQ(text(window, "lblError_2"), "befStart_Click");
    EXPECT_GT(text(window, "lblError_3").toInt(), 0);
    EXPECT_FALSE(text(window, "lblComment").isEmpty());
    EXPECT_TRUE(
        find<QGroupBox>(window, "framComment").isAncestorOf(&find<QLabel>(window, "lblComment")));
    EXPECT_EQ(find<QGroupBox>(window, "framCallStack").title(), "CallStack:");
    auto& list = find<QListWidget>(window, "lstCallStack");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), "frmDXF.befStart_Click");
    window.reject();
  });
}

TEST_F(ErrorWindowTest, HasItsGermanCaptionsInBothLanguages) {
  for (const int language : {texts::kGerman, texts::kEnglish}) {
    context.LanguageOffset = language;
    fail([](ErrorWindow& window) {
      EXPECT_EQ(find<QGroupBox>(window, "framProtocol").title(), "Fehlerprotokoll ...");
      EXPECT_EQ(find<QGroupBox>(window, "framContinue").title(), "Weiterer Programmablauf...");
      const std::array<std::pair<const char*, const char*>, 7> captions = {
          {{"cmdProtocol_0", "&Speichern"},
           {"cmdProtocol_1", "&EMail"},
           {"cmdProtocol_2", "&Drucken"},
           {"cmdContinue_0", "Befehl wieder&holen"},
           {"cmdContinue_1", "Fortsetzen mit &nächsten Befehl"},
           {"cmdContinue_2", "&Prozedur verlassen"},
           {"cmdContinue_3", "Programm &beenden"}}};
      for (const auto& [name, caption] : captions) {
        EXPECT_EQ(find<QPushButton>(window, name).text(), caption);
        EXPECT_FALSE(find<QPushButton>(window, name).toolTip().isEmpty());
      }
      window.reject();
    });
    ++expectedWindows;
  }
}

TEST_F(ErrorWindowTest, ReturnsWhichContinuationWasChosen) {
  const std::array<std::pair<const char*, int>, 3> buttons = {
      {{"cmdContinue_0", kRetry}, {"cmdContinue_1", kResume}, {"cmdContinue_2", kLeave}}};
  for (const auto& [name, expected] : buttons) {
    fail([name = name](ErrorWindow& window) { click(window, name); });
    EXPECT_EQ(choice, expected);
    EXPECT_FALSE(faults.ending());
    ++expectedWindows;
  }
}

TEST_F(ErrorWindowTest, EnablesOnlyWhatIsAllowed) {
  // All choices except End, which closing the window would otherwise choose.
  for (unsigned allowed = 0; allowed < errors::kMayEnd; ++allowed) {
    fail(
        [allowed](ErrorWindow& window) {
          for (int i = 0; i < 4; ++i) {
            const QByteArray name = "cmdContinue_" + QByteArray::number(i);
            EXPECT_EQ(find<QPushButton>(window, name.constData()).isEnabled(),
                      (allowed >> i & 1U) != 0)
                << allowed;
          }
          window.reject();
        },
        allowed);
    ++expectedWindows;
  }
}

TEST_F(ErrorWindowTest, ClosingItLeavesTheProcedureWhereThatIsAllowed) {
  const auto close = [](ErrorWindow& window) { window.close(); };
  fail(close);
  EXPECT_EQ(choice, kLeave);
  ++expectedWindows;
  fail(close, errors::kMayRetry | errors::kMayResume);
  EXPECT_EQ(choice, kResume);
  ++expectedWindows;
  fail(close, errors::kMayRetry);
  EXPECT_EQ(choice, kRetry);
}

TEST_F(ErrorWindowTest, EndLeavesTheEventLoops) {
  int exitCode = -1;
  QTimer::singleShot(0, [&] { fail([](ErrorWindow& window) { click(window, "cmdContinue_3"); }); });
  exitCode = QApplication::exec();
  EXPECT_EQ(exitCode, kEndedByError);
  EXPECT_EQ(choice, kEnd);
  EXPECT_TRUE(faults.ending());
}

TEST_F(ErrorWindowTest, SavesTheProtocolBesideTheProgram) {
  fail([this](ErrorWindow& window) {
    whenAsked(QMessageBox::Ok);
    clickAndLeave(window, "cmdProtocol_0");
    expectedWindows = 2;
  });
  EXPECT_EQ(boxText, "Das Fehlerprotokoll wurde in die Datei '" + path("program/quillon.ERR") +
                         "' geschrieben !");
  const std::string protocol = folder.read("program/quillon.ERR");
  EXPECT_TRUE(protocol.starts_with(std::string(70, '-') + "\r\nF E H L E R P R O T O K O L L"));
  EXPECT_NE(protocol.find("frmDXF.befStart_Click\r\n"), std::string::npos);
}

TEST_F(ErrorWindowTest, AsksBeforeItReplacesAProtocol) {
  std::filesystem::create_directories(home);
  folder.write("program/quillon.ERR", "old");
  fail([this](ErrorWindow& window) {
    whenAsked(QMessageBox::No);
    clickAndLeave(window, "cmdProtocol_0");
    expectedWindows = 2;
  });
  EXPECT_EQ(boxText, "Vorhandene Datei '" + path("program/quillon.ERR") + "' überschreiben ?");
  EXPECT_EQ(folder.read("program/quillon.ERR"), "old");
  modalWindows = 0;
  fail([this](ErrorWindow& window) {
    whenModal<QMessageBox>([this](QMessageBox& question) {
      // The second box confirms that the file was written.
      whenAsked(QMessageBox::Ok);
      question.button(QMessageBox::Yes)->click();
    });
    clickAndLeave(window, "cmdProtocol_0");
    expectedWindows = 3;
  });
  EXPECT_NE(folder.read("program/quillon.ERR"), "old");
}

TEST_F(ErrorWindowTest, SaysNothingWhereTheProtocolCannotBeSaved) {
  folder.write("program", "a file where the folder should be");
  fail([](ErrorWindow& window) { clickAndLeave(window, "cmdProtocol_0"); });
  EXPECT_EQ(boxText, "");
}

TEST_F(ErrorWindowTest, MailsThroughTheClipboard) {
  OpenedAddresses opened({"mailto"});
  fail([this](ErrorWindow& window) {
    whenAsked(QMessageBox::Ok);
    clickAndLeave(window, "cmdProtocol_1");
    expectedWindows = 2;
  });
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("F E H L E R P R O T O K O L L"));
  EXPECT_TRUE(
      boxText.startsWith("Es wird jetzt Ihr Standard-Email-Programm aufgerufen. Die "
                         "Fehlerbeschreibung sowie das Fehlerprotokoll\nwurden zu"));
  EXPECT_TRUE(boxText.endsWith("den Befehl 'Einfügen' aus dem Menü 'Bearbeiten' ausführen."));
  ASSERT_EQ(opened.urls.size(), 1);
  EXPECT_EQ(opened.urls[0], QUrl("mailto:support@quillon.example"));
}

TEST_F(ErrorWindowTest, SaysWhereThereIsNoPrinter) {
  if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "there is a printer here";
  fail([this](ErrorWindow& window) {
    whenAsked(QMessageBox::Ok);
    clickAndLeave(window, "cmdProtocol_2");
    expectedWindows = 2;
  });
  EXPECT_EQ(boxText, "No printer is set up.");
}

TEST_F(ErrorWindowTest, PrintsTheProtocolOnPages) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(path("protocol.pdf"));
  printProtocol(QString("a line\r\n").repeated(200), printer);
  const std::string pdf = folder.read("protocol.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF"));
  std::size_t pages = 0;
  const std::string page = "/Type /Page\n";
  for (std::size_t at = pdf.find(page); at != std::string::npos; at = pdf.find(page, at + 1)) {
    ++pages;
  }
  EXPECT_GE(pages, 3U);
}

TEST_F(ErrorWindowTest, NamesTheTraceFileAndWhereToSendIt) {
  fail([this](ErrorWindow& window) {
    const QString notice = wholeText(find<QLabel>(window, "lblTrace"));
    EXPECT_TRUE(notice.contains(path("program/quillon.EPT"))) << fromQt(notice);
    EXPECT_TRUE(notice.contains("support@quillon.example")) << fromQt(notice);
    window.reject();
  });
  EXPECT_TRUE(folder.has("program/quillon.EPT"));
}

}  // namespace
}  // namespace quillon::windows

// A fault in any window's handler leads to the error window, with the right names.
#include <QClipboard>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <stdexcept>

#include "app/window/application.h"
#include "windows/error_window.h"
#include "windows/file_dialog.h"
#include "windows/language_dialog.h"
#include "windows/layer_editor.h"
#include "windows/report_window.h"
#include "windows/result_panel.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class FaultsTest : public WindowTest {
 protected:
  ~FaultsTest() override { faults.callStack().watch({}); }

  /// Makes a procedure fail at its start, `times` times.
  void failIn(const std::string& module, const std::string& procedure, int times = 1) {
    left = times;
    faults.callStack().watch([this, module, procedure](const errors::CallStackList::Entry& begun) {
      if (begun.module != module || begun.procedure != procedure || left == 0) return;
      --left;
      throw std::runtime_error("injected");
    });
  }
  /// Answers the next error window with one of its buttons.
  void whenFault(const char* button) {
    whenModal<ErrorWindow>([this, button](ErrorWindow& window) {
      shownModule = find<QLabel>(window, "lblError_1").text();
      shownProcedure = find<QLabel>(window, "lblError_2").text();
      shownText = find<QLabel>(window, "lblComment").text();
      resumeEnabled = find<QPushButton>(window, "cmdContinue_1").isEnabled();
      click(window, button);
    });
  }
  void expectFault(const char* module, const char* procedure,
                   const std::function<void()>& trigger) {
    SCOPED_TRACE(procedure);
    const int before = modalWindows;
    shownModule.clear();
    failIn(module, procedure);
    whenFault("cmdContinue_2");
    trigger();
    QTest::qWait(1);  // for what is queued
    EXPECT_EQ(modalWindows, before + 1);
    EXPECT_EQ(fromQt(shownModule), module);
    EXPECT_EQ(fromQt(shownProcedure), procedure);
    EXPECT_EQ(fromQt(shownText), "injected");
    EXPECT_EQ(faults.callStack().size(), 0U);
  }
  void expectFaults(QWidget& window, const char* module,
                    const std::vector<std::pair<const char*, const char*>>& buttons) {
    for (const auto& [button, procedure] : buttons) {
      expectFault(module, procedure,
                  [&window, name = button] { find<QAbstractButton>(window, name).click(); });
    }
  }

  int left = 0;
  QString shownModule;
  QString shownProcedure;
  QString shownText;
  bool resumeEnabled = false;
};

TEST_F(FaultsTest, InTheMainWindow) {
  MainWindow window(context);
  window.show();
  expectFaults(window, "frmDXF",
               {{"btnDXFbrowse", "btnDXFbrowse_Click"},
                {"btnSCRbrowse", "btnSCRbrowse_Click"},
                {"btnBRDbrowse", "btnBRDbrowse_Click"},
                {"befLayeredit", "befLayeredit_Click"},
                {"befSave", "befSave_Click"},
                {"befLanguage", "befLanguage_Click"},
                {"befHilfe", "befHilfe_Click"},
                {"befEnde", "befEnde_Click"},
                {"befStart", "befStart_Click"},
                {"chkBRDSCH_1", "chkBRDSCH_Click"}});
}

TEST_F(FaultsTest, InLoadingTheSettingsLeaveTheDefaults) {
  MainWindow window(context);
  failIn("frmDXF", "LoadSettings");
  whenFault("cmdContinue_1");
  window.LoadSettings();
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(shownProcedure, "LoadSettings");
  EXPECT_EQ(find<QLineEdit>(window, "txtmasst").text(), "1.000");
}

TEST_F(FaultsTest, InTheMainWindowsEvents) {
  MainWindow window(context);
  window.show();
  expectFault("frmDXF", "labViewer_Click",
              [&] { Q_EMIT find<QLabel>(window, "labViewer").linkActivated("viewer"); });
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  expectFault("frmDXF", "befHilfe_Click", [&] { QTest::keyClick(&window, Qt::Key_F1); });
  expectFault("frmDXF", "closeEvent", [&] {
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
  });
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(toQt(writeDrawing("a.dxf")))});
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  expectFault("frmDXF", "dragEnterEvent", [&] { QApplication::sendEvent(&window, &enter); });
  QApplication::sendEvent(&window, &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  expectFault("frmDXF", "dropEvent", [&] { QApplication::sendEvent(&window, &drop); });
  EXPECT_FALSE(find<QLineEdit>(window, "txtDXFDatei").text().contains("a.dxf"));
}

TEST_F(FaultsTest, InTheLayerEditor) {
  LayerEditor window(
      context, {}, [](const QString&) {}, nullptr);
  window.show();
  expectFaults(window, "frmLayers",
               {{"btnLayerbrowse", "btnLayerbrowse_Click"},
                {"btnScan", "btnScan_Click"},
                {"btnNew", "btnNew_Click"},
                {"btnSave", "btnSave_Click"},
                {"btnSaveAs", "btnSaveAs_Click"},
                {"btnTake", "btnTake_Click"},
                {"befHilfe", "befHilfe_Click"},
                {"OKButton", "OKButton_Click"},
                {"CancelButton", "CancelButton_Click"}});
  expectFault("frmLayers", "reject", [&] { window.close(); });
  EXPECT_TRUE(window.isVisible());
}

TEST_F(FaultsTest, InTheLayerTable) {
  LayerEditor window(
      context, {}, [](const QString&) {}, nullptr);
  window.show();
  auto& grid = find<QTableWidget>(window, "grdLayers");
  expectFault("grdLayers", "keyPressEvent", [&] { QTest::keyClick(&grid, Qt::Key_Delete); });
  expectFault("grdLayers", "cellEdited", [&] { grid.item(0, 0)->setText("A"); });
  expectFault("grdLayers", "warnOfDuplicate", [&] {
    grid.item(1, 0)->setText("B");
    QCoreApplication::processEvents();
  });
  expectFault("grdLayers", "contextMenuEvent", [&] {
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5),
                           grid.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&grid, &menu);
  });
}

TEST_F(FaultsTest, InTheDialogs) {
  LanguageDialog language(context, [] {});
  language.show();
  expectFault("frmConfig", "OKButton_Click", [&] { click(language, "OKButton"); });
  EXPECT_TRUE(language.isVisible());
  expectFault("frmConfig", "cboLanguage_Click",
              [&] { choose(find<QComboBox>(language, "cboLanguage"), 1); });
  ReportWindow report(context, nullptr);
  report.show();
  expectFaults(report, "frmReport", {{"btnCopy", "btnCopy_Click"}, {"btnSave", "btnSave_Click"}});
  ProgressDialog progress(context);
  progress.show();
  expectFaults(progress, "frmDxf_msg", {{"befAbbruch", "befAbbruch_Click"}});
  EXPECT_FALSE(progress.cancelRequested());
  ResultPanel panel(context);
  panel.show();
  expectFaults(
      panel, "fraResult",
      {{"btnOpenFolder", "btnOpenFolder_Click"}, {"btnCopyCommand", "btnCopyCommand_Click"}});
}

TEST_F(FaultsTest, InTheFileDialog) {
  ObjFiledialog dialog(context);
  expectFault("ObjFiledialog", "ShowOpen", [&] { EXPECT_EQ(dialog.ShowOpen(nullptr), ""); });
  expectFault("ObjFiledialog", "ShowSave", [&] { EXPECT_EQ(dialog.ShowSave(nullptr), ""); });
}

/// An object whose event handler does not trap errors.
class Untrapped : public QObject {
 public:
  bool event(QEvent*) override { throw std::runtime_error("injected"); }
};

TEST_F(FaultsTest, InAnyOtherHandlerIsReportedByTheApplication) {
  auto& app = static_cast<window::Application&>(*QCoreApplication::instance());
  app.setFaults(&faults);
  whenFault("cmdContinue_2");
  Untrapped receiver;
  QEvent event(QEvent::User);
  EXPECT_FALSE(QCoreApplication::sendEvent(&receiver, &event));
  app.setFaults(nullptr);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(fromQt(shownModule), "Application");
  EXPECT_EQ(fromQt(shownProcedure), "notify");
  EXPECT_EQ(fromQt(shownText), "injected");
}

TEST_F(FaultsTest, RetryDoesWhatTheButtonDoes) {
  MainWindow window(context);
  window.LoadSettings();
  window.setDrawing(toQt(writeDrawing("a.dxf")));
  find<QCheckBox>(window, "chkReport").setChecked(false);
  find<QLineEdit>(window, "txtBRDname").setText("BOARD");
  failIn("frmDXF", "befStart_Click", 2);
  whenFault("cmdContinue_0");
  QTimer::singleShot(200, &timers, [this] { whenFault("cmdContinue_0"); });
  const convert::ConversionResult result = window.befStart_Click();
  EXPECT_EQ(modalWindows, 2);
  EXPECT_EQ(result.outcome, convert::Outcome::Converted);
  EXPECT_TRUE(folder.has("a.scr"));
}

/// Lets a conversion fail where its progress dialog is told how far it has come.
class FailingDialog : public QObject {
 public:
  explicit FailingDialog(int times) : left_(times) { qApp->installEventFilter(this); }
  int left() const { return left_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Show || object->objectName() != "frmDxf_msg") return false;
    for (QProgressBar* const bar : object->findChildren<QProgressBar*>()) {
      connect(bar, &QProgressBar::valueChanged, this, [this](int percent) {
        if (percent == 0 || left_ == 0) return;
        --left_;
        throw std::out_of_range("injected");
      });
    }
    return false;
  }

 private:
  int left_;
};

TEST_F(FaultsTest, InsideAConversionAreNoMessageAboutTheScript) {
  MainWindow window(context);
  window.LoadSettings();
  window.setDrawing(toQt(writeDrawing("a.dxf")));
  find<QCheckBox>(window, "chkReport").setChecked(false);
  find<QLineEdit>(window, "txtBRDname").setText("BOARD");
  const std::size_t entries = folder.entries();
  const FailingDialog failing(1);
  QStringList records;
  whenModal<ErrorWindow>([&](ErrorWindow& error) {
    shownModule = find<QLabel>(error, "lblError_1").text();
    shownProcedure = find<QLabel>(error, "lblError_2").text();
    shownText = find<QLabel>(error, "lblComment").text();
    EXPECT_EQ(find<QLabel>(error, "lblError_0").text(), "9");
    const auto& list = find<QListWidget>(error, "lstCallStack");
    for (int i = 0; i < list.count(); ++i) records << list.item(i)->text();
    click(error, "cmdContinue_2");
  });
  EXPECT_EQ(window.befStart_Click().outcome, convert::Outcome::Ended);
  EXPECT_EQ(failing.left(), 0);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(fromQt(shownModule), "frmDXF");
  EXPECT_EQ(fromQt(shownProcedure), "befStart_Click");
  EXPECT_EQ(fromQt(shownText), "injected");
  EXPECT_EQ(records, (QStringList{"frmDXF.befStart_Click", "scriptFile:\t" + path("a.scr"),
                                  "dxfFile:\t" + path("a.dxf")}));
  EXPECT_FALSE(folder.has("a.scr"));
  EXPECT_EQ(folder.entries(), entries);  // the trace is in the program's folder
  EXPECT_TRUE(window.isEnabled());
  // Nothing is left of it: the next conversion succeeds.
  EXPECT_EQ(window.befStart_Click().outcome, convert::Outcome::Converted);
  EXPECT_TRUE(folder.has("a.scr"));
}

TEST_F(FaultsTest, InsideAConversionCanBeRetried) {
  MainWindow window(context);
  window.LoadSettings();
  window.setDrawing(toQt(writeDrawing("a.dxf")));
  find<QCheckBox>(window, "chkReport").setChecked(false);
  find<QLineEdit>(window, "txtBRDname").setText("BOARD");
  const FailingDialog failing(1);
  whenFault("cmdContinue_0");
  EXPECT_EQ(window.befStart_Click().outcome, convert::Outcome::Converted);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_TRUE(folder.has("a.scr"));
}

TEST_F(FaultsTest, ResumeContinuesAfterTheStep) {
  MainWindow window(context);
  window.show();
  failIn("frmDXF", "befStart_Click");
  whenFault("cmdContinue_1");
  EXPECT_EQ(window.befStart_Click().outcome, convert::Outcome::Ended);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_TRUE(resumeEnabled);
  EXPECT_TRUE(window.isEnabled());
}

TEST_F(FaultsTest, ResumeIsOfferedOnlyWhereSomethingFollows) {
  MainWindow window(context);
  expectFault("frmDXF", "befSave_Click", [&] { find<QPushButton>(window, "befSave").click(); });
  EXPECT_FALSE(resumeEnabled);
}

TEST_F(FaultsTest, EndEndsTheProgramFromWithinItsDialogs) {
  MainWindow window(context);
  window.show();
  QTimer::singleShot(0, &window, [this, &window] {
    whenModal<LanguageDialog>([this](LanguageDialog& dialog) {
      failIn("frmConfig", "OKButton_Click");
      whenFault("cmdContinue_3");
      click(dialog, "OKButton");
    });
    find<QPushButton>(window, "befLanguage").click();
  });
  EXPECT_EQ(QApplication::exec(), kEndedByError);
  EXPECT_TRUE(faults.ending());
}

TEST_F(FaultsTest, EndCancelsARunningConversion) {
  MainWindow window(context);
  window.LoadSettings();
  testing::DxfBuilder dxf;
  for (int i = 0; i < 200000; ++i) {
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  }
  window.setDrawing(toQt(folder.write("a.dxf", dxf.text())));
  find<QCheckBox>(window, "chkReport").setChecked(false);
  find<QLineEdit>(window, "txtBRDname").setText("BOARD");
  failIn("frmDxf_msg", "befAbbruch_Click");
  whenModal<ErrorWindow>([](ErrorWindow& error) { click(error, "cmdContinue_3"); });
  QTimer::singleShot(0, &timers, [] {
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      auto* const cancel = top->findChild<QPushButton*>("befAbbruch");
      if (cancel != nullptr && cancel->isVisible()) cancel->click();
    }
  });
  // The message about the cancel closes at once, as the program ends.
  const convert::ConversionResult result = window.befStart_Click();
  EXPECT_EQ(result.outcome, convert::Outcome::Cancelled);
  EXPECT_TRUE(faults.ending());
  // Lets the application finish ending here, so that other tests can open dialogs again.
  QTimer::singleShot(0, &timers, [] { QCoreApplication::quit(); });
  QApplication::exec();
}

}  // namespace
}  // namespace quillon::windows

// Every window on the current screen, which some test runs make small: nothing exceeds the screen,
// and each button can be reached by keyboard and is fully visible.
#include <QDir>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include "errors/attempt.h"
#include "windows/content_area.h"
#include "windows/error_window.h"
#include "windows/file_dialog.h"
#include "windows/help_viewer.h"
#include "windows/language_dialog.h"
#include "windows/path_label.h"
#include "windows/question.h"
#include "windows/queue_window.h"
#include "windows/report_window.h"
#include "windows/save_picture.h"
#include "windows/splash.h"
#include "windows/window_fixture.h"
#include "windows/window_host.h"

namespace quillon::windows {
namespace {

class SmallScreenTest : public WindowTest, public ::testing::WithParamInterface<int> {
 protected:
  SmallScreenTest() {
    context.LanguageOffset = GetParam();
    QDir().mkpath("screenshots");
  }

  static QString screenName() {
    const QScreen& screen = *QApplication::primaryScreen();
    const QSize size = screen.size() * screen.devicePixelRatio();
    return QString("%1x%2-%3x").arg(size.width()).arg(size.height()).arg(screen.devicePixelRatio());
  }
  static bool isSeenWhole(const QPushButton& button) {
    return button.visibleRegion().boundingRect() == button.rect();
  }
  /// The buttons that Tab does not reach, or that are then not fully visible.
  static QStringList outOfReach(QWidget& window) {
    QSet<QPushButton*> missing;
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
      if (button->isVisible() && button->isEnabled()) missing << button;
    }
    for (int steps = 0; steps < 200 && !missing.isEmpty(); ++steps) {
      QWidget* const focus = QApplication::focusWidget();
      auto* const button = qobject_cast<QPushButton*>(focus);
      if (button != nullptr && isSeenWhole(*button)) missing.remove(button);
      QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Tab);
    }
    QStringList names;
    for (const QPushButton* const button : missing) names << button->objectName() + button->text();
    return names;
  }
  void expectOnScreen(QWidget& window) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::qWait(50);
    const QString language = GetParam() == texts::kGerman ? "-de-" : "-en-";
    EXPECT_TRUE(savePicture(
        window, "screenshots/" + window.objectName() + language + screenName() + ".png"));
    const QRect screen = window.screen()->availableGeometry();
    // Window managers position and frame a window only a moment later.
    const auto onScreen = [&] { return screen.contains(window.frameGeometry()); };
    const bool found = QTest::qWaitFor(onScreen);
    const QRect frame = window.frameGeometry();
    EXPECT_TRUE(found) << frame.width() << " x " << frame.height() << " at " << frame.x() << ", "
                       << frame.y() << " on " << fromQt(screenName());
    // Desktops add a title bar, which is missing here.
    EXPECT_LE(window.height(), screen.height() - kTitle);
    EXPECT_EQ(fromQt(outOfReach(window).join(", ")), "");
  }

  /// A path too long for any screen.
  std::string longPath(const std::string& name) {
    std::string path = std::string(80, 'a') + "/" + std::string(80, 'b');
    std::filesystem::create_directories(folder.path() / path);
    return path + "/" + name;
  }

  static constexpr int kTitle = 18;
};

TEST_P(SmallScreenTest, MainWindow) {
  MainWindow window(context);
  window.LoadSettings();
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, MainWindowWithALongResult) {
  folder.write(longPath("a.lay"), "[1]\nlayername=0\nlayernr=20\n");
  context.store.WriteIni(
      "dxf",
      {{"dxffile", "old.dxf"}, {"layerfile", folder.file(longPath("a.lay"))}, {"report", "0"}});
  MainWindow window(context);
  window.setObjectName("frmDXF-result");
  window.LoadSettings();
  window.show();
  window.setDrawing(toQt(writeDrawing(longPath("a.dxf"))));
  window.befStart_Click();
  expectOnScreen(window);
  const auto& result = find<QLabel>(window, "labResult");
  EXPECT_TRUE(result.text().contains("…")) << fromQt(result.text());
  for (const char* const name : {"a.dxf", "a.scr", "a.lay"}) {
    EXPECT_TRUE(result.toolTip().contains(path(longPath(name)))) << fromQt(result.toolTip());
  }
  EXPECT_LE(result.heightForWidth(result.width()), result.height());
  EXPECT_EQ(fromQt(find<QLabel>(window, "labLayerDatei").toolTip()),
            folder.file(longPath("a.lay")));
  EXPECT_LT(find<QLabel>(window, "labLayerDatei").width(), window.width());
}

TEST_P(SmallScreenTest, LayerEditor) {
  testing::DxfBuilder dxf;
  dxf.layer("OUTLINE").layer(std::string(200, 'L'));
  const std::string file = folder.write(longPath("a.lay"), "[1]\nlayername=OUTLINE\nlayernr=20\n");
  LayerEditor window(
      context, toQt(file), [](const QString&) {}, nullptr);
  window.layerScanDXF(toQt(folder.write("a.dxf", dxf.text())));
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, QueueWindow) {
  QueueWindow window(
      context, [] { return convert::ConversionJob(); }, nullptr);
  QStringList drawings;
  for (int i = 0; i < 40; ++i) {
    drawings << toQt(writeDrawing("a drawing with a longer name " + std::to_string(i) + ".dxf"));
  }
  window.add(drawings);
  window.start();
  EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isRunning(); }, 60000));
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, LanguageDialog) {
  LanguageDialog window(context, [] {});
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, Report) {
  ReportWindow window(context);
  window.loadInfo(std::string(3000, '=') + "\r\n" + std::string(200, '\n'));
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, ProgressDialog) {
  ProgressDialog window(context);
  window.setWindowTitle(path(longPath("a.dxf")));
  window.setProgress(false, 70);
  window.setStatus(context.texts()(texts::TextId::StatusEntities));
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, Help) {
  HelpViewer window(QUILLON_HELP);
  window.showPage(context.LanguageOffset + kMainWindowHelp);
  window.showPage(context.LanguageOffset + kLayerEditorHelp);
  expectOnScreen(window);
}

TEST_P(SmallScreenTest, Splash) {
  Splash window;
  window.show();
  EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
}

TEST_P(SmallScreenTest, ErrorWindow) {
  whenModal<ErrorWindow>([this](ErrorWindow& window) {
    expectOnScreen(window);
    window.reject();
  });
  errors::Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
  running.parameter("drawing", folder.file(longPath("a.dxf")));
  const std::string what =
      "cannot open " + folder.file(longPath("a.dxf")) + " as the disk says no. ";
  errors::attempt(
      faults, "frmReport", "btnSave_Click",
      [&what] { throw std::runtime_error(what + what + what + what); }, errors::kEveryContinuation);
  EXPECT_EQ(modalWindows, 1);
}

TEST_P(SmallScreenTest, Question) {
  const QString text =
      context.text(texts::TextId::ScriptExistsBeforePath) + path(longPath("a.scr"));
  whenModal<QMessageBox>([&](QMessageBox& box) {
    expectOnScreen(box);
    const auto& label = find<QLabel>(box, "qt_msgbox_label");
    EXPECT_TRUE(label.text().contains("…"));
    EXPECT_EQ(label.toolTip(), text);
    EXPECT_LE(label.heightForWidth(label.width()), label.height());
    box.reject();
  });
  askQuestion(context, nullptr, context.text(texts::TextId::EditorWarningTitle), text,
              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  EXPECT_EQ(modalWindows, 1);
}

TEST_P(SmallScreenTest, MessageWithADetailOfManyWords) {
  ProgressDialog progress(context);
  WindowHost host(context, progress, nullptr);
  std::string detail = folder.file(longPath("a.dxf")) + ":";
  for (int i = 0; i < 2000; ++i) detail += " word";
  whenModal<QMessageBox>([&](QMessageBox& box) {
    expectOnScreen(box);
    EXPECT_EQ(find<QLabel>(box, "qt_msgbox_informativelabel").toolTip(), toQt(detail));
    box.accept();
  });
  host.tell({convert::MessageKind::Error, std::string(context.texts()(texts::TextId::ErrorTitle)),
             folder.file(longPath("a.dxf")), detail});
  EXPECT_EQ(modalWindows, 1);
}

TEST_P(SmallScreenTest, FileDialog) {
  writeDrawing("drawing.dxf");
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    expectOnScreen(dialog);
    dialog.reject();
  });
  ObjFiledialog dialog{context};
  dialog.DialogTitle = context.text(texts::TextId::ScriptDialogTitle);
  dialog.Filter1Text = context.text(texts::TextId::ScriptFiles);
  dialog.Filter1Suffix = "*.scr";
  dialog.InitDir = toQt(folder.path().string());
  dialog.ShowSave(nullptr);
  EXPECT_EQ(modalWindows, 1);
}

INSTANTIATE_TEST_SUITE_P(Languages, SmallScreenTest,
                         ::testing::Values(texts::kGerman, texts::kEnglish),
                         [](const auto& language) {
                           return language.param == texts::kGerman ? "German" : "English";
                         });

TEST_F(WindowTest, AToolTipShowsAPathThatLooksLikeMarkupAsText) {
  PathLabel label;
  label.setPath("/in/<b>part</b>.lay");
  EXPECT_EQ(fromQt(label.toolTip()), "<p>/in/&lt;b&gt;part&lt;/b&gt;.lay</p>");
  EXPECT_EQ(fromQt(label.text()), "/in/<b>part</b>.lay");
}

TEST_F(WindowTest, AWheelThatScrollsTheContentsLeavesTheListsBelowIt) {
  MainWindow window(context);
  window.show();
  window.resize(window.width(), window.minimumHeight());
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  find<QLineEdit>(window, "txtDXFDatei").setFocus();
  QTest::qWait(20);
  const auto& area = find<QScrollArea>(window, "content");
  ASSERT_GT(area.verticalScrollBar()->maximum(), 0);
  auto& unit = find<QComboBox>(window, "cboUnit");
  const int chosen = unit.currentIndex();
  const QPointF place = unit.rect().center();
  QWheelEvent wheel(place, unit.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&unit, &wheel);
  EXPECT_EQ(unit.currentIndex(), chosen);
  unit.setFocus();
  QApplication::sendEvent(&unit, &wheel);
  EXPECT_NE(unit.currentIndex(), chosen);
}

}  // namespace
}  // namespace quillon::windows

// The Enter key in every window: on a button it does what the button says.
#include <QPlainTextEdit>

#include "errors/attempt.h"
#include "support/timing.h"
#include "windows/error_window.h"
#include "windows/help_viewer.h"
#include "windows/language_dialog.h"
#include "windows/report_window.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class EnterKeyTest : public WindowTest {
 protected:
  static QWidget& focused() {
    QWidget* const widget = QApplication::focusWidget();
    if (widget == nullptr) throw std::runtime_error("nothing has the focus");
    return *widget;
  }
  static void press(Qt::Key key) { QTest::keyClick(&focused(), key); }
  /// Moves to a control of the active window with the Tab key.
  static void tabTo(const QWidget& control) {
    for (int steps = 0; &focused() != &control; ++steps) {
      if (steps > 100) throw std::runtime_error("Tab does not reach the control");
      press(Qt::Key_Tab);
    }
  }
  /// The buttons pressed by Enter when Tab reaches each of them; their actions are suppressed.
  static QStringList pressedByEnter(QWidget& window, QStringList& expected) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList pressed;
    QList<QPushButton*> buttons;
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
      if (!button->isVisible() || !button->isEnabled()) continue;
      buttons << button;
      expected << button->objectName();
      QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
      QObject::connect(button, &QPushButton::clicked, button,
                       [&pressed, button] { pressed << button->objectName(); });
    }
    for (QPushButton* const button : buttons) {
      tabTo(*button);
      press(Qt::Key_Return);
    }
    for (QPushButton* const button : buttons) {
      QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
    }
    return pressed;
  }
  static void expectEachButtonPressed(QWidget& window) {
    QStringList expected;
    const QStringList pressed = pressedByEnter(window, expected);
    EXPECT_FALSE(expected.isEmpty());
    EXPECT_EQ(fromQt(pressed.join(' ')), fromQt(expected.join(' ')));
  }
};

TEST_F(EnterKeyTest, PressesEachButtonOfTheMainWindow) {
  MainWindow window(context);
  window.LoadSettings();
  find<QCheckBox>(window, "chkReport").setChecked(false);
  window.setDrawing(toQt(writeDrawing("part.dxf")));
  window.befStart_Click();  // its result has buttons too
  window.show();
  // Hints of the preview are buttons that come later.
  const auto known = [&] { return window.isPreviewCurrent(); };
  ASSERT_TRUE(QTest::qWaitFor(known, 10000 * testing::patience()));
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheLayerEditor) {
  LayerEditor window(
      context, {}, [](const QString&) {}, nullptr);
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheLanguageDialog) {
  LanguageDialog window(context, [] {});
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheReport) {
  ReportWindow window(context);
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheProgressDialog) {
  ProgressDialog window(context);
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheHelp) {
  HelpViewer window(QUILLON_HELP);
  window.showPage(context.LanguageOffset + kMainWindowHelp);
  window.showPage(context.LanguageOffset + kLayerEditorHelp);
  expectEachButtonPressed(window);
}

TEST_F(EnterKeyTest, InThePageOfTheHelpDoesNotGoBack) {
  HelpViewer window(QUILLON_HELP);
  window.showPage(context.LanguageOffset + kMainWindowHelp);
  window.showPage(context.LanguageOffset + kLayerEditorHelp);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  find<QTextBrowser>(window, "txtHelp").setFocus();
  press(Qt::Key_Return);
  EXPECT_EQ(find<QTextBrowser>(window, "txtHelp").source().fileName(), "layer-editor.html");
}

TEST_F(EnterKeyTest, PressesEachButtonOfTheErrorWindow) {
  whenModal<ErrorWindow>([](ErrorWindow& window) {
    expectEachButtonPressed(window);
    window.reject();
  });
  errors::attempt(
      faults, "frmReport", "btnSave_Click", [] { throw std::runtime_error("x"); },
      errors::kEveryContinuation);
  EXPECT_EQ(modalWindows, 1);
}

TEST_F(EnterKeyTest, StartsTheConversionInAFieldButNotOnHelp) {
  MainWindow window(context);
  window.LoadSettings();
  find<QCheckBox>(window, "chkReport").setChecked(false);
  window.setDrawing(toQt(writeDrawing("part.dxf")));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  tabTo(find<QPushButton>(window, "befHilfe"));
  whenAsked(QMessageBox::Ok);  // beside the tests there is no help
  press(Qt::Key_Return);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_FALSE(folder.has("part.scr"));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  tabTo(find<QLineEdit>(window, "txtmasst"));
  press(Qt::Key_Enter);
  EXPECT_TRUE(folder.has("part.scr"));
}

TEST_F(EnterKeyTest, OnOkOfTheLayerEditorTakesItsFile) {
  const QString file = toQt(folder.write("a.lay", "[1]\r\nlayername=A\r\nlayernr=20\r\n"));
  QStringList accepted;
  LayerEditor editor(
      context, file, [&accepted](const QString& path) { accepted << path; }, nullptr);
  editor.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
  tabTo(find<QLineEdit>(editor, "txtLayerDatei"));
  press(Qt::Key_Return);  // no button has the focus
  EXPECT_TRUE(editor.isVisible());
  tabTo(find<QPushButton>(editor, "OKButton"));
  press(Qt::Key_Return);
  EXPECT_FALSE(editor.isVisible());
  EXPECT_EQ(accepted, QStringList{file});
}

TEST_F(EnterKeyTest, PressedTwiceOnStartDoesNotCancelTheConversion) {
  testing::DxfBuilder dxf;
  for (int level = 0; level < 14; ++level) {
    dxf.beginBlock("L" + std::to_string(level));
    for (int i = 0; i < 10; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}});
    }
    dxf.endBlock();
  }
  dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
  MainWindow window(context);
  window.LoadSettings();
  find<QCheckBox>(window, "chkReport").setChecked(false);
  window.setDrawing(toQt(folder.write("endless.dxf", dxf.text())));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  tabTo(find<QPushButton>(window, "befStart"));
  bool goesOn = false;
  QTimer waiting;
  QObject::connect(&waiting, &QTimer::timeout, &timers, [&] {
    auto* const active = dynamic_cast<ProgressDialog*>(QApplication::activeWindow());
    if (active == nullptr || window.isEnabled()) return;  // it is still opening
    waiting.stop();
    ProgressDialog& progress = *active;
    press(Qt::Key_Return);
    goesOn = progress.isVisible();
    tabTo(find<QPushButton>(progress, "befAbbruch"));
    press(Qt::Key_Return);
    EXPECT_FALSE(progress.isVisible());
  });
  waiting.start(50);
  whenAsked(QMessageBox::Ok);
  press(Qt::Key_Return);
  EXPECT_TRUE(goesOn);
  EXPECT_TRUE(boxText.startsWith("Interrupt by user in line ")) << fromQt(boxText);
}

}  // namespace
}  // namespace quillon::windows

// The path fields, as a user types into them.
#include "windows/path_edit.h"

#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class PathEditTest : public WindowTest {
 protected:
  PathEditTest() {
    window.LoadSettings();
    find<QCheckBox>(window, "chkReport").setChecked(false);
    window.setDrawing(toQt(writeDrawing("outline.dxf")));
    window.show();
  }
  void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

  /// Presses a key in the focused widget.
  static void press(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, keys);
  }

  MainWindow window{context};
  PathEdit& script = *static_cast<PathEdit*>(&find<QLineEdit>(window, "txtScriptdatei"));
};

TEST_F(PathEditTest, GoesOnWithTheRealPathAfterAMessageBox) {
  folder.write("outline.scr", "old");
  script.setFocus();
  whenAsked(QMessageBox::No);
  press(Qt::Key_Return);
  EXPECT_EQ(modalWindows, 1);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  ASSERT_EQ(QApplication::focusWidget(), &script);
  EXPECT_EQ(fromQt(script.text()), fromQt(script.path()));
  press(Qt::Key_End);
  for (int i = 0; i < 4; ++i) press(Qt::Key_Backspace);
  QTest::keyClicks(QApplication::focusWidget(), "_mm.scr");
  press(Qt::Key_Return);
  EXPECT_TRUE(folder.has("outline_mm.scr"));
  EXPECT_EQ(folder.read("outline.scr"), "old");
}

TEST_F(PathEditTest, KeepsWhatIsTypedWhileAnotherWindowIsInFront) {
  script.setFocus();
  script.selectAll();
  QTest::keyClicks(&script, "half a pa");
  QWidget other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClicks(QApplication::focusWidget(), "th");
  EXPECT_EQ(script.path(), "half a path");
}

TEST_F(PathEditTest, ShowsCapitalsAlsoOnceATargetIsChosen) {
  const QString capitals = script.path().toUpper();
  script.setFocus();
  press(Qt::Key_Tab);
  EXPECT_EQ(fromQt(script.text()), fromQt(capitals));
  click(window, "chkBRDSCH_1");
  EXPECT_EQ(fromQt(script.text()), fromQt(capitals));
}

}  // namespace
}  // namespace quillon::windows

// The lists, hints and labels around the picture.
#include <QComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <cmath>

#include "windows/preview_fixture.h"

namespace quillon::windows {
namespace {

class PreviewListsTest : public PreviewTest {
 protected:
  QTreeWidget& list(const char* name, int tab) {
    find<QTabWidget>(*window, "tabPreview").setCurrentIndex(tab);
    return find<QTreeWidget>(*window, name);
  }
  QTreeWidget& assignments() { return list("lstAssignment", 1); }
  QTreeWidget& losses() { return list("lstLosses", 2); }
  void dropText(const char* name, const std::string& text) {
    drop({toQt(folder.write(name, text))});
    ASSERT_TRUE(waitForPicture());
  }
  /// A plate, and an entity that ends in the middle of a group.
  static std::string damagedText() {
    testing::DxfBuilder dxf = plate();
    dxf.entity("POINT", {{8, "CUT"}});
    std::string text = dxf.text();
    const std::size_t value = text.find("CUT");
    const std::size_t code = text.rfind('8', value);
    text.replace(code, value + 3 - code, "0");
    return text;
  }
  static void addTriangle(testing::DxfBuilder& dxf, const std::string& layer) {
    dxf.entity("SOLID", {{8, layer},
                         {10, "60"},
                         {20, "60"},
                         {11, "70"},
                         {21, "60"},
                         {12, "60"},
                         {22, "70"},
                         {13, "60"},
                         {23, "70"}});
  }
  static testing::DxfBuilder openOutline() {
    testing::DxfBuilder dxf;
    dxf.header("$INSUNITS", 70, "4");
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "50"}, {21, "0"}});
    dxf.entity("LINE", {{8, "0"}, {10, "50"}, {20, "0"}, {11, "50"}, {21, "40"}});
    dxf.entity("LINE", {{8, "0"}, {10, "50"}, {20, "40"}, {11, "0"}, {21, "2"}});
    return dxf;
  }
  QPointF middle() { return view().millimetresOf(QPointF(view().rect().center())); }
  static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focused = QApplication::focusWidget();
    if (focused == nullptr) throw std::runtime_error("nothing has the focus");
    QTest::keyClick(focused, key, modifiers);
  }
};

TEST_F(PreviewListsTest, LossesWithoutAPlaceAreNoMarks) {
  start();
  dropText("damaged.dxf", damagedText());
  ASSERT_GE(losses().topLevelItemCount(), 2);
  EXPECT_EQ(losses().topLevelItem(0)->text(0), "Not drawn, damaged");
  view().setFocus();
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(&view(), Qt::Key_PageDown);
    ASSERT_TRUE(std::isfinite(middle().x())) << i;
    EXPECT_NE(losses().currentItem(), losses().topLevelItem(0));
  }
  view().showPlace({std::nan(""), 0.0});
  EXPECT_TRUE(std::isfinite(middle().x()));
}

TEST_F(PreviewListsTest, ALossWithoutKindLayerAndPlaceIsToldWithoutThem) {
  start();
  dropText("damaged.dxf", damagedText());
  losses().setCurrentItem(losses().topLevelItem(0));
  const QString line = losses().topLevelItem(0)->text(4);
  EXPECT_EQ(labelText("labPreviewMessage"), "Not drawn, damaged: 1, first in line " + line);
}

TEST_F(PreviewListsTest, TheMessageShowsThatAnotherDrawingIsBeingWorkedOn) {
  start();
  dropPlate();
  EXPECT_FALSE(find<QLabel>(*window, "labPreviewMessage").isVisible());
  drop({toQt(folder.write("other.dxf", openOutline().text()))});
  QTest::qWait(1);
  EXPECT_TRUE(find<QLabel>(*window, "labPreviewMessage").isVisible());
  EXPECT_EQ(labelText("labPreviewMessage"), "Working on the preview...");
  ASSERT_TRUE(waitForPicture());
  EXPECT_FALSE(find<QLabel>(*window, "labPreviewMessage").isVisible());
}

TEST_F(PreviewListsTest, NothingOfTheFormerDrawingCanBeTakenMeanwhile) {
  start();
  dropPlate();
  assignments();
  drop({toQt(folder.write("other.dxf", openOutline().text()))});
  QTest::qWait(1);
  ASSERT_FALSE(window->isPreviewCurrent());
  for (const char* const name : {"lstHints", "lstAssignment", "lstLosses", "lstLayers"}) {
    EXPECT_FALSE(find<QWidget>(*window, name).isEnabled()) << name;
  }
  QTest::mouseClick(&find<QPushButton>(*window, "btnHint_0"), Qt::LeftButton);
  EXPECT_EQ(window->settings().unit, base::Unit::Mil);
  ASSERT_TRUE(waitForPicture());
  for (const char* const name : {"lstHints", "lstAssignment", "lstLosses", "lstLayers"}) {
    EXPECT_TRUE(find<QWidget>(*window, name).isEnabled()) << name;
  }
}

TEST_F(PreviewListsTest, WithoutADrawingNothingOfTheLastOneCanBeAssigned) {
  start();
  dropPlate();
  auto& drawing = find<QLineEdit>(*window, "txtDXFDatei");
  drawing.setFocus();
  QTest::keyClick(&drawing, Qt::Key_Backspace);
  ASSERT_TRUE(waitForPicture());
  EXPECT_EQ(assignments().topLevelItemCount(), 0);
}

TEST_F(PreviewListsTest, TheLayerIsChangedByTheKeyboardAlone) {
  start();
  dropPlate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  assignments().setFocus();
  QTest::keyClick(&assignments(), Qt::Key_Down);
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return}) {
    QTest::keyClick(&assignments(), key);
    auto* const entries = assignments().findChild<QComboBox*>();
    ASSERT_NE(entries, nullptr) << key;
    QTest::keyClick(entries->view(), Qt::Key_Escape);
    QTest::keyClick(entries, Qt::Key_Escape);
    const auto closed = [&] { return assignments().findChild<QComboBox*>() == nullptr; };
    ASSERT_TRUE(QTest::qWaitFor(closed, 5000 * testing::patience())) << key;
  }
  QTest::keyClick(&assignments(), Qt::Key_F2);
  auto* const entries = assignments().findChild<QComboBox*>();
  ASSERT_NE(entries, nullptr);
  QTest::keyClick(entries->view(), Qt::Key_End);
  QTest::keyClick(entries->view(), Qt::Key_Return);
  ASSERT_TRUE(waitForPicture());
  EXPECT_NE(folder.read("plate.lay").find("layername=HOLES"), std::string::npos);
  EXPECT_NE(folder.read("plate.lay").find("layernr=999"), std::string::npos);
}

TEST_F(PreviewListsTest, EnterInAListDoesNotStartTheConversion) {
  start();
  dropPlate();
  find<QCheckBox>(*window, "chkReport").setChecked(false);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const std::pair<const char*, int> lists[] = {{"lstLayers", 0}, {"lstLosses", 2}};
  for (const auto& [name, tab] : lists) {
    QTreeWidget& rows = list(name, tab);
    rows.setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) press(key);
    rows.setCurrentItem(rows.topLevelItem(0));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) press(key);
    EXPECT_FALSE(folder.has("plate.scr")) << name;
  }
  assignments().setFocus();
  press(Qt::Key_Return);
  EXPECT_FALSE(folder.has("plate.scr"));
}

TEST_F(PreviewListsTest, AssignmentsFollowTheLanguage) {
  start();
  dropPlate();
  ASSERT_EQ(assignments().topLevelItem(1)->text(1), "(standard layer)");
  context.LanguageOffset = texts::kGerman;
  panel().loadResources();
  EXPECT_EQ(assignments().topLevelItem(1)->text(1), "(Standardlayer)");
}

TEST_F(PreviewListsTest, LossesAreNamedByTheNumberOfEntities) {
  testing::DxfBuilder dxf = plate();
  addTriangle(dxf, "PLATE");
  start();
  dropText("two.dxf", dxf.text());
  const QString caption = find<QTabWidget>(*window, "tabPreview").tabText(2);
  EXPECT_EQ(losses().accessibleName(), caption);
  EXPECT_NE(caption, QString("Losses (%1)").arg(losses().topLevelItemCount()));
}

TEST_F(PreviewListsTest, TheChosenLossStaysWhileOtherThingsAreWorkedOut) {
  start();
  dropPlate();
  ASSERT_GE(losses().topLevelItemCount(), 2);
  losses().setCurrentItem(losses().topLevelItem(1));
  const LivePicture shown = picture();
  panel().showPicture(shown);
  EXPECT_EQ(losses().currentItem(), losses().topLevelItem(1));
}

TEST_F(PreviewListsTest, AListOfLossesThatIsCutSaysSo) {
  testing::DxfBuilder dxf = plate();
  for (int i = 0; i < 2100; ++i) addTriangle(dxf, "L" + std::to_string(i));
  start();
  dropText("many.dxf", dxf.text());
  const int last = losses().topLevelItemCount() - 1;
  ASSERT_EQ(last, 2000);
  const QString text = losses().topLevelItem(last)->text(0);
  EXPECT_TRUE(text.startsWith("... and ") && text.endsWith(" more lines")) << fromQt(text);
  EXPECT_GT(text.split(' ')[2].toInt(), 99);
  losses().setCurrentItem(losses().topLevelItem(last));
  QTest::keyClick(&view(), Qt::Key_PageUp);
  EXPECT_EQ(losses().currentItem(), losses().topLevelItem(last - 1));
}

TEST_F(PreviewListsTest, AMeasuredDistanceStaysUntilTheNextClick) {
  start();
  dropPlate();
  click(*window, "btnMeasure");
  const auto clickAt = [this](QPointF place) {
    QTest::mouseClick(&view(), Qt::LeftButton, {}, view().pixelOf(place).toPoint());
  };
  clickAt({0.127, 0.0});
  clickAt({2.413, 0.0});
  const QString told = "Distance: 2.286 mm (90 mil), across 2.286 mm, up 0.0 mm";
  EXPECT_EQ(labelText("labPointer"), told);
  QTest::mouseMove(&view(), view().pixelOf({1.0, 1.0}).toPoint());
  QTest::qWait(1);
  EXPECT_EQ(labelText("labPointer"), told);
  clickAt({1.0, 1.0});
  QTest::keyClick(&view(), Qt::Key_Left);
  EXPECT_NE(labelText("labPointer"), told);
}

TEST_F(PreviewListsTest, OpenEndsAreShownOneAfterTheOther) {
  start();
  dropText("open.dxf", openOutline().text());
  takeHint("Unit named");
  QList<double> heights;
  for (int i = 0; i < 3; ++i) {
    takeHint("2 ends of outlines are open.");
    heights << middle().y();
  }
  EXPECT_GT(std::abs(heights[0] - heights[1]), 1.0);
  EXPECT_NEAR(heights[0], heights[2], 0.5);
}

TEST_F(PreviewListsTest, TabGoesThroughHintsAndListsAfterThePicture) {
  start();
  dropPlate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  losses();
  view().setFocus();
  const auto& hint = find<QPushButton>(*window, "btnHint_0");  // laid out with the next events
  ASSERT_TRUE(QTest::qWaitFor([&] { return hint.isVisible(); }, 5000 * testing::patience()));
  QStringList reached;
  const qsizetype buttons = find<QWidget>(*window, "lstHints").findChildren<QPushButton*>().size();
  ASSERT_GE(buttons, 2);
  for (qsizetype i = 0; i < buttons + 3; ++i) {
    press(Qt::Key_Tab);
    reached << QApplication::focusWidget()->objectName();
  }
  QStringList expected;
  for (qsizetype i = 0; i < buttons; ++i) expected << QString("btnHint_%1").arg(i);
  expected << "qt_tabwidget_tabbar"
           << "lstLosses"
           << "befStart";
  EXPECT_EQ(fromQt(reached.join(' ')), fromQt(expected.join(' ')));
}

TEST_F(PreviewListsTest, ThePicturesNameIsNotThatOfTheLists) {
  start();
  EXPECT_EQ(view().accessibleName(), "Preview");
  auto& tabs = find<QTabWidget>(*window, "tabPreview");
  EXPECT_EQ(tabs.tabBar()->accessibleName(), "Details of the preview");
  EXPECT_EQ(tabs.accessibleName(), "Details of the preview");
}

}  // namespace
}  // namespace quillon::windows

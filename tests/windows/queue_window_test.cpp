#include "windows/queue_window.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTableView>
#include <QUrl>
#include <functional>
#include <optional>

#include "files/paths.h"
#include "platform.h"
#include "support/timing.h"
#include "windows/error_window.h"
#include "windows/scarce_memory.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

class QueueWindowTest : public WindowTest {
 protected:
  QueueWindow& open() {
    window = std::make_unique<QueueWindow>(
        context,
        [this]() -> std::optional<convert::ConversionJob> {
          ++jobs;
          if (!isWanted) return std::nullopt;
          return job;
        },
        nullptr);
    window->show();
    return *window;
  }
  void add(const std::vector<std::string>& names) {
    QStringList paths;
    for (const std::string& name : names) paths << path(name);
    window->add(paths);
  }
  QAbstractItemModel& model() { return *find<QTableView>(*window, "tabQueue").model(); }
  std::string cell(int row, int column) {
    return fromQt(model().index(row, column).data().toString());
  }
  std::string state(int row) { return cell(row, QueueModel::kState); }
  void selectRow(int row) { find<QTableView>(*window, "tabQueue").selectRow(row); }
  std::string caption(const char* name) {
    return fromQt(find<QAbstractButton>(*window, name).text());
  }
  bool isEnabled(const char* name) { return find<QWidget>(*window, name).isEnabled(); }
  std::string summary() { return fromQt(find<QLabel>(*window, "labSummary").text()); }
  bool waitForEnd() {
    return QTest::qWaitFor([this] { return !window->isRunning(); }, 60000 * testing::patience());
  }
  /// A drawing whose conversion takes minutes unless it is cancelled.
  std::string writeSlow(const std::string& name) const {
    testing::DxfBuilder dxf;
    std::string inner = "B0";
    dxf.beginBlock(inner);
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    dxf.endBlock();
    for (int depth = 1; depth < 8; ++depth) {
      const std::string outer = "B" + std::to_string(depth);
      dxf.beginBlock(outer);
      for (int i = 0; i < 10; ++i) {
        dxf.entity("INSERT", {{8, "0"}, {2, inner}, {10, "0"}, {20, "0"}});
      }
      dxf.endBlock();
      inner = outer;
    }
    for (int i = 0; i < 1000; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, inner}, {10, "0"}, {20, "0"}});
    }
    return folder.write(name, dxf.text());
  }

  convert::ConversionJob job;
  int jobs = 0;
  bool isWanted = true;
  std::unique_ptr<QueueWindow> window;
};

TEST_F(QueueWindowTest, ConvertsDrawingsInTheBackgroundAndEndsWithASummary) {
  open();
  for (const char* const name : {"a.dxf", "b.dxf", "c.dxf"}) writeDrawing(name);
  folder.write("c.scr", "mine");
  folder.write("d.dxf", "");
  add({"a.dxf", "b.dxf", "c.dxf", "d.dxf"});
  EXPECT_EQ(model().rowCount(), 4);
  EXPECT_EQ(cell(0, QueueModel::kFile), "a.dxf");
  EXPECT_EQ(cell(3, QueueModel::kSize), "0 bytes");
  EXPECT_EQ(state(0), "waiting");
  EXPECT_EQ(summary(), "");
  click(*window, "btnStart");
  EXPECT_TRUE(window->isRunning());
  EXPECT_EQ(state(0), "running");
  EXPECT_FALSE(isEnabled("btnStart"));
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(jobs, 1);
  EXPECT_EQ(state(0), "converted");
  EXPECT_EQ(cell(0, QueueModel::kLosses), "1");
  EXPECT_EQ(cell(0, QueueModel::kResult),
            "a.scr: 11 lines written; a.dxf: Not recognised and left out: HATCH 1");
  EXPECT_EQ(fromQt(model().index(0, QueueModel::kResult).data(Qt::ToolTipRole).toString()),
            "a.scr: 11 lines written\n" + folder.file("a.dxf") +
                ": Not recognised and left out: HATCH 1");
  EXPECT_EQ(state(2), "skipped");
  EXPECT_EQ(state(3), "failed");
  EXPECT_EQ(summary(), "2 converted, 1 failed, 1 skipped; losses: 2");
  EXPECT_TRUE(folder.has("b.scr"));
  EXPECT_EQ(folder.read("c.scr"), "mine");
}

TEST_F(QueueWindowTest, TriesAgainWhatWasNotConvertedAndReplacesScriptsOnRequest) {
  open();
  writeDrawing("a.dxf");
  folder.write("a.scr", "mine");
  add({"a.dxf"});
  EXPECT_EQ(caption("btnStart"), "&Start");
  window->start();
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(state(0), "skipped");
  EXPECT_EQ(cell(0, QueueModel::kResult),
            "a.scr exists already. \"Replace existing scripts\" replaces the file.");
  EXPECT_EQ(caption("btnStart"), "Try &again");
  find<QCheckBox>(*window, "chkReplace").setChecked(true);
  click(*window, "btnStart");
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(state(0), "converted");
  EXPECT_NE(folder.read("a.scr"), "mine");
  EXPECT_EQ(jobs, 2);
  EXPECT_FALSE(isEnabled("btnStart"));
}

TEST_F(QueueWindowTest, StopsAfterTheDrawingOrCancelsItAndResumes) {
  open();
  writeSlow("a.dxf");
  writeDrawing("b.dxf");
  add({"a.dxf", "b.dxf"});
  EXPECT_FALSE(isEnabled("btnStop"));
  window->start();
  EXPECT_EQ(caption("btnStop"), "S&top");
  click(*window, "btnStop");
  EXPECT_EQ(caption("btnStop"), "&Cancel drawing");
  EXPECT_TRUE(window->isRunning());
  click(*window, "btnStop");
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(state(0), "cancelled");
  EXPECT_EQ(state(1), "waiting");
  EXPECT_EQ(summary(), "0 converted, 0 failed, 0 skipped, 1 cancelled, 1 waiting; losses: 0");
  EXPECT_EQ(caption("btnStart"), "&Resume");
  click(*window, "btnStart");
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(state(0), "cancelled");
  EXPECT_EQ(state(1), "converted");
  EXPECT_EQ(caption("btnStart"), "Try &again");
}

TEST_F(QueueWindowTest, ClosingAndDestroyingCancelWhatRuns) {
  open();
  writeSlow("a.dxf");
  add({"a.dxf"});
  window->start();
  whenAsked(QMessageBox::Yes);
  click(*window, "btnClose");
  EXPECT_TRUE(waitForEnd());
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(state(0), "cancelled");
  window->show();
  window->start();
  EXPECT_TRUE(window->isRunning());
  window.reset();
  QCoreApplication::processEvents();
}

TEST_F(QueueWindowTest, ClosingAsksWhileItRuns) {
  open();
  writeSlow("a.dxf");
  add({"a.dxf"});
  window->start();
  const std::function<void()> ways[] = {
      [this] { click(*window, "btnClose"); },
      [this] { QTest::keyClick(window.get(), Qt::Key_Escape); },
      [this] { EXPECT_FALSE(window->close()); },
  };
  for (const auto& close : ways) {
    whenAsked(QMessageBox::No);
    close();
    EXPECT_EQ(boxText, "Drawings are still being converted. Cancel the conversion and close?");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isRunning());
  }
  EXPECT_EQ(modalWindows, 3);
  window->stop();
  window->stop();
  EXPECT_TRUE(waitForEnd());
  click(*window, "btnClose");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(QueueWindowTest, StartsNothingThatIsNotWanted) {
  open();
  writeDrawing("a.dxf");
  add({"a.dxf"});
  isWanted = false;
  click(*window, "btnStart");
  EXPECT_FALSE(window->isRunning());
  EXPECT_EQ(state(0), "waiting");
}

TEST_F(QueueWindowTest, TakesDroppedDrawingsAndHandsOnLayerFiles) {
  QStringList layerFiles;
  open().onLayerFile = [&](const QString& path) { layerFiles << path; };
  const auto drop = [this](const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent event({1.0, 1.0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
    return true;
  };
  EXPECT_FALSE(drop({QUrl("https://quillon.invalid/a.dxf")}));
  writeDrawing("a.dxf");
  const std::string layers = folder.write("a.lay", "[1]\nlayername=A\nlayernr=20\n");
  EXPECT_TRUE(drop({QUrl::fromLocalFile(path("a.dxf")), QUrl::fromLocalFile(toQt(layers))}));
  EXPECT_EQ(model().rowCount(), 1);
  EXPECT_EQ(cell(0, QueueModel::kFile), "a.dxf");
  ASSERT_EQ(layerFiles.size(), 1);
  EXPECT_EQ(layerFiles[0].compare(path("a.lay"), Qt::CaseInsensitive), 0);
}

TEST_F(QueueWindowTest, RemovesTheSelectedRowsByButtonAndKey) {
  open();
  for (const char* const name : {"a.dxf", "b.dxf", "c.dxf"}) writeDrawing(name);
  add({"a.dxf", "b.dxf", "c.dxf"});
  selectRow(1);
  click(*window, "btnRemove");
  EXPECT_EQ(model().rowCount(), 2);
  EXPECT_EQ(cell(1, QueueModel::kFile), "c.dxf");
  auto& table = find<QTableView>(*window, "tabQueue");
  table.setFocus();
  selectRow(0);
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTest::keyClick(&table, Qt::Key_Delete);
  EXPECT_EQ(model().rowCount(), 1);
  EXPECT_EQ(cell(0, QueueModel::kFile), "c.dxf");
}

TEST_F(QueueWindowTest, EveryControlHasANameForScreenReadersAndTheKeyboardReachesIt) {
  open();
  writeDrawing("a.dxf");
  add({"a.dxf"});
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  EXPECT_EQ(find<QTableView>(*window, "tabQueue").accessibleName(), "Drawings");
  EXPECT_EQ(find<QWidget>(*window, "barQueue").accessibleName(), "Progress");
  find<QWidget>(*window, "tabQueue").setFocus();
  QStringList reached;
  for (int i = 0; i < 6; ++i) {
    QWidget* const focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr) << i;
    reached << focused->objectName();
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  EXPECT_EQ(reached, (QStringList{"tabQueue", "chkReplace", "btnStart", "btnRemove",
                                  "btnOpenFolder", "btnClose"}))
      << fromQt(reached.join(' '));
}

TEST_F(QueueWindowTest, FollowsTheLanguage) {
  open();
  writeDrawing("a.dxf");
  add({"a.dxf"});
  window->start();
  ASSERT_TRUE(waitForEnd());
  context.LanguageOffset = texts::kGerman;
  window->loadResources();
  EXPECT_EQ(fromQt(window->windowTitle()), "Mehrere Zeichnungen konvertieren");
  EXPECT_EQ(state(0), "konvertiert");
  EXPECT_EQ(summary(), "1 konvertiert, 0 nicht konvertiert, 0 übersprungen; Verluste: 1");
  EXPECT_EQ(caption("chkReplace"), "Vorhandene Scripts e&rsetzen");
}

TEST_F(QueueWindowTest, AFaultOfTheProgramIsToldInTheLanguageOfTheWindow) {
  constexpr std::size_t kLong = 1000;
  std::string name;
  while (name.size() < kLong) name += std::string(100, 'a') + "/";
  std::filesystem::create_directories(folder.path() / name);
  writeDrawing(name + "a.dxf");
  context.LanguageOffset = texts::kGerman;
  open();
  add({name + "a.dxf"});
  whenModal<ErrorWindow>([](ErrorWindow& error) { error.reject(); });
  const ScarceMemory scarce(kLong);
  click(*window, "btnStart");
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(cell(0, QueueModel::kResult),
            "Der Arbeitsspeicher reicht nicht aus. Bitte die Zeichnung aufteilen.");
}

TEST_F(QueueWindowTest, ThousandsOfDrawingsAreListedAtOnce) {
  open();
  // Where the names of files have no case, a name that is not there may cost a search of the
  // folder.
  const int count = files::namesHaveCase() ? 3000 : 1000;
  for (int i = 0; i < count; ++i) folder.write("d" + std::to_string(i) + ".dxf", "");
  const double before = testing::processorSeconds();
  window->add({toQt(folder.file(""))});
  EXPECT_EQ(model().rowCount(), count);
  EXPECT_LT(testing::processorSeconds() - before, 2.0 * testing::patience());
}

}  // namespace
}  // namespace quillon::windows

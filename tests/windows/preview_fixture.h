#pragma once

#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QUrl>

#include "files/paths.h"
#include "support/timing.h"
#include "windows/picture_view.h"
#include "windows/preview_panel.h"
#include "windows/window_fixture.h"

namespace quillon::windows {

/// The main window with its preview.
class PreviewTest : public WindowTest {
 protected:
  /// A plate in millimetres, 100 x 80, with rounded corners, a hole, and a triangle that the
  /// classic rules do not draw.
  static testing::DxfBuilder plate() {
    testing::DxfBuilder dxf;
    dxf.header("$INSUNITS", 70, "4").layer("PLATE").layer("HOLES");
    const char* const bulge = "0.41421356237309503";
    const std::pair<const char*, const char*> corners[] = {
        {"5", "0"},   {"95", "0"}, {"100", "5"}, {"100", "75"},
        {"95", "80"}, {"5", "80"}, {"0", "75"},  {"0", "5"}};
    dxf.entity("POLYLINE", {{8, "PLATE"}, {66, "1"}, {70, "1"}});
    bool curved = false;
    for (const auto& [x, y] : corners) {
      dxf.entity("VERTEX", {{8, "PLATE"}, {10, x}, {20, y}, {42, curved ? bulge : "0"}});
      curved = !curved;
    }
    dxf.entity("SEQEND", {{8, "PLATE"}});
    dxf.entity("CIRCLE", {{8, "HOLES"}, {10, "20"}, {20, "20"}, {40, "3"}});
    dxf.entity("SOLID", {{8, "PLATE"},
                         {10, "60"},
                         {20, "60"},
                         {11, "70"},
                         {21, "60"},
                         {12, "60"},
                         {22, "70"},
                         {13, "60"},
                         {23, "70"}});
    return dxf;
  }

  /// A window whose preview is shown, whatever the size of the screen.
  void start() {
    open();
    auto& shown = find<QToolButton>(*window, "btnPreview");
    if (!shown.isChecked()) shown.click();
  }
  void open() {
    window = std::make_unique<MainWindow>(context);
    window->LoadSettings();
    window->show();
  }
  void drop(const QStringList& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event({1.0, 1.0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
  }
  void dropPlate() {
    drop({toQt(folder.write("plate.dxf", plate().text()))});
    ASSERT_TRUE(waitForPicture());
  }
  PreviewPanel& panel() { return find<PreviewPanel>(*window, "fraPreview"); }
  PictureView& view() { return find<PictureView>(*window, "picView"); }
  const LivePicture& picture() { return panel().picture(); }

  /// Until all is known about what the settings come to now.
  bool waitForPicture() {
    const auto known = [this] { return window->isPreviewCurrent(); };
    return QTest::qWaitFor(known, 10000 * testing::patience());
  }
  QString labelText(const char* name) { return find<QLabel>(*window, name).text(); }
  /// The texts of the hints.
  QStringList hints() {
    QStringList lines;
    for (QLabel* const label : find<QWidget>(*window, "lstHints").findChildren<QLabel*>()) {
      lines << label->text();
    }
    return lines;
  }
  /// Takes the hint that starts with these words.
  void takeHint(const QString& start) {
    for (QLabel* const label : find<QWidget>(*window, "lstHints").findChildren<QLabel*>()) {
      if (!label->text().startsWith(start)) continue;
      QTest::mouseClick(label->parentWidget()->findChild<QPushButton*>(), Qt::LeftButton);
      ASSERT_TRUE(waitForPicture());
      return;
    }
    FAIL() << "no hint " << fromQt(start) << " among " << fromQt(hints().join(" | "));
  }

  /// Where the names of files have no case, fields show them in capitals.
  static void expectSamePath(const QString& shown, const QString& path) {
    const auto sensitivity = files::namesHaveCase() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    EXPECT_EQ(shown.compare(path, sensitivity), 0) << fromQt(shown) << " is not " << fromQt(path);
  }

  std::unique_ptr<MainWindow> window;
};

}  // namespace quillon::windows

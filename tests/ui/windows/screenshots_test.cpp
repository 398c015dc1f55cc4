// Pictures of every window in both languages, for eyes; a text that does not fit is a failure.
#include <QDir>
#include <QLabel>

#include "ui/windows/help_viewer.h"
#include "ui/windows/language_dialog.h"
#include "ui/windows/report_window.h"
#include "ui/windows/splash.h"
#include "ui/windows/window_fixture.h"

namespace quillon::ui {
namespace {

class ScreenshotTest : public WindowTest, public ::testing::WithParamInterface<int> {
 protected:
  ScreenshotTest() {
    context.LanguageOffset = GetParam();
    QDir().mkpath("screenshots");
  }
  void shoot(QWidget& window) {
    window.show();
    QTest::qWait(50);
    const QString language = GetParam() == resources::kGerman ? "de" : "en";
    const QString name = "screenshots/" + window.objectName() + "-" + language + ".png";
    EXPECT_TRUE(window.grab().save(name)) << fromQt(name);
    expectTextsFit(window);
  }
  /// Captions must not be cut.
  static void expectTextsFit(const QWidget& window) {
    for (const QWidget* const control : window.findChildren<QWidget*>()) {
      const bool caption = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                           qobject_cast<const QLabel*>(control) != nullptr;
      if (!caption || !control->isVisible()) continue;
      const auto* const label = qobject_cast<const QLabel*>(control);
      if (label != nullptr && label->wordWrap()) continue;
      EXPECT_GE(control->width(), control->minimumSizeHint().width())
          << fromQt(control->objectName());
    }
  }
};

TEST_P(ScreenshotTest, MainWindow) {
  MainWindow window(context);
  window.LoadSettings();
  shoot(window);
}

TEST_P(ScreenshotTest, MainWindowWithAResult) {
  MainWindow window(context);
  window.LoadSettings();
  window.setDrawing(toQt(writeDrawing("frontplate.dxf")));
  find<QCheckBox>(window, "chkReport").setChecked(false);
  window.setObjectName("frmDXF-result");
  window.befStart_Click();
  shoot(window);
}

TEST_P(ScreenshotTest, ProgressDialog) {
  ProgressDialog window(context);
  window.setReadBeam(70);
  window.setWriteBeam(35);
  window.setStatus(context.texts()(2836));
  shoot(window);
}

TEST_P(ScreenshotTest, ReportWindow) {
  MainWindow main(context);
  main.LoadSettings();
  main.setDrawing(toQt(writeDrawing("frontplate.dxf")));
  whenModal<ReportWindow>([this](ReportWindow& window) {
    shoot(window);
    window.accept();
  });
  main.befStart_Click();
  EXPECT_EQ(modalWindows, 1);
}

TEST_P(ScreenshotTest, LanguageDialog) {
  LanguageDialog window(context, [] {});
  shoot(window);
}

TEST_P(ScreenshotTest, LayerEditor) {
  testing::DxfBuilder dxf;
  dxf.layer("OUTLINE").layer("HOLES").layer("NOTES");
  folder.write("a.lay",
               "[1]\nlayername=OUTLINE\nlayernr=20\n[2]\nlayername=NOTES\nlayernr=999\n[3]\n"
               "layername=TEXT\nlayernr=25\n");
  LayerEditor window(
      context, path("a.lay"), [](const QString&) {}, nullptr);
  window.layerScanDXF(toQt(folder.write("a.dxf", dxf.text())));
  shoot(window);
}

TEST_P(ScreenshotTest, Help) {
  HelpViewer window(QUILLON_HELP);
  window.showPage(context.LanguageOffset + kMainWindowHelp);
  shoot(window);
}

TEST_P(ScreenshotTest, Splash) {
  Splash window;
  shoot(window);
}

INSTANTIATE_TEST_SUITE_P(Languages, ScreenshotTest,
                         ::testing::Values(resources::kGerman, resources::kEnglish),
                         [](const auto& language) {
                           return language.param == resources::kGerman ? "German" : "English";
                         });

}  // namespace
}  // namespace quillon::ui

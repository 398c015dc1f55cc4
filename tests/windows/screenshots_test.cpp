// Pictures of every window in both languages, to be looked at; a text that does not fit fails the
// test.
#include <QDir>
#include <QPalette>
#include <QTabWidget>
#include <QToolButton>
#include <optional>

#include "errors/attempt.h"
#include "files/output_file.h"
#include "support/timing.h"
#include "windows/cut_texts.h"
#include "windows/dark_style.h"
#include "windows/error_window.h"
#include "windows/file_dialog.h"
#include "windows/help_viewer.h"
#include "windows/language_dialog.h"
#include "windows/question.h"
#include "windows/queue_window.h"
#include "windows/report_window.h"
#include "windows/save_picture.h"
#include "windows/splash.h"
#include "windows/window_fixture.h"

namespace quillon::windows {
namespace {

struct Look {
  int language;
  bool dark;
};

void PrintTo(const Look& look, std::ostream* out) {
  *out << (look.language == texts::kGerman ? "German" : "English")
       << (look.dark ? "Dark" : "Light");
}

QPalette darkPalette() {
  QPalette palette(QColor(60, 60, 60), QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  palette.setColor(QPalette::Highlight, QColor(42, 110, 180));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(110, 170, 240));
  palette.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  return palette;
}

class ScreenshotTest : public WindowTest, public ::testing::WithParamInterface<Look> {
 protected:
  ScreenshotTest() {
    context.LanguageOffset = GetParam().language;
    if (GetParam().dark) {
      style_.emplace();
      useColours(darkPalette());
    }
    QDir().mkpath("screenshots");
  }
  ~ScreenshotTest() override {
    if (style_) useColours(light_);
    QApplication::setPalette(light_);
  }

  void shoot(QWidget& window) {
    window.show();
    QTest::qWait(50);
    const QString language = GetParam().language == texts::kGerman ? "-de" : "-en";
    const int scale = qRound(window.devicePixelRatio());
    const QString name = "screenshots/" + window.objectName() + language +
                         (GetParam().dark ? "-dark" : "") +
                         (scale > 1 ? "-" + QString::number(scale) + "x" : "") + ".png";
    EXPECT_TRUE(savePicture(window, name)) << fromQt(name);
    EXPECT_EQ(cutTexts(window).join(", "), "");
    // A small present-day screen, less the desktop's own bars.
    EXPECT_LE(window.width(), 1280);
    EXPECT_LE(window.height(), 690);
  }

 private:
  /// As when the system changes its colours.
  static void useColours(const QPalette& colours) {
    QApplication::setPalette(colours);
    QApplication::processEvents();
  }

  const QPalette light_ = QApplication::palette();
  std::optional<DarkStyle> style_;  ///< that of the program on Windows
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
  window.show();  // before there is a result, as for a user
  window.befStart_Click();
  shoot(window);
}

/// On a screen with room for the preview.
TEST_P(ScreenshotTest, MainWindowWithAPreview) {
  MainWindow window(context);
  window.setObjectName("frmDXF-preview");
  window.LoadSettings();
  window.show();
  auto& shown = find<QToolButton>(window, "btnPreview");
  if (!shown.isChecked()) shown.click();
  window.setDrawing(QUILLON_EXAMPLES "/lid.dxf");
  const auto known = [&window] { return window.isPreviewCurrent(); };
  ASSERT_TRUE(QTest::qWaitFor(known, 10000 * testing::patience()));
  const auto sharp = [&window] { return find<PictureView>(window, "picView").isSharp(); };
  EXPECT_TRUE(QTest::qWaitFor(sharp, 10000 * testing::patience()));
  shoot(window);
  window.setObjectName("frmDXF-differences");
  click(window, "btnViewBoth");
  find<QTabWidget>(window, "tabPreview").setCurrentIndex(2);
  EXPECT_TRUE(QTest::qWaitFor(sharp, 10000 * testing::patience()));
  shoot(window);
}

TEST_P(ScreenshotTest, MainWindowWithAssignments) {
  const std::string file =
      folder.write("lid.lay",
                   "[1]\nlayername=OUTLINE\nlayernr=20\n[2]\nlayername=PRINT\nlayernr=21\n"
                   "areas=1\n");
  context.store.WriteIni("dxf", {{"layerfile", file}, {"rules", "exact"}});
  MainWindow window(context);
  window.setObjectName("frmDXF-assignments");
  window.LoadSettings();
  window.show();
  auto& shown = find<QToolButton>(window, "btnPreview");
  if (!shown.isChecked()) shown.click();
  window.setDrawing(QUILLON_EXAMPLES "/lid.dxf");
  find<QTabWidget>(window, "tabPreview").setCurrentIndex(1);
  const auto known = [&window] { return window.isPreviewCurrent(); };
  ASSERT_TRUE(QTest::qWaitFor(known, 10000 * testing::patience()));
  const auto sharp = [&window] { return find<PictureView>(window, "picView").isSharp(); };
  EXPECT_TRUE(QTest::qWaitFor(sharp, 10000 * testing::patience()));
  shoot(window);
}

TEST_P(ScreenshotTest, ProgressDialog) {
  ProgressDialog window(context);
  window.setProgress(false, 70);
  window.setProgress(true, 35);
  window.setStatus(context.texts()(texts::TextId::StatusEntities));
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

TEST_P(ScreenshotTest, QueueWindow) {
  QueueWindow window(
      context, [] { return convert::ConversionJob(); }, nullptr);
  window.add({toQt(writeDrawing("frontplate.dxf")), toQt(writeDrawing("housing.dxf")),
              toQt(folder.write("empty.dxf", ""))});
  folder.write("housing.scr", "");
  window.start();
  EXPECT_TRUE(
      QTest::qWaitFor([&window] { return !window.isRunning(); }, 60000 * testing::patience()));
  window.add({toQt(writeDrawing("lid.dxf"))});
  shoot(window);
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

TEST_P(ScreenshotTest, LayerEditorOnASmallScreen) {
  testing::DxfBuilder dxf;
  dxf.layer("OUTLINE").layer("A-LAYER-WITH-A-NAME-THAT-IS-LONGER-THAN-THE-LIST-IS-WIDE");
  LayerEditor window(
      context, {}, [](const QString&) {}, nullptr);
  window.layerScanDXF(toQt(folder.write("a.dxf", dxf.text())));
  const QSize screen = window.screen()->availableSize().expandedTo(window.minimumSizeHint());
  EXPECT_LE(window.width(), screen.width());
  EXPECT_LE(window.height(), screen.height());
  // 1280 x 1024 at double scale, less the desktop's own bars.
  window.resize(620, 440);
  window.setObjectName("frmLayers-small");
  shoot(window);
  EXPECT_LE(window.width(), 620);
  EXPECT_LE(window.height(), 440);
  for (const QPushButton* const button : window.findChildren<QPushButton*>()) {
    const QRect place(button->mapTo(&window, QPoint()), button->size());
    EXPECT_TRUE(window.rect().contains(place)) << fromQt(button->objectName());
  }
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

TEST_P(ScreenshotTest, FileDialog) {
  for (const char* const name : {"drawing.dxf", "script.scr"}) writeDrawing(name);
  whenModal<QFileDialog>([this](QFileDialog& dialog) {
    shoot(dialog);
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

TEST_P(ScreenshotTest, Question) {
  whenModal<QMessageBox>([this](QMessageBox& box) {
    shoot(box);
    box.reject();
  });
  askQuestion(context, nullptr, context.text(texts::TextId::EditorWarningTitle),
              context.text(texts::TextId::EditorUnsaved),
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
  EXPECT_EQ(modalWindows, 1);
}

TEST_P(ScreenshotTest, ErrorWindow) {
  whenModal<ErrorWindow>([this](ErrorWindow& window) {
    shoot(window);
    window.reject();
  });
  errors::Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
  running.parameter("drawing", folder.file("frontplate.dxf"));
  errors::attempt(faults, "frmReport", "btnSave_Click", [] { throw files::WriteError(ENOSPC); });
  EXPECT_EQ(modalWindows, 1);
}

INSTANTIATE_TEST_SUITE_P(Looks, ScreenshotTest,
                         ::testing::Values(Look{texts::kGerman, false},
                                           Look{texts::kEnglish, false}, Look{texts::kGerman, true},
                                           Look{texts::kEnglish, true}),
                         ::testing::PrintToStringParamName());

TEST_F(WindowTest, TextsThatAreCutAreFound) {
  MainWindow window(context);
  window.show();
  EXPECT_EQ(cutTexts(window).join(", "), "");
  const auto squeeze = [&window](const char* name, QSize size) {
    find<QWidget>(window, name).setFixedSize(size);
  };
  squeeze("befStart", {20, 40});
  squeeze("chkDotLines", {60, 40});
  squeeze("labPoly", {30, 40});
  squeeze("cboUnit", {40, 40});
  squeeze("frmOpt", {40, 40});
  auto& hint = find<QLabel>(window, "labViewDesc");
  hint.setWordWrap(true);
  hint.setText(QString("word ").repeated(100));
  squeeze("labViewDesc", {80, 20});
  QTest::qWait(20);
  const QString cut = cutTexts(window).join(", ");
  for (const char* const name :
       {"befStart", "chkDotLines", "labPoly", "cboUnit", "frmOpt", "labViewDesc"}) {
    EXPECT_TRUE(cut.contains(name)) << name << " in " << fromQt(cut);
  }
}

}  // namespace
}  // namespace quillon::windows

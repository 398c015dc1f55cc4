// Conversions started in the main window.
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <chrono>

#include "files/paths.h"
#include "support/timing.h"
#include "windows/report_window.h"
#include "windows/window_fixture.h"
#include "windows/window_host.h"

namespace quillon::windows {
namespace {

using convert::Outcome;

class ConversionTest : public WindowTest {
 protected:
  ConversionTest() {
    window.LoadSettings();
    find<QCheckBox>(window, "chkReport").setChecked(false);
  }
  void draw(const std::string& name = "part.dxf") { window.setDrawing(toQt(writeDrawing(name))); }
  /// Nested blocks that multiply to endless work.
  void drawEndless() {
    testing::DxfBuilder dxf;
    for (int level = 0; level < 14; ++level) {
      dxf.beginBlock("L" + std::to_string(level));
      for (int i = 0; i < 10; ++i) {
        dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}});
      }
      dxf.endBlock();
    }
    dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
    window.setDrawing(toQt(folder.write("endless.dxf", dxf.text())));
  }
  QString resultText() { return wholeText(find<QLabel>(window, "labResult")); }

  MainWindow window{context};
};

TEST_F(ConversionTest, EnterStartsAndTheWindowSaysWhatCameOut) {
  draw();
  window.show();
  find<QLineEdit>(window, "txtDXFDatei").setFocus();
  QTest::keyClick(&find<QLineEdit>(window, "txtDXFDatei"), Qt::Key_Return);
  EXPECT_TRUE(folder.has("part.scr"));
  EXPECT_EQ(fromQt(resultText()),
            "Entities converted: 1 (from 30 lines of " + folder.file("part.dxf") +
                ")\nLines written: 9 (to " + folder.file("part.scr") +
                ")\nNot recognised and left out: HATCH 1\nThe exact rules would keep these.\n"
                "In EAGLE type: SCRIPT '" +
                folder.file("part.scr") + "'");
  EXPECT_TRUE(window.isEnabled());
}

TEST_F(ConversionTest, TheWindowNamesWhatTheExactRulesWouldKeep) {
  testing::DxfBuilder dxf;
  dxf.entity("TEXT", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, "x"}, {72, "2"}});
  window.setDrawing(toQt(folder.write("part.dxf", dxf.text())));
  window.show();
  window.befStart_Click();
  EXPECT_NE(fromQt(resultText())
                .find("\nAlignment of the text left out: TEXT 1 (first in line 7)\n"
                      "The exact rules would keep these.\n"),
            std::string::npos);
}

TEST_F(ConversionTest, TheScriptOfADroppedDrawingHasItsNameToTheLetter) {
  std::filesystem::create_directory(folder.path() / "in");
  draw("in/..\\evil.dxf");
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(folder.has("in/..\\evil.scr"));
  EXPECT_FALSE(folder.has("evil.scr"));
}

TEST_F(ConversionTest, SavingKeepsWhatCameOutInView) {
  draw();
  window.show();
  window.befStart_Click();
  const QString result = resultText();
  for (int i = 0; i < 2; ++i) {
    click(window, "befSave");
    EXPECT_EQ(resultText(), result + "\nSettings saved in " +
                                toQt(files::fromPath(folder.path() / "program" / "larkspur.ini")));
  }
  EXPECT_TRUE(find<QPushButton>(window, "btnOpenFolder").isVisible());
  EXPECT_TRUE(find<QPushButton>(window, "btnCopyCommand").isVisible());
}

TEST_F(ConversionTest, MakesTheFrameFileInTheProgramFolder) {
  draw();
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(folder.read("program/quillon.cfh").starts_with("[Start]\r\nSet Optimizing off;\r\n"));
}

TEST_F(ConversionTest, UsesWhatTheControlsShow) {
  draw();
  find<QLineEdit>(window, "txtBRDname").setText(" sheet ");
  click(window, "chkBRDSCH_1");
  find<QComboBox>(window, "cboUnit").setCurrentIndex(1);
  find<QComboBox>(window, "cboVersion").setCurrentIndex(0);
  find<QComboBox>(window, "komStandartlayer").setCurrentText("91 Nets (S)");
  find<QLineEdit>(window, "txtmasst").setText("2");
  find<QLineEdit>(window, "txtOffsetX").setText("10");
  find<QLineEdit>(window, "txtOffsetY").setText("-1.5");
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_EQ(folder.read("part.scr"),
            "Write;\r\nEdit 'sheet.sch';\r\nSet Wire_Style 2;\r\nChange Pour Solid;\r\nGrid mm;\r\n"
            "Set Optimizing off;\r\nSet Undo_Log off;\r\nLayer  91 ;\r\n"
            "Wire 0.0000000 (10.0000000 -1.5000000) (12.0000000 2.5000000);\r\n"
            "Set Undo_Log on;\r\nWindow Fit;\r\n");
}

TEST_F(ConversionTest, AsksBeforeItReplacesAScript) {
  draw();
  folder.write("part.scr", "old");
  whenAsked(QMessageBox::No);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(boxText, "Scripfile exists already.\n" + path("part.scr") + "\nOverwrite?");
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_FALSE(find<QWidget>(window, "fraResult").isVisibleTo(&window));
  whenAsked(QMessageBox::Yes);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(folder.read("part.scr").starts_with("Set Wire_Bend 2;"));
}

TEST_F(ConversionTest, TheWindowGrowsForALongResult) {
  const std::string name(120, 'x');
  draw(name + ".dxf");
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  const auto& text = find<QLabel>(window, "labResult");
  EXPECT_TRUE(QTest::qWaitFor([&text] {
    return text.height() >= text.heightForWidth(text.width());
  })) << text.width()
      << " in " << window.width() << " x " << window.height() << ", which wants "
      << window.layout()->totalHeightForWidth(window.width()) << fromQt(text.text());
}

TEST_F(ConversionTest, QuestionsHaveButtonsInTheLanguageOfTheWindow) {
  context.LanguageOffset = texts::kGerman;
  draw();
  folder.write("part.scr", "old");
  QString yes;
  whenModal<QMessageBox>([&yes](QMessageBox& box) {
    yes = box.button(QMessageBox::Yes)->text();
    box.reject();
  });
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(yes, "&Ja");
}

TEST_F(ConversionTest, TheResultSaysThatAPartIsOutOfRangeAndWhatToDoNext) {
  testing::DxfBuilder dxf;
  dxf.entity("POINT", {{8, "0"}, {10, "1e9"}, {20, "0"}});
  window.setDrawing(toQt(folder.write("part.dxf", dxf.text())));
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(
      resultText().contains("\nPart of the drawing lies outside EAGLE's drawing area. Please check "
                            "the unit and the scale.\n"))
      << fromQt(resultText());
  const auto& panel = find<QWidget>(window, "fraResult");
  QStringList words;
  for (const QPushButton* const button : panel.findChildren<QPushButton*>()) {
    words << button->text();
  }
  EXPECT_TRUE(words.contains("&Open folder") && words.contains("Cop&y command"))
      << fromQt(words.join(","));
}

TEST_F(ConversionTest, AScaleOfZeroIsRefused) {
  draw();
  find<QLineEdit>(window, "txtmasst").setText("0");
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(boxTitle, "Error");
  EXPECT_EQ(boxText, "Scaling factor must be greater then 0.00!");
  EXPECT_EQ(modalWindows, 1);
}

TEST_F(ConversionTest, WithoutATargetStartIsRefused) {
  settings::Settings shown = window.settings();
  shown.targetKind = settings::kNoTarget;
  window.showSettings(shown);
  draw();
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(boxText,
            "Nothing is chosen for the script to create. Please choose a board, schematic, package "
            "or symbol.");
  EXPECT_FALSE(folder.has("part.scr"));
}

TEST_F(ConversionTest, AStandardLayerWithoutANumberIsRefused) {
  draw();
  auto& layers = find<QComboBox>(window, "komStandartlayer");
  layers.setCurrentText(" Nutzerdefiniert");  // German in both languages
  ASSERT_EQ(layers.currentText(), " Nutzerdefiniert");
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(boxTitle, "Error");
  EXPECT_EQ(boxText,
            "The DXF layer \"0\" is not assigned to an EAGLE layer, and the standard layer has no "
            "number. Please choose a standard layer with a number.");
  EXPECT_FALSE(folder.has("part.scr"));
}

TEST_F(ConversionTest, ALayerFileThatDoesNotExistIsAWarning) {
  settings::Settings shown = window.settings();
  shown.layerFile = folder.file("none.lay");
  window.showSettings(shown);
  draw();
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(boxText, "The layer definition file " + path("none.lay") +
                         " cannot be read: No such file or directory. All layers go to the "
                         "standard layer.");
  EXPECT_EQ(modalWindows, 1);
}

TEST_F(ConversionTest, EnterInAFieldUsesTheNumberWithItsCommaAsAPoint) {
  draw();
  window.show();
  auto& scale = find<QLineEdit>(window, "txtmasst");
  scale.setFocus();
  scale.clear();
  QTest::keyClicks(&scale, "2,5");
  QTest::keyClick(&scale, Qt::Key_Return);
  EXPECT_EQ(modalWindows, 0);
  EXPECT_NE(folder.read("part.scr").find("(R2.5000000 5.0000000)"), std::string::npos);
}

TEST_F(ConversionTest, ANumberThatIsFollowedBySomethingElseIsNamed) {
  draw();
  find<QLineEdit>(window, "txtOffsetX").setText("3 mm");
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_EQ(modalWindows, 1);
  EXPECT_EQ(boxTitle, "Warning");
  EXPECT_EQ(
      boxText,
      "Offset X: \"3 mm\" counts as 3, because something follows that is not part of a number. "
      "Please correct the number; the decimal sign is a point.");
  EXPECT_NE(folder.read("part.scr").find("(R4.0000000 2.0000000)"), std::string::npos);
}

TEST_F(ConversionTest, ADamagedDrawingIsReportedWithItsLine) {
  window.setDrawing(
      toQt(folder.write("bad.dxf", "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\nx\n")));
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(boxTitle, "File Error");
  EXPECT_TRUE(boxText.startsWith("Can't open the specified\n")) << fromQt(boxText);
  EXPECT_TRUE(boxDetail.startsWith(path("bad.dxf") + ":")) << fromQt(boxDetail);
  EXPECT_TRUE(window.isEnabled());
}

TEST_F(ConversionTest, WhatIsDroppedBecauseOfDamageIsNamed) {
  window.setDrawing(toQt(folder.write("bad.dxf",
                                      "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\nx\n1\n"
                                      "0\nPOINT\n8\n0\n0\nENDSEC\n0\nEOF\n")));
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(resultText().startsWith("Entities converted: 1 ")) << fromQt(resultText());
  EXPECT_TRUE(resultText().contains(
      "\nLeft out because the drawing is damaged: 1 (first damage in line 9)\n"))
      << fromQt(resultText());
}

TEST_F(ConversionTest, ShowsTheReportAndItIsClosedByItsButton) {
  draw();
  find<QCheckBox>(window, "chkReport").setChecked(true);
  QString report;
  whenModal<ReportWindow>([&report](ReportWindow& box) {
    report = find<QPlainTextEdit>(box, "txtInfo").toPlainText();
    click(box, "btnOk");
  });
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Converted);
  EXPECT_TRUE(report.startsWith("\nConversion Report \n====")) << fromQt(report);
  EXPECT_TRUE(report.endsWith("Lines written in Script file\n  ")) << fromQt(report);
}

TEST_F(ConversionTest, ShowsTheProgressAndDisablesTheWindowMeanwhile) {
  drawEndless();
  window.show();
  bool checked = false;
  QTimer::singleShot(100, &timers, [this, &checked] {
    auto& progress = find<ProgressDialog>(window, "frmDxf_msg");
    EXPECT_TRUE(progress.isVisible());
    EXPECT_FALSE(window.isEnabled());
    EXPECT_EQ(progress.windowTitle(), "Conversion");
    checked = true;
    click(progress, "befAbbruch");
    EXPECT_FALSE(progress.isVisible());
  });
  whenAsked(QMessageBox::Ok);
  const auto result = window.befStart_Click();
  EXPECT_TRUE(checked);
  EXPECT_EQ(result.outcome, Outcome::Cancelled);
  EXPECT_TRUE(boxText.startsWith("Interrupt by user in line ")) << fromQt(boxText);
  EXPECT_TRUE(boxText.endsWith(" of DXF file!"));
  EXPECT_TRUE(folder.read("endless.scr").ends_with("Window Fit;\r\n"));
  EXPECT_TRUE(resultText().contains("The conversion was cancelled; the script is incomplete."));
  EXPECT_TRUE(window.isEnabled());
}

TEST_F(ConversionTest, ACancelAnswersAtOnce) {
  drawEndless();
  window.show();
  // The least processor time of several runs, so that a busy machine does not decide.
  double least = 1.0;
  for (int run = 0; run < 5; ++run) {
    std::filesystem::remove(folder.file("endless.scr"));
    double cancelledAt = 0.0;
    QTimer::singleShot(50, &timers, [this, &cancelledAt] {
      cancelledAt = testing::processorSeconds();
      QTest::keyClick(&find<ProgressDialog>(window, "frmDxf_msg"), Qt::Key_Escape);
    });
    whenModal<QMessageBox>([&](QMessageBox& box) {
      least = std::min(least, testing::processorSeconds() - cancelledAt);
      box.accept();
    });
    EXPECT_EQ(window.befStart_Click().outcome, Outcome::Cancelled);
  }
  EXPECT_LT(least, 0.1 * testing::patience());
}

TEST_F(ConversionTest, ADrawingWithoutAnEndOfObjectsWaitsForTheCancel) {
  window.setDrawing(toQt(folder.write(
      "open.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n")));
  window.show();
  QTimer::singleShot(100, &timers, [this] { find<ProgressDialog>(window, "frmDxf_msg").cancel(); });
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Cancelled);
}

TEST_F(ConversionTest, RestsWhileItWaitsForTheCancel) {
  ProgressDialog progress(context, &window);
  WindowHost host(context, progress, &window);
  bool handled = false;
  QTimer::singleShot(0, &timers, [&handled] { handled = true; });
  const auto start = std::chrono::steady_clock::now();
  host.waitForEvents();
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(5));
  EXPECT_TRUE(handled);
}

TEST_F(ConversionTest, ClosingTheWindowDuringAConversionCancelsIt) {
  drawEndless();
  window.show();
  QTimer::singleShot(50, &timers, [this] { window.close(); });
  whenAsked(QMessageBox::Ok);
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Cancelled);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ConversionTest, AtALimitTheUserIsAskedWhetherToGoOn) {
  ProgressDialog progress(context, &window);
  WindowHost host(context, progress, &window);
  const convert::Message limit{convert::MessageKind::Error, "File Error", "part.dxf: A limit.",
                               "part.dxf: A limit. The script is not kept."};
  whenAsked(QMessageBox::Yes);
  EXPECT_TRUE(host.goOnPastLimit(limit));
  EXPECT_EQ(boxTitle, "File Error");
  EXPECT_EQ(boxText,
            "part.dxf: A limit.\nContinue without limits? Otherwise the script is not kept.");
  whenAsked(QMessageBox::No);
  EXPECT_FALSE(host.goOnPastLimit(limit));
  context.LanguageOffset = texts::kGerman;
  whenAsked(QMessageBox::No);
  EXPECT_FALSE(host.goOnPastLimit(limit));
  EXPECT_EQ(boxText,
            "part.dxf: A limit.\nOhne Grenzen weiterkonvertieren? Sonst wird das Script nicht "
            "behalten.");
  EXPECT_EQ(modalWindows, 3);
}

TEST_F(ConversionTest, AMissingDrawingOpensTheFileDialog) {
  find<QLineEdit>(window, "txtDXFDatei").setText(path("none.dxf"));
  whenModal<QDialog>([this](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "fileDialog");
    EXPECT_EQ(dialog.windowTitle(), "DXF File open");
    whenAsked(QMessageBox::Ok);
    dialog.reject();
  });
  EXPECT_EQ(window.befStart_Click().outcome, Outcome::Ended);
  EXPECT_EQ(modalWindows, 2);
  EXPECT_EQ(boxText, "Can't find the specified\n" + path("none.dxf") + "\nDXF file!");
}

TEST_F(ConversionTest, TheResultComesToRestWhateverTheLengthOfItsPaths) {
  for (std::size_t length = 1; length <= 60; ++length) {
    MainWindow shown(context);
    shown.LoadSettings();
    find<QCheckBox>(shown, "chkReport").setChecked(false);
    shown.setDrawing(toQt(writeDrawing(std::string(length, 'a') + ".dxf")));
    shown.befStart_Click();
    shown.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    EXPECT_TRUE(find<QLabel>(shown, "labResult").isVisible()) << length;
  }
}

}  // namespace
}  // namespace quillon::windows

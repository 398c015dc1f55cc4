#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "app/console/console.h"
#include "app/unattended/unattended_run.h"
#include "errors/fault_printer.h"
#include "errors/program.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"

namespace quillon::unattended {
namespace {

/// Fails where one drawing's conversion begins, or inside of it.
class FailingProgress : public ProgressView {
 public:
  void begin(std::string_view file, bool) override {
    if (file == failing) throw std::bad_alloc();
    failsInside = file == failingInside;
    ++begun;
  }
  void setStatus(std::string_view) override {
    if (failsInside) throw std::out_of_range("injected");
  }
  void setProgress(bool, int) override {}
  void processEvents() override {}
  bool cancelRequested() override { return false; }
  bool hasCancelButton() const override { return false; }
  void end() override { ++ended; }

  std::string failing;
  std::string failingInside;
  bool failsInside = false;
  int begun = 0;
  int ended = 0;
};

class UnattendedFaultsTest : public ::testing::Test {
 protected:
  int run(bool batch) {
    convert::CommandLine line;
    (batch ? line.autoRunExit : line.autoRun) = true;
    const errors::ProgramIdentity program = errors::thisProgram("quillon", folder.path());
    errors::FaultPrinter printer([this](std::string_view lines) { printed += lines; }, program,
                                 language);
    errors::FaultScribe faults(program, language, printer);
    ::testing::internal::CaptureStderr();
    const int exitCode =
        UnattendedRun(store, line, settings, texts, console, progress, faults).run();
    told = ::testing::internal::GetCapturedStderr();
    return exitCode;
  }
  void writeDrawing(const std::string& name) const {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    folder.write(name, dxf.text());
  }

  testing::TempFolder folder;
  settings::SettingsStore store{folder.path()};
  int language = texts::kEnglish;
  texts::Texts texts{language};
  console::Console console{false};
  FailingProgress progress;
  settings::Settings settings = [this] {
    settings::Settings made;
    made.dxfFile = folder.file("a.dxf");
    made.scriptFile = folder.file("a.scr");
    made.drawingName = "BOARD";
    made.layer = "20 Dimension (B)";
    return made;
  }();
  std::string printed;
  std::string told;
};

TEST_F(UnattendedFaultsTest, AnErrorInOneDrawingDoesNotEndTheBatch) {
  for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) writeDrawing(name);
  progress.failing = "b.dxf";
  EXPECT_EQ(run(true), kSomeNotConverted);
  EXPECT_TRUE(folder.has("a.scr"));
  EXPECT_FALSE(folder.has("b.scr"));
  EXPECT_TRUE(folder.has("c.scr"));
  const std::string protocol = folder.read("quillon.ERR");
  EXPECT_NE(protocol.find("Modul:\tUnattendedRun\r\n"), std::string::npos) << protocol;
  EXPECT_NE(protocol.find("Prozedur:\tconvert\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("UnattendedRun.convertBatch\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("dxfFile:\t" + folder.file("b.dxf") + "\r\n"), std::string::npos);
  EXPECT_NE(printed.find("F E H L E R"), std::string::npos);
  EXPECT_NE(told.find("2 drawings converted, 1 not converted"), std::string::npos) << told;
}

TEST_F(UnattendedFaultsTest, AnErrorInTheOnlyDrawingIsItsResult) {
  writeDrawing("a.dxf");
  progress.failing = "a.dxf";
  EXPECT_EQ(run(false), kSomeNotConverted);
  EXPECT_FALSE(folder.has("a.scr"));
  EXPECT_TRUE(folder.has("quillon.ERR"));
}

TEST_F(UnattendedFaultsTest, AnErrorInsideAConversionIsReportedAndTheBatchGoesOn) {
  for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) writeDrawing(name);
  progress.failingInside = "b.dxf";
  EXPECT_EQ(run(true), kSomeNotConverted);
  EXPECT_TRUE(folder.has("a.scr"));
  EXPECT_FALSE(folder.has("b.scr"));
  EXPECT_TRUE(folder.has("c.scr"));
  EXPECT_EQ(folder.entries(), 8U);  // drawings, scripts, the frame, the protocol and its trace
  EXPECT_EQ(progress.begun, 3);
  EXPECT_EQ(progress.ended, 3);
  const std::string protocol = folder.read("quillon.ERR");
  EXPECT_NE(protocol.find("Fehler-Nr:\t9\r\n"), std::string::npos) << protocol;
  EXPECT_NE(protocol.find("UnattendedRun.convert\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("dxfFile:\t" + folder.file("b.dxf") + "\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("scriptFile:\t" + folder.file("b.scr") + "\r\n"), std::string::npos);
  EXPECT_TRUE(printed.starts_with("quillon: Error 9 in UnattendedRun.convert: injected\n"))
      << printed;
  EXPECT_NE(told.find("2 drawings converted, 1 not converted"), std::string::npos) << told;
  EXPECT_EQ(told.find("Can't open"), std::string::npos) << told;
}

TEST_F(UnattendedFaultsTest, AnErrorInsideTheOnlyConversionIsItsResult) {
  writeDrawing("a.dxf");
  progress.failingInside = "a.dxf";
  EXPECT_EQ(run(false), kSomeNotConverted);
  EXPECT_FALSE(folder.has("a.scr"));
  EXPECT_TRUE(folder.has("quillon.ERR"));
  EXPECT_EQ(progress.ended, 1);
}

}  // namespace
}  // namespace quillon::unattended

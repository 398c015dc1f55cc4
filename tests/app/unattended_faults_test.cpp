#include <gtest/gtest.h>

#include <new>

#include "app/console/console.h"
#include "app/unattended/unattended_run.h"
#include "errors/fault_printer.h"
#include "errors/program.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"

namespace quillon::unattended {
namespace {

/// Throws when the conversion of a certain drawing starts.
class FailingProgress : public ProgressView {
 public:
  void begin(std::string_view file, bool) override {
    if (file == failing) throw std::bad_alloc();
  }
  void setStatus(std::string_view) override {}
  void setProgress(bool, int) override {}
  void processEvents() override {}
  bool cancelRequested() override { return false; }
  bool hasCancelButton() const override { return false; }
  void end() override {}

  std::string failing;
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

}  // namespace
}  // namespace quillon::unattended

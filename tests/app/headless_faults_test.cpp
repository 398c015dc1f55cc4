// Faults of the program itself while drawings are converted without a window.
#include <gtest/gtest.h>

#include <stdexcept>

#include "app/headless/runner.h"
#include "app/json_value.h"
#include "errors/fault_printer.h"
#include "errors/program.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"

namespace quillon::headless {
namespace {

/// Fails where a conversion begins to say how far it has come.
class FailingHost : public convert::ConversionHost {
 public:
  explicit FailingHost(convert::ConversionHost& host) : host_(host) {}

  void setStatus(std::string_view) override { throw std::out_of_range("injected"); }
  void setProgress(bool writing, int percent) override { host_.setProgress(writing, percent); }
  void processEvents() override { host_.processEvents(); }
  bool cancelRequested() override { return host_.cancelRequested(); }
  bool hasCancelButton() const override { return host_.hasCancelButton(); }
  bool ask(const convert::Message& question) override { return host_.ask(question); }
  void tell(const convert::Message& message) override { host_.tell(message); }
  bool goOnPastLimit(const convert::Message& limit) override { return host_.goOnPastLimit(limit); }
  std::string chooseDxfFile(const convert::FileQuestion& question) override {
    return host_.chooseDxfFile(question);
  }
  void showReport(std::string_view report) override { host_.showReport(report); }

 private:
  convert::ConversionHost& host_;
};

class HeadlessFaultsTest : public ::testing::Test {
 protected:
  HeadlessFaultsTest() {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) folder.write(name, dxf.text());
    folder.write("b.scr", "old");
    options.inputs = {folder.file("a.dxf"), folder.file("b.dxf"), folder.file("c.dxf")};
    options.job.overwriteScript = true;
    options.languageOffset = texts::kEnglish;
  }

  /// Converts; the conversion of b.dxf fails on its way.
  int run() {
    const errors::ProgramIdentity program =
        errors::thisProgram("quillon-convert", folder.path() / "program");
    errors::FaultPrinter printer([this](std::string_view lines) { printed += lines; }, program,
                                 options.languageOffset);
    errors::FaultScribe faults(program, options.languageOffset, printer);
    console::Console console(false);
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    const int exitCode =
        headless::run(options, console, faults,
                      [](const convert::ConversionJob& job, convert::ConversionHost& host,
                         const convert::Surroundings& surroundings) {
                        if (!job.dxfFile.ends_with("b.dxf"))
                          return convertDXF(job, host, surroundings);
                        FailingHost failing(host);
                        return convertDXF(job, failing, surroundings);
                      });
    output = ::testing::internal::GetCapturedStdout();
    told = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(faults.callStack().size(), 0U);
    return exitCode;
  }
  std::string failureLine() const {
    return "quillon-convert: error: " + folder.file("b.dxf") +
           " was not converted: an error occurred in the program (injected). Please send the error "
           "protocol to support@quillon.example.\n";
  }
  void expectTheOthers() const {
    EXPECT_TRUE(folder.read("a.scr").ends_with("Window Fit;\r\n"));
    EXPECT_EQ(folder.read("b.scr"), "old");
    EXPECT_TRUE(folder.read("c.scr").ends_with("Window Fit;\r\n"));
    EXPECT_EQ(folder.entries(), 7U);  // nothing but drawings, scripts and the program's folder
  }
  void expectProtocol() const {
    const std::string protocol = folder.read("program/quillon-convert.ERR");
    EXPECT_NE(protocol.find("Fehler-Nr:\t9\r\n"), std::string::npos) << protocol;
    EXPECT_NE(protocol.find("Modul:\theadless\r\n"), std::string::npos);
    EXPECT_NE(protocol.find("Prozedur:\tconvert\r\n"), std::string::npos);
    EXPECT_NE(protocol.find("dxfFile:\t" + folder.file("b.dxf") + "\r\n"), std::string::npos);
  }

  testing::TempFolder folder;
  Options options;
  std::string printed;
  std::string output;
  std::string told;
};

TEST_F(HeadlessFaultsTest, AnErrorInsideAConversionIsReportedAndTheOthersAreConverted) {
  EXPECT_EQ(run(), kSomeNotConverted);
  expectTheOthers();
  expectProtocol();
  EXPECT_TRUE(printed.starts_with("quillon-convert: Error 9 in headless.convert: injected\n"))
      << printed;
  EXPECT_NE(printed.find("F E H L E R P R O T O K O L L"), std::string::npos);
  EXPECT_NE(told.find(failureLine()), std::string::npos) << told;
  EXPECT_NE(told.find("2 of 3 drawings converted"), std::string::npos) << told;
}

TEST_F(HeadlessFaultsTest, SoItIsWhereDrawingsAreConvertedAtTheSameTime) {
  options.jobs = 3;
  options.quiet = true;
  EXPECT_EQ(run(), kSomeNotConverted);
  expectTheOthers();
  expectProtocol();
  EXPECT_EQ(told, failureLine());
}

TEST_F(HeadlessFaultsTest, ItHasAnObjectOfItsOwn) {
  options.json = true;
  EXPECT_EQ(run(), kSomeNotConverted);
  std::vector<testing::JsonValue> all;
  for (std::string_view rest = output; !rest.empty();) {
    const std::size_t stop = rest.find('\n') + 1;
    all.push_back(testing::JsonValue::parse(rest.substr(0, stop)));
    rest.remove_prefix(stop);
  }
  ASSERT_EQ(all.size(), 3U) << output;
  EXPECT_EQ(all[1].at("dxf").text(), folder.file("b.dxf"));
  EXPECT_EQ(all[1].at("outcome").text(), "failed");
  EXPECT_EQ(
      "quillon-convert: error: " + all[1].at("messages").items().at(0).at("text").text() + "\n",
      failureLine());
}

}  // namespace
}  // namespace quillon::headless

#include "errors/fault_printer.h"

#include "errors/program.h"
#include "errors/scribe_fixture.h"
#include "platform.h"

namespace quillon::errors {
namespace {

class FaultPrinterTest : public ScribeTest {
 protected:
  void fail(const std::filesystem::path& programFolder) {
    const ProgramIdentity program = thisProgram("quillon", programFolder);
    FaultPrinter printer([this](std::string_view lines) { printed += lines; }, program, language);
    FaultScribe reporter(program, language, printer);
    attempt(
        reporter, "UnattendedRun", "convert", [] { throw std::bad_alloc(); }, kMayLeave);
  }
  std::string printed;
};

TEST_F(FaultPrinterTest, WritesTheProtocolToTheFileAndToStandardError) {
  folder.write("quillon.ERR", "an older one");
  fail(folder.path());
  std::string protocol = folder.read("quillon.ERR");
  EXPECT_NE(protocol.find("Fehler-Nr:\t7\r\n"), std::string::npos) << protocol;
  std::erase(protocol, '\r');
  EXPECT_TRUE(printed.starts_with("quillon: Error 7 in UnattendedRun.convert: ")) << printed;
  EXPECT_NE(printed.find("\n" + protocol), std::string::npos) << printed;
  EXPECT_TRUE(printed.ends_with("quillon: The error protocol is in the file '" +
                                folder.file("quillon.ERR") + "'.\n"))
      << printed;
}

TEST_F(FaultPrinterTest, PrintsAllTheSameWhereNoFileCanBeWritten) {
  fail("/dev/null/none");
  EXPECT_NE(printed.find("F E H L E R P R O T O K O L L"), std::string::npos);
  EXPECT_EQ(printed.find("'/dev/null"), std::string::npos);
}

TEST_F(FaultPrinterTest, SpeaksTheLanguageOfTheProgram) {
  language = texts::kGerman;
  fail(folder.path());
  EXPECT_TRUE(printed.starts_with("quillon: Fehler 7 in UnattendedRun.convert: ")) << printed;
  EXPECT_EQ(testing::withSlashes(crashNotice(thisProgram("quillon", "/x"), texts::kGerman)),
            "quillon: Das Programm ist abgestürzt. Das Fehlerprotokoll steht in der Datei "
            "'/x/quillon.ERR'.\n");
}

}  // namespace
}  // namespace quillon::errors

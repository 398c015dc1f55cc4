#include "app/unattended/unattended_host.h"

#include <gtest/gtest.h>

#include "app/unattended/console_progress.h"

namespace quillon::unattended {
namespace {

using convert::Message;
using convert::MessageKind;

class UnattendedHostTest : public ::testing::Test {
 protected:
  template <typename Action>
  std::string printedBy(Action action) {
    ::testing::internal::CaptureStderr();
    action();
    return ::testing::internal::GetCapturedStderr();
  }

  console::Console console{false};
  texts::Texts english{texts::kEnglish};
  ConsoleProgress progress{console};
  UnattendedHost host{console, progress, english};
};

TEST_F(UnattendedHostTest, PrintsTitleAndLinesOfAMessage) {
  EXPECT_EQ(printedBy([this] {
              host.tell({MessageKind::Error, "File Error", "one\rtwo\r   ", "one two"});
            }),
            "quillon: File Error: one two\n");
}

TEST_F(UnattendedHostTest, PrintsTheDetailWhereItSaysMore) {
  EXPECT_EQ(printedBy([this] {
              host.tell({MessageKind::Error, "Error", "It failed.", "a.dxf:3: no group code"});
            }),
            "quillon: Error: It failed.\n  a.dxf:3: no group code\n");
}

TEST_F(UnattendedHostTest, DoesNotRepeatAMessageInItsDetail) {
  EXPECT_EQ(
      printedBy([this] {
        host.tell({MessageKind::Warning, "Warning", "out\rof range\r  ", "a.dxf: out of range"});
      }),
      "quillon: Warning: a.dxf: out of range\n");
}

TEST_F(UnattendedHostTest, PrintsALongMessageWholeAndOnce) {
  const std::string path = "C:\\" + std::string(190, 'x') + "\\a.dxf";
  const std::string text = path + ": The script has reached the limit of 6 lines.";
  const std::string go =
      " Please convert the drawing in the window, which asks whether to continue.\n";
  EXPECT_EQ(printedBy([&] {
              host.tell({MessageKind::Error, "File Error", text, text});
            }),
            "quillon: File Error: " + text + "\n");
  EXPECT_EQ(printedBy([&] {
              host.goOnPastLimit({MessageKind::Error, "File Error", text, text + " Not kept."});
            }),
            "quillon: File Error: " + text + " Not kept." + go);
}

TEST_F(UnattendedHostTest, EscapesControlCharactersOfNames) {
  EXPECT_EQ(printedBy([this] {
              host.tell({MessageKind::Error, "Error", "a\x1b[2Jb\rc", "a\\x1b[2Jb c"});
            }),
            "quillon: Error: a\\x1b[2Jb c\n");
}

TEST_F(UnattendedHostTest, AnswersAQuestionWithNo) {
  EXPECT_EQ(printedBy([this] {
              EXPECT_FALSE(host.ask({MessageKind::Question, "Warning", "Overwrite?", "a.scr"}));
            }),
            "quillon: Warning: Overwrite?\n  The answer is No. Add /w:o to replace the file.\n");
}

TEST_F(UnattendedHostTest, EndsAtALimitAndSaysWhereItCanGoOn) {
  const Message limit{MessageKind::Error, "File Error", "a.dxf: limit.", "a.dxf: limit. Not kept."};
  EXPECT_EQ(
      printedBy([&] { EXPECT_FALSE(host.goOnPastLimit(limit)); }),
      "quillon: File Error: a.dxf: limit. Not kept. Please convert the drawing in the window, "
      "which asks whether to continue.\n");
  texts::Texts german{texts::kGerman};
  UnattendedHost germanHost{console, progress, german};
  EXPECT_EQ(printedBy([&] { germanHost.goOnPastLimit(limit); }),
            "quillon: File Error: a.dxf: limit. Not kept. Bitte die Zeichnung im Fenster "
            "konvertieren, das fragt, ob es weitergehen soll.\n");
}

TEST_F(UnattendedHostTest, CancelsTheFileDialog) { EXPECT_EQ(host.chooseDxfFile({}), ""); }

TEST_F(UnattendedHostTest, PrintsTheReportWithPlainLineEnds) {
  EXPECT_EQ(printedBy([this] { host.showReport("\r\none\r\ntwo"); }), "\none\ntwo\n");
}

TEST_F(UnattendedHostTest, EscapesControlCharactersOfTheReport) {
  EXPECT_EQ(printedBy([this] { host.showReport("\r\na\x1b[2J\tb\nc\x7F\r\n\u009Bd"); }),
            "\na\\x1b[2J\tb\\x0ac\\x7f\n\\x9bd\n");
}

TEST_F(UnattendedHostTest, HasNoCancelButton) {
  EXPECT_FALSE(host.hasCancelButton());
  EXPECT_FALSE(host.cancelRequested());
}

}  // namespace
}  // namespace quillon::unattended

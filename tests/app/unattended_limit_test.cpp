// Conversions of "/" runs that come to a limit.
#include <gtest/gtest.h>

#include "app/unattended/console_progress.h"
#include "app/unattended/unattended_host.h"
#include "support/conversion.h"
#include "support/dxf_builder.h"

namespace quillon::unattended {
namespace {

/// What a run prints of a drawing that has more lines to write than it may.
std::string printedAtLimit(int languageOffset, const std::string& dxf, const std::string& script) {
  console::Console console{false};
  const texts::Texts texts{languageOffset};
  ConsoleProgress progress{console};
  UnattendedHost host{console, progress, texts};
  convert::Surroundings surroundings = testing::fixedSurroundings();
  surroundings.languageOffset = languageOffset;
  surroundings.limits.lines = 6;
  convert::ConversionJob job;
  job.dxfFile = dxf;
  job.scriptFile = script;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(convert::convertDXF(job, host, surroundings).outcome, convert::Outcome::Ended);
  return ::testing::internal::GetCapturedStderr();
}

TEST(UnattendedLimit, EndsTheDrawingWithoutAScript) {
  const testing::TempFolder folder;
  testing::DxfBuilder dxf;
  for (int i = 0; i < 9; ++i) dxf.entity("POINT", {{8, "0"}});
  const std::string drawing = folder.write("a.dxf", dxf.text());
  EXPECT_EQ(printedAtLimit(texts::kEnglish, drawing, folder.file("a.scr")),
            "quillon: File Error: " + drawing +
                ": The script has reached the limit of 6 lines. The script is not kept. Please "
                "convert the drawing in the window, which asks whether to continue.\n");
  EXPECT_EQ(printedAtLimit(texts::kGerman, drawing, folder.file("a.scr")),
            "quillon: Dateifehler: " + drawing +
                ": Das Script hat die Grenze von 6 Zeilen erreicht. Das Script wird nicht "
                "behalten. Bitte die Zeichnung im Fenster konvertieren, das fragt, ob es "
                "weitergehen soll.\n");
  EXPECT_FALSE(folder.has("a.scr"));
}

}  // namespace
}  // namespace quillon::unattended

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "convert/driver.h"
#include "support/conversion.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"

namespace quillon::convert {

/// The script's first and last lines with the default settings.
inline constexpr std::string_view kHead =
    "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\nSet Optimizing off;\r\n"
    "Set Undo_Log off;\r\n";
inline constexpr std::string_view kTail = "Set Undo_Log on;\r\nWindow Fit;\r\n";
inline constexpr std::string_view kRangeNote =
    "# In the previous command some coordinates are out of range!\r\n";

/// A script within the default frame.
inline std::string framed(std::string_view content) {
  return std::string(kHead) + std::string(content) + std::string(kTail);
}

/// Conversions of drawing.dxf to drawing.scr in a folder of their own.
class DriverTest : public ::testing::Test {
 protected:
  DriverTest() {
    job.dxfFile = folder.write("drawing.dxf", oneLine().text());
    job.scriptFile = folder.file("drawing.scr");
  }

  /// A drawing with the line (0 0) to (1 2).
  static testing::DxfBuilder oneLine() {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    return dxf;
  }
  static std::string oneLineScript() {
    return framed(
        "Layer  20 ;\r\nWire 0.0000000 (R0.0000000 0.0000000) (R1.0000000 2.0000000);\r\n");
  }

  void draw(const testing::DxfBuilder& dxf) const { folder.write("drawing.dxf", dxf.text()); }
  Outcome convert() {
    result = convertDXF(job, host, surroundings);
    return result.outcome;
  }
  bool hasScript() const { return folder.has("drawing.scr"); }
  std::string script() const { return folder.read("drawing.scr"); }
  void speakGerman() { surroundings.languageOffset = texts::kGerman; }

  testing::TempFolder folder;
  ConversionJob job;
  testing::RecordingHost host;
  Surroundings surroundings = testing::fixedSurroundings();
  ConversionResult result;
};

}  // namespace quillon::convert

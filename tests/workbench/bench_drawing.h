#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/number_text.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"
#include "workbench/reading.h"

namespace quillon::workbench {

/// A drawing in a file, and what comes of it.
class BenchTest : public ::testing::Test {
 protected:
  BenchTest() {
    surroundings.languageOffset = texts::kEnglish;
    job.unit = base::Unit::Mm;
  }

  /// A closed plate of 100 x 80 with four rounded corners, as one polyline.
  void addPlate(std::string_view layer = "PLATE") {
    const auto bulge = "0.41421356237309503";
    const std::pair<const char*, const char*> corners[] = {
        {"5", "0"},   {"95", "0"}, {"100", "5"}, {"100", "75"},
        {"95", "80"}, {"5", "80"}, {"0", "75"},  {"0", "5"}};
    drawing.entity("POLYLINE", {{8, layer}, {66, "1"}, {70, "1"}});
    bool curved = false;
    for (const auto& [x, y] : corners) {
      drawing.entity("VERTEX", {{8, layer}, {10, x}, {20, y}, {42, curved ? bulge : "0"}});
      curved = !curved;
    }
    drawing.entity("SEQEND", {{8, layer}});
  }
  void addLine(const char* x1, const char* y1, const char* x2, const char* y2) {
    drawing.entity("LINE", {{8, "0"}, {10, x1}, {20, y1}, {11, x2}, {21, y2}});
  }
  /// A filled triangle with legs of 1 and its right angle here.
  void addTriangle(double x, double y, std::string_view layer = "0") {
    const auto text = [](double value) { return base::numberText(value); };
    drawing.entity("SOLID", {{8, layer},
                             {10, text(x)},
                             {20, text(y)},
                             {11, text(x + 1.0)},
                             {21, text(y)},
                             {12, text(x)},
                             {22, text(y + 1.0)},
                             {13, text(x)},
                             {23, text(y + 1.0)}});
  }

  /// Both readings of the drawing.
  void readBoth() {
    const std::string path = folder.write("a.dxf", drawing.text());
    convert::HeldDrawing held(path, never, {});
    job.dxfFile = path;
    result = readResult(held, job, surroundings, never);
    whole = readDrawing(held, result, surroundings, never);
  }

  testing::TempFolder folder;
  testing::DxfBuilder drawing;
  convert::ConversionJob job;
  convert::Surroundings surroundings;
  Reading result;
  Reading whole;
  const texts::Texts texts{texts::kEnglish};
  const Cancelled never = [] { return false; };
};

/// Corners that a test names in short.
inline void expectNear(geometry::Point point, double x, double y) {
  EXPECT_NEAR(point.x, x, 1e-3);
  EXPECT_NEAR(point.y, y, 1e-3);
}

}  // namespace quillon::workbench

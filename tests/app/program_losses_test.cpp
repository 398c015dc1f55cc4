#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::DxfBuilder;

/// What the headless program reports about entities that it did not convert.
class LossesTest : public ProgramTest {};

TEST_F(LossesTest, NamesTheKindsThatItDoesNotRecognise) {
  DxfBuilder dxf = oneLine();
  dxf.entity("HATCH", {{8, "0"}}).entity("IMAGE", {{8, "0"}}).entity("HATCH", {{8, "0"}});
  write("part.dxf", dxf);
  const testing::ProgramResult result = run({"part.dxf"});
  EXPECT_TRUE(result.error.starts_with(
      "quillon-convert: warning: part.dxf: Not recognised and left out: HATCH 2, IMAGE 1\n"
      "part.dxf: 1 entities converted from 38 lines\n"));
}

TEST_F(LossesTest, ListsWhatTheExactRulesWouldKeep) {
  DxfBuilder dxf;
  for (const std::string_view layer : {"a", "b"}) {
    dxf.entity(
        "LWPOLYLINE",
        {{8, layer}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "5"}, {20, "0"}, {10, "5"}, {20, "5"}});
  }
  dxf.entity("TEXT", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, "x"}, {72, "2"}});
  write("part.dxf", dxf);
  const testing::ProgramResult english = run({"part.dxf"});
  EXPECT_EQ(english.exitCode, 0);
  EXPECT_TRUE(
      english.error.starts_with("part.dxf: 3 entities converted from 64 lines\n"
                                "Filled instead of outlined: LWPOLYLINE 2 (first in line 7)\n"
                                "Alignment of the text left out: TEXT 1 (first in line 43)\n"
                                "The exact rules would keep these: --rules exact.\n"
                                "part.scr: "))
      << english.error;
  const testing::ProgramResult german = run({"part.dxf", "--force", "--language", "de"});
  EXPECT_NE(german.error.find("\nGefüllt statt nur umrandet: LWPOLYLINE 2 (zuerst in Zeile 7)\n"
                              "Ausrichtung des Textes nicht beachtet: TEXT 1 (zuerst in Zeile 43)\n"
                              "Die exakten Regeln würden dies erhalten: --rules exact.\n"),
            std::string::npos)
      << german.error;
  expectResult(run({"part.dxf", "--force", "--quiet"}), 0, "", "");
  EXPECT_EQ(
      run({"part.dxf", "--force", "--rules", "exact", "--eagle", "6"}).error.find("would keep"),
      std::string::npos);
}

TEST_F(LossesTest, ReportsLossesEvenWhenQuiet) {
  DxfBuilder dxf = oneLine();
  dxf.entity("HATCH", {{8, "0"}}).entity("RAY", {{8, "0"}}).entity("LINE", {{8, "0\nbroken\n1"}});
  write("part.dxf", dxf);
  const std::string text = dxf.text();
  const auto broken = text.begin() + static_cast<std::ptrdiff_t>(text.find("broken"));
  expectResult(run({"part.dxf", "--quiet"}), 0, "",
               "quillon-convert: warning: part.dxf: Left out because the drawing is damaged: 1 "
               "(first damage in line " +
                   std::to_string(std::count(text.begin(), broken, '\n') + 1) +
                   ")\n"
                   "quillon-convert: warning: part.dxf: Not recognised and left out: HATCH 1, RAY "
                   "1\n");
}

TEST_F(LossesTest, TellsThatNothingWasConvertedOfADrawingWithEntities) {
  DxfBuilder dxf;
  dxf.entity("HATCH", {{8, "0"}});
  write("part.dxf", dxf);
  expectResult(
      run({"part.dxf", "--quiet"}), 0, "",
      "quillon-convert: warning: Nothing was converted: all entities of part.dxf were left "
      "out. Please check the drawing and the layer assignment.\n"
      "quillon-convert: warning: part.dxf: Not recognised and left out: HATCH 1\n");
  write("hidden.dxf", oneLine());
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=999\n");
  expectResult(run({"hidden.dxf", "--quiet", "--layers", "a.lay"}), 0, "",
               "quillon-convert: warning: Nothing was converted: all entities of hidden.dxf were "
               "left out. Please check the drawing and the layer assignment.\n");
  write("empty.dxf", DxfBuilder());
  expectResult(run({"empty.dxf", "--quiet"}), 0, "", "");
}

}  // namespace
}  // namespace quillon::headless

#include "convert/layer_scan.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"

namespace quillon::convert {
namespace {

using Names = std::vector<std::string>;

class LayerScanTest : public ::testing::Test {
 protected:
  Names scan(std::string_view text) const { return layerScanDXF(folder.write("a.dxf", text)); }

  testing::TempFolder folder;
};

TEST_F(LayerScanTest, ListsTheLayersInTheOrderOfTheFile) {
  testing::DxfBuilder dxf;
  dxf.layer("Umri\xDF").layer("0").layer("holes");
  dxf.entity("LINE", {{8, "undeclared"}});
  EXPECT_EQ(scan(dxf.text()), (Names{"UMRIß", "0", "HOLES"}));
}

TEST_F(LayerScanTest, ListsTheLayersThatEntitiesUseWhereNoneIsDeclared) {
  testing::DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "1").dashes("DASHED", "1", {"0.5", "-0.5"});
  dxf.beginBlock("part")
      .entity("CIRCLE", {{8, "holes"}, {10, "0"}, {20, "0"}, {40, "1"}})
      .endBlock();
  for (const char* layer : {"Umri\xDF", "HOLES", "umri\xDF", "", "text"}) {
    dxf.entity("LINE", {{8, layer}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  }
  dxf.entity("LINE", {{10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  dxf.entity("SEQEND", {}).entity("HATCH", {{8, "left out"}});
  EXPECT_EQ(scan(dxf.text()), (Names{"HOLES", "UMRIß", "TEXT"}));
}

TEST_F(LayerScanTest, ListsTheLayersOfABareListOfEntities) {
  EXPECT_EQ(scan("0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\na\n10\n1\n20\n1\n0\nENDSEC\n0\nEOF\n"),
            Names{"A"});
}

TEST_F(LayerScanTest, ADamagedBlockWithoutDeclaredLayersIsAnErrorWithItsLine) {
  testing::DxfBuilder dxf;
  dxf.beginBlock("part").entity("CIRCLE", {{8, "A"}}).endBlock();
  std::string text = dxf.text();
  text.replace(text.find("CIRCLE\n"), 7, "CIRCLE\nx\n");
  try {
    scan(text);
    FAIL();
  } catch (const base::RunTimeError& error) {
    EXPECT_GT(error.line(), 5U);
  }
}

TEST_F(LayerScanTest, FindsTheDrawingWhateverTheCaseOfItsName) {
  testing::DxfBuilder dxf;
  dxf.layer("A");
  scan(dxf.text());
  EXPECT_EQ(layerScanDXF(folder.file("A.DXF")), Names{"A"});
}

TEST_F(LayerScanTest, ATextCanBeScannedAgain) {
  testing::DxfBuilder dxf;
  dxf.layer("A").layer("B");
  dxf::TextSource text(dxf.text());
  const std::function<bool()> never = [] { return false; };
  EXPECT_EQ(layersOfText(text, never), (Names{"A", "B"}));
  EXPECT_EQ(layersOfText(text, never), (Names{"A", "B"}));
}

TEST_F(LayerScanTest, GivesNothingWithoutADrawing) {
  EXPECT_EQ(layerScanDXF(""), Names{});
  EXPECT_EQ(layerScanDXF(folder.file("none.dxf")), Names{});
  EXPECT_EQ(layerScanDXF(folder.path().string()), Names{});
  EXPECT_EQ(scan(""), Names{});
  EXPECT_EQ(scan(std::string("AC1015\0\0", 8)), Names{});
  EXPECT_EQ(scan("no\ndrawing\n"), Names{});
}

TEST_F(LayerScanTest, ADamagedTableIsAnErrorWithItsLine) {
  try {
    scan("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\nx\n");
    FAIL();
  } catch (const base::RunTimeError& error) {
    EXPECT_GT(error.line(), 5U);
  }
}

TEST_F(LayerScanTest, ThousandsOfLayersAreListedAtOnce) {
  testing::DxfBuilder dxf;
  for (int i = 0; i < 5000; ++i) dxf.layer("L" + std::to_string(i));
  EXPECT_EQ(scan(dxf.text()).size(), 5000U);
}

}  // namespace
}  // namespace quillon::convert

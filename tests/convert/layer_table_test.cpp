#include "convert/layer_table.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "support/temp_folder.h"

namespace quillon::convert {
namespace {

using testing::TempFolder;

LayerTable tableOf(std::string_view bytes) {
  const TempFolder folder;
  return layerTableOf(readLayerRows(folder.write("a.lay", bytes)));
}

std::string assigned(const LayerTable& table, std::string_view upperName) {
  const std::string* const layer = table.find(upperName);
  return layer == nullptr ? "(none)" : *layer;
}

std::string lookUp(std::string_view bytes, std::string_view dxfLayer,
                   base::Encoding encoding = base::Encoding::Windows1252) {
  const LayerTable table = tableOf(bytes);
  return std::string(LayerAssignment(table, "default", encoding).lookupLayer(dxfLayer));
}

/// The layer number of an unassigned layer.
int defaultNumber(std::string_view defaultLayer) {
  const LayerTable table;
  LayerAssignment layers(table, defaultLayer, base::Encoding::Windows1252);
  dxf::LayerUse layer;
  layer.name = "ANY";
  return layers.layerNumber(layer);
}

TEST(LayerFile, ReadsTheAssignmentsInOrder) {
  const LayerTable table =
      tableOf("[1]\r\nlayername=OUTLINE\r\nlayernr=20\r\n[2]\r\nlayername=holes\r\nlayernr=45\r\n");
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(assigned(table, "OUTLINE"), "20");
  EXPECT_EQ(assigned(table, "HOLES"), "45");
}

TEST(LayerFile, EndsAtTheFirstGapInTheNumbering) {
  const LayerTable table = tableOf("[1]\nlayername=A\nlayernr=1\n[3]\nlayername=C\nlayernr=3\n");
  EXPECT_EQ(table.size(), 1U);
  EXPECT_EQ(assigned(table, "A"), "1");
  EXPECT_EQ(assigned(table, "C"), "(none)");
}

TEST(LayerFile, EndsAtASectionWithAnEmptyName) {
  EXPECT_EQ(tableOf("[1]\nlayername=\" \"\nlayernr=1\n[2]\nlayername=B\nlayernr=2\n").size(), 0U);
  EXPECT_EQ(tableOf("[1]\nlayernr=1\n[2]\nlayername=B\nlayernr=2\n").size(), 0U);
}

TEST(LayerFile, MayHoldItsSectionsInAnyOrder) {
  const LayerTable table =
      tableOf("[2]\nlayername=B\nlayernr=2\n[1]\nlayernr=1\nlayername=A\n[x]\nlayername=X\n");
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(assigned(table, "B"), "2");
}

TEST(LayerFile, KeepsAFractionAndTurnsTextWithoutANumberIntoZero) {
  const LayerTable table = tableOf(
      "[1]\nlayername=A\nlayernr=16.7\n[2]\nlayername=B\nlayernr=abc\n"
      "[3]\nlayername=C\n[4]\nlayername=D\nlayernr= 21 tPlace\n[5]\nlayername=E\nlayernr=007\n");
  EXPECT_EQ(assigned(table, "A"), "16.7");
  EXPECT_EQ(assigned(table, "B"), "0");
  EXPECT_EQ(assigned(table, "C"), "0");
  EXPECT_EQ(assigned(table, "D"), "21");
  EXPECT_EQ(assigned(table, "E"), "7");
}

TEST(LayerFile, TheFirstOfTwoSectionsWithOneNameDecides) {
  EXPECT_EQ(lookUp("[1]\nlayername=A\nlayernr=1\n[2]\nlayername=a\nlayernr=2\n", "A"), "1");
}

TEST(LayerFile, AMissingFileOrAnEmptyPathAssignsNothing) {
  const TempFolder folder;
  EXPECT_EQ(layerTableOf(readLayerRows("")).size(), 0U);
  EXPECT_EQ(layerTableOf(readLayerRows(folder.file("none.lay"))).size(), 0U);
}

TEST(LayerLookUp, AnswersTheDefaultLayerForANameThatIsNotAssigned) {
  EXPECT_EQ(lookUp("[1]\nlayername=A\nlayernr=1\n", "B"), "default");
  EXPECT_EQ(lookUp("", "A"), "default");
}

TEST(LayerLookUp, ComparesWithoutRegardToCase) {
  EXPECT_EQ(lookUp("[1]\nlayername=OutLine\nlayernr=20\n", "oUTlINE"), "20");
}

TEST(LayerLookUp, BlanksAroundTheAssignedNameDoNotCountThoseInsideDo) {
  const std::string file = "[1]\nlayername=\"  OUTLINE  \"\nlayernr=20\n";
  EXPECT_EQ(lookUp(file, "Outline"), "20");
  EXPECT_EQ(lookUp(file, "Out line"), "default");
}

TEST(LayerLookUp, DoesNotTrimTheNameOfTheDrawing) {
  EXPECT_EQ(lookUp("[1]\nlayername=A\nlayernr=1\n", " A"), "default");
  EXPECT_EQ(lookUp("[1]\nlayername=A\nlayernr=1\n", "A "), "default");
}

TEST(LayerLookUp, ComparesNamesOfDifferentEncodingsAsCharacters) {
  const std::string file = "[1]\nlayername=T\xFCren\nlayernr=30\n";
  EXPECT_EQ(lookUp(file, "T\xDCREN", base::Encoding::Windows1252), "30");
  EXPECT_EQ(lookUp(file, "TÜREN", base::Encoding::Utf8), "30");
  EXPECT_EQ(lookUp(file, "türen", base::Encoding::Utf8), "30");
  EXPECT_EQ(lookUp(file, "TUREN", base::Encoding::Utf8), "default");
}

TEST(LayerNumber, IsTheLeadingNumberRoundedHalfToEven) {
  EXPECT_EQ(defaultNumber("20 Dimension (B)"), 20);
  EXPECT_EQ(defaultNumber("16.7"), 17);
  EXPECT_EQ(defaultNumber("16.5"), 16);
  EXPECT_EQ(defaultNumber("17.5"), 18);
  EXPECT_EQ(defaultNumber("999 unconverted"), 999);
  EXPECT_EQ(defaultNumber(" 7"), 7);
  EXPECT_EQ(defaultNumber("0"), 0);
  EXPECT_EQ(defaultNumber("-3"), -3);
}

TEST(LayerNumber, OfALayerThatIsNotAssignedNeedsAStandardLayerWithANumber) {
  const LayerTable table = tableOf("[1]\nlayername=A\nlayernr=16\n");
  for (const char* const none : {"", " Userdefined", "abc"}) {
    LayerAssignment layers(table, none, base::Encoding::Windows1252);
    dxf::LayerUse layer;
    layer.name = "A";
    EXPECT_EQ(layers.layerNumber(layer), 16);
    layer.name = "T\xFCr";
    layer.number = 1;
    try {
      layers.layerNumber(layer);
      FAIL() << none;
    } catch (const NoStandardLayer& error) {
      EXPECT_EQ(error.layer(), "Tür");
    }
  }
}

TEST(LayerNumber, OutsideSixteenBitsIsARunTimeError) {
  EXPECT_EQ(defaultNumber("32767"), 32767);
  EXPECT_EQ(defaultNumber("-32768"), -32768);
  for (const char* const layer : {"32768", "-32769", "1e300"}) {
    try {
      defaultNumber(layer);
      FAIL() << layer;
    } catch (const base::RunTimeError& error) {
      EXPECT_EQ(error.fault(), base::Fault::BadLayerNumber);
      EXPECT_EQ(error.subject(), layer);
    }
  }
}

TEST(LayerNumber, ThatEagleDoesNotHaveIsNotWritten) {
  const std::string file =
      "[1]\nlayername=A\nlayernr=-20\n[2]\nlayername=B\nlayernr=300\n[3]\nlayername=C\n"
      "layernr=0\n[4]\nlayername=D\nlayernr=none\n[5]\nlayername=A\nlayernr=5\n[6]\n"
      "layername=F\nlayernr=40000\n";
  const LayerTable table = tableOf(file);
  LayerAssignment layers(table, "20", base::Encoding::Windows1252);
  std::vector<int> numbers;
  dxf::LayerUse layer;
  for (const char* const name : {"A", "B", "C", "D", "E", "F"}) {
    layer.name = name;
    numbers.push_back(layers.layerNumber(layer));
    ++layer.number;
  }
  EXPECT_EQ(numbers, (std::vector<int>{999, 999, 999, 0, 20, 999}));
  EXPECT_EQ(layers.lookupLayer("A"), "-20");  // for the report
}

TEST(LayerNumber, RoundsAnAssignedFraction) {
  const LayerTable table = tableOf("[1]\nlayername=A\nlayernr=16.7\n");
  LayerAssignment layers(table, "20", base::Encoding::Windows1252);
  dxf::LayerUse layer;
  layer.name = "A";
  EXPECT_EQ(layers.layerNumber(layer), 17);
  EXPECT_EQ(layers.layerNumber(layer), 17);  // remembered
  EXPECT_EQ(layers.lookupLayer("A"), "16.7");
}

}  // namespace
}  // namespace quillon::convert

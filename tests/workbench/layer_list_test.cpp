#include "workbench/layer_list.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace quillon::workbench {
namespace {

class LayerListTest : public ::testing::Test {
 protected:
  /// "NAME layer" for each.
  std::vector<std::string> assigned(const std::vector<std::string>& names) {
    std::vector<std::string> lines;
    for (const AssignedLayer& layer : assignedLayers(names, file, texts)) {
      lines.push_back(layer.name + ": " + layer.layer);
    }
    return lines;
  }
  using Lines = std::vector<std::string>;

  testing::TempFolder folder;
  std::string file = folder.file("a.lay");
  const texts::Texts texts{texts::kEnglish};
};

TEST_F(LayerListTest, LayersHaveTheirNames) {
  EXPECT_EQ(layerName(20, convert::kBoard, texts), "20 Dimension (B)");
  EXPECT_EQ(layerName(94, convert::kSymbol, texts), "94 Symbols (S)");
  EXPECT_EQ(layerName(300, convert::kBoard, texts), "300");
}

TEST_F(LayerListTest, WithoutAFileTheStandardLayerCounts) {
  EXPECT_EQ(assigned({"A", "B"}), (Lines{"A: ", "B: "}));
}

TEST_F(LayerListTest, AnAssignmentMakesTheFile) {
  EXPECT_TRUE(assignLayer(file, "OUTLINE", "20 Dimension (B)"));
  EXPECT_EQ(assigned({"Outline", "B"}), (Lines{"Outline: 20 Dimension (B)", "B: "}));
}

TEST_F(LayerListTest, AnAssignmentKeepsTheOthers) {
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=46\n[2]\nlayername=B\nlayernr=21\n");
  EXPECT_TRUE(assignLayer(file, "b", "999 unconverted"));
  EXPECT_TRUE(assignLayer(file, "C", "1 Top (B)"));
  EXPECT_EQ(assigned({"A", "B", "C"}),
            (Lines{"A: 46 Milling (B)", "B: 999 unconverted", "C: 1  Top (B)"}));
}

TEST_F(LayerListTest, AnAssignmentCanBeTakenAway) {
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=46\n[2]\nlayername=B\nlayernr=21\n");
  EXPECT_TRUE(assignLayer(file, "A", ""));
  EXPECT_EQ(assigned({"A", "B"}), (Lines{"A: ", "B: 21 tPlace (B)"}));
}

TEST_F(LayerListTest, AFileIsChangedWhateverTheSpellingOfItsPath) {
  std::filesystem::create_directory(folder.path() / "Work");
  for (const char* const spelling : {"work\\lid.lay", "Work/LID.LAY", "WORK/lid.lay"}) {
    file = folder.write("Work/Lid.lay",
                        "[1]\nlayername=A\nlayernr=46\n[2]\nlayername=B\nlayernr=21\n");
    EXPECT_TRUE(assignLayer(folder.file("") + spelling, "C", "20 Dimension (B)"));
    EXPECT_TRUE(setAreas(folder.file("") + spelling, "B", true));
    EXPECT_EQ(assigned({"A", "B", "C"}),
              (Lines{"A: 46 Milling (B)", "B: 21 tPlace (B)", "C: 20 Dimension (B)"}))
        << spelling;
    EXPECT_TRUE(assignedLayers({"B"}, file, texts)[0].areas) << spelling;
    const std::filesystem::directory_iterator files(folder.path() / "Work");
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << spelling;
  }
}

TEST_F(LayerListTest, ClosedPolylinesOfALayerBecomeAreasOrLines) {
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=46\n[2]\nlayername=B\nlayernr=21\n");
  EXPECT_TRUE(setAreas(file, "b", true));
  EXPECT_TRUE(assignLayer(file, "B", "22 bPlace (B)"));
  const std::vector<AssignedLayer> layers = assignedLayers({"A", "B", "C"}, file, texts);
  EXPECT_FALSE(layers[0].areas);
  EXPECT_TRUE(layers[1].areas);
  EXPECT_FALSE(layers[2].areas);
  EXPECT_TRUE(setAreas(file, "B", false));
  EXPECT_FALSE(assignedLayers({"B"}, file, texts)[0].areas);
  EXPECT_EQ(assigned({"A", "B"}), (Lines{"A: 46 Milling (B)", "B: 22 bPlace (B)"}));
}

TEST_F(LayerListTest, AFileThatCannotBeSavedAsItIsStays) {
  const std::string text = "[1]\nlayername=A\nlayernr=500\n";
  folder.write("a.lay", text);
  EXPECT_FALSE(assignLayer(file, "B", "20 Dimension (B)"));
  EXPECT_FALSE(setAreas(file, "A", true));
  EXPECT_EQ(folder.read("a.lay"), text);
}

}  // namespace
}  // namespace quillon::workbench

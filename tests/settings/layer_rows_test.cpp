#include "settings/layer_rows.h"

#include <gtest/gtest.h>

namespace quillon::settings {
namespace {

class LayerRowsTest : public ::testing::Test {
 protected:
  LayerRows rows{texts::Texts(texts::kEnglish)};
};

TEST_F(LayerRowsTest, ShowEntriesAtThePlaceOfTheirNumber) {
  rows.load({{"a", "1"}, {"b", "49"}, {"c", "53"}, {"d", "94"}, {"e", "255"}, {"f", "999"}});
  EXPECT_EQ(rows.row(0).layer, "1  Top (B)");
  EXPECT_EQ(rows.row(1).layer, "49 Reference (B)");
  EXPECT_EQ(rows.row(2).layer, "53 Userdefined");
  EXPECT_EQ(rows.row(3).layer, "94 Symbols (S)");
  EXPECT_EQ(rows.row(4).layer, "255 Userdefined");
  EXPECT_EQ(rows.row(5).layer, "999 unconverted");
}

TEST_F(LayerRowsTest, Show50To52AsTheirNeighbours) {
  rows.load({{"a", "50"}, {"b", "51"}, {"c", "52"}});
  EXPECT_EQ(rows.row(0).layer, "51 tDocu (B)");
  EXPECT_EQ(rows.row(1).layer, "52 bDocu (B)");
  EXPECT_EQ(rows.row(2).layer, " Nutzerdefiniert");
}

TEST_F(LayerRowsTest, KeepTheNumbersOfTheFileUntilTheyAreEdited) {
  rows.load({{"a", "50"}, {"b", "51"}, {"c", "52"}});
  rows.setLayer(0, "20");
  EXPECT_EQ(rows.rows()[0].layer, "20 Dimension (B)");
  EXPECT_EQ(rows.rows()[1].layer, "51");
  EXPECT_EQ(rows.rows()[2].layer, "52");
}

TEST_F(LayerRowsTest, KeepWhetherClosedPolylinesBecomeAreasUntilTheyAreCleared) {
  rows.load({{"a", "21", {}, true}, {"b", "21", {}, true}, {"c", "21"}});
  rows.setLayer(0, "22");
  rows.clearRow(1);
  rows.setName(1, "d");
  EXPECT_TRUE(rows.rows()[0].areas);
  EXPECT_FALSE(rows.rows()[1].areas);
  EXPECT_FALSE(rows.rows()[2].areas);
}

TEST_F(LayerRowsTest, ARowWithAnotherNameNoLongerMakesAreas) {
  rows.load({{"Outline", "20", {}, true}, {"b", "21", {}, true}, {"c", "21", {}, true}});
  rows.setName(0, "OUTLINE");
  rows.setName(1, "d");
  rows.setName(2, "");
  rows.take({"e"});
  EXPECT_TRUE(rows.rows()[0].areas);  // the same layer
  EXPECT_FALSE(rows.rows()[1].areas);
  EXPECT_EQ(rows.rows()[2].name, "e");
  EXPECT_FALSE(rows.rows()[2].areas);
}

TEST_F(LayerRowsTest, UndoMakesAreasAgain) {
  rows.load({{"a", "21", {}, true}});
  rows.beginChange();
  rows.setName(0, "b");
  rows.setName(0, "a");
  EXPECT_TRUE(rows.undo());
  EXPECT_TRUE(rows.rows()[0].areas);
}

TEST_F(LayerRowsTest, ShowOtherNumbersAsTheyAre) {
  rows.load({{"a", "0"}, {"b", "256"}, {"c", "16.7"}, {"d", "-3"}});
  EXPECT_EQ(rows.row(0).layer, "0");
  EXPECT_EQ(rows.row(1).layer, "256");
  EXPECT_EQ(rows.row(2).layer, "16.7");
  EXPECT_EQ(rows.row(3).layer, "-3");
}

TEST_F(LayerRowsTest, HaveRoomFor490AssignmentsAndCountTheOthers) {
  std::vector<convert::LayerRow> many;
  for (int i = 0; i < 600; ++i) many.push_back({"L" + std::to_string(i), "20"});
  rows.load(many);
  EXPECT_EQ(rows.row(489).name, "L489");
  EXPECT_EQ(rows.leftOut(), 110U);
  EXPECT_FALSE(rows.modified());
  rows.clear();
  EXPECT_EQ(rows.leftOut(), 0U);
}

TEST_F(LayerRowsTest, TakeEachNameOnceIntoTheFirstFreeRows) {
  rows.load({{"b", "1"}});
  rows.setName(2, "x");
  rows.take({"a", "B", "c", "a"});
  EXPECT_EQ(rows.row(0).name, "b");
  EXPECT_EQ(rows.row(1).name, "a");
  EXPECT_EQ(rows.row(2).name, "x");
  EXPECT_EQ(rows.row(3).name, "c");
  EXPECT_EQ(rows.row(4).name, "");
  EXPECT_TRUE(rows.modified());
}

TEST_F(LayerRowsTest, TakeNoMoreNamesThanThereAreRows) {
  std::vector<std::string> names;
  for (int i = 0; i < 5000; ++i) names.push_back("L" + std::to_string(i));
  rows.take(names);
  EXPECT_EQ(rows.row(489).name, "L489");
  EXPECT_EQ(rows.assignedNames().size(), 490U);
}

TEST_F(LayerRowsTest, ATypedNumberBecomesItsEntry) {
  rows.setLayer(0, "20");
  EXPECT_EQ(rows.row(0).layer, "20 Dimension (B)");
  rows.setLayer(0, "999");
  EXPECT_EQ(rows.row(0).layer, "999 unconverted");
  rows.setLayer(0, "50");
  EXPECT_EQ(rows.row(0).layer, "50");
  rows.setLayer(0, "0");
  EXPECT_EQ(rows.row(0).layer, "0");
}

TEST_F(LayerRowsTest, TakeALayerThatIsAnEntryOrStartsWithASeparateNumber) {
  rows.setLayer(0, "20");
  for (const char* text : {"2o0", "x", "20x", "a20", "1.2.3", "-", ".", "٣"}) {
    EXPECT_FALSE(rows.setLayer(0, text)) << text;
    EXPECT_EQ(rows.row(0).layer, "20 Dimension (B)") << text;
  }
  EXPECT_TRUE(rows.setLayer(0, " Nutzerdefiniert"));
  EXPECT_EQ(rows.row(0).layer, " Nutzerdefiniert");
  EXPECT_TRUE(rows.setLayer(0, "100 Nutzerdefiniert"));
  EXPECT_EQ(rows.row(0).layer, "100 Userdefined");
  EXPECT_TRUE(rows.setLayer(0, "16.7"));
  EXPECT_EQ(rows.row(0).layer, "16.7");
  EXPECT_TRUE(rows.setLayer(0, "300"));
  EXPECT_EQ(rows.row(0).layer, "300");
  EXPECT_TRUE(rows.setLayer(0, ""));
  EXPECT_EQ(rows.row(0).layer, "");
}

TEST_F(LayerRowsTest, KeepALayerOfTheFileThatIsEnteredUnchanged) {
  rows.load({{"a", "-3"}});
  EXPECT_TRUE(rows.setLayer(0, "-3"));
  EXPECT_FALSE(rows.modified());
}

TEST_F(LayerRowsTest, NamesAreDuplicatesInAnyCase) {
  rows.setName(0, "Outline");
  rows.setName(7, "OUTLINE");
  EXPECT_TRUE(rows.isDuplicate(7));
  EXPECT_TRUE(rows.isDuplicate(0));
  rows.setName(7, "Out line");
  EXPECT_FALSE(rows.isDuplicate(7));
  EXPECT_FALSE(rows.isDuplicate(1));
}

TEST_F(LayerRowsTest, OnlyARealChangeModifies) {
  rows.load({{"a", "20"}});
  rows.setName(0, "a");
  rows.setLayer(0, "20 Dimension (B)");
  EXPECT_FALSE(rows.modified());
  rows.setLayer(0, "21");
  EXPECT_TRUE(rows.modified());
  rows.setSaved();
  EXPECT_FALSE(rows.modified());
}

TEST_F(LayerRowsTest, UndoGoesBackChangeByChange) {
  rows.beginChange();
  rows.setName(0, "a");
  rows.beginChange();
  rows.setName(0, "b");
  rows.beginChange();  // changes nothing
  EXPECT_TRUE(rows.undo());
  EXPECT_EQ(rows.row(0).name, "a");
  EXPECT_TRUE(rows.undo());
  EXPECT_EQ(rows.row(0).name, "");
  EXPECT_FALSE(rows.undo());
}

}  // namespace
}  // namespace quillon::settings

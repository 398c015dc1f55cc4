#include "texts/layer_lists.h"

#include <gtest/gtest.h>

namespace quillon::texts {
namespace {

const Texts inGerman(kGerman);
const Texts inEnglish(kEnglish);

TEST(BoardLayers, BeginWithTheNamedLayers) {
  const auto list = boardLayers(inEnglish);
  EXPECT_EQ(list[0], "1  Top (B)");
  EXPECT_EQ(list[9], "10 Route10 (B)");
  EXPECT_EQ(list[15], "16 Bottom (B)");
  EXPECT_EQ(list[48], "49 Reference (B)");
  EXPECT_EQ(list[49], "51 tDocu (B)");  // 50 is missing
  EXPECT_EQ(list[50], "52 bDocu (B)");
}

TEST(BoardLayers, Choose20DimensionFirst) {
  EXPECT_EQ(boardLayers(inGerman)[kFirstBoardChoice], "20 Dimension (B)");
}

TEST(BoardLayers, HaveTheGermanSuffixAsTheir52ndEntryInEitherLanguage) {
  EXPECT_EQ(boardLayers(inEnglish)[51], " Nutzerdefiniert");
  EXPECT_EQ(boardLayers(inGerman)[51], " Nutzerdefiniert");
}

TEST(BoardLayers, GoOnWithFreeLayersWithoutThoseOfSchematics) {
  const auto list = boardLayers(inEnglish);
  EXPECT_EQ(list[52], "53 Userdefined");
  EXPECT_EQ(boardLayers(inGerman)[52], "53 Nutzerdefiniert");
  EXPECT_EQ(list[89], "90 Userdefined");
  EXPECT_EQ(list[90], "97 Userdefined");
  EXPECT_EQ(list[248], "255 Userdefined");
}

TEST(BoardLayers, EndWithTheLayerThatIsNotConverted) {
  EXPECT_EQ(boardLayers(inEnglish).back(), "999 unconverted");
  EXPECT_EQ(boardLayers(inGerman).back(), "999 nicht konv.");
  EXPECT_EQ(boardLayers(inEnglish).size(), 250U);
}

TEST(SchematicLayers, PutTheNamedLayersBetweenTheFreeOnes) {
  const auto list = schematicLayers(inEnglish);
  EXPECT_EQ(list.front(), "53 Userdefined");
  EXPECT_EQ(list[37], "90 Userdefined");
  EXPECT_EQ(list[38], "91 Nets (S)");
  EXPECT_EQ(list[43], "96 Values (S)");
  EXPECT_EQ(list[44], "97 Userdefined");
  EXPECT_EQ(list.back(), "255 Userdefined");
  EXPECT_EQ(list.size(), 203U);
}

TEST(SchematicLayers, Choose94SymbolsFirst) {
  EXPECT_EQ(schematicLayers(inGerman)[kFirstSchematicChoice], "94 Symbols (S)");
}

TEST(EditorLayers, HoldEveryLayerAtItsNumberMinusOneFrom53On) {
  const auto list = editorLayers(inEnglish);
  EXPECT_EQ(list[0], "1  Top (B)");
  EXPECT_EQ(list[49], "51 tDocu (B)");
  EXPECT_EQ(list[51], " Nutzerdefiniert");
  EXPECT_EQ(list[52], "53 Userdefined");
  EXPECT_EQ(list[90], "91 Nets (S)");
  EXPECT_EQ(list[96], "97 Userdefined");
  EXPECT_EQ(list[254], "255 Userdefined");
  EXPECT_EQ(list.back(), "999 unconverted");
  EXPECT_EQ(list.size(), 256U);
}

}  // namespace
}  // namespace quillon::texts

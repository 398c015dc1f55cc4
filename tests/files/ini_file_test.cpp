#include "files/ini_file.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace quillon::files {
namespace {

using testing::TempFolder;

std::string valueIn(std::string_view bytes, std::string_view section = "1",
                    std::string_view key = "layername") {
  return IniFile(bytes).value(section, key);
}

TEST(IniFile, FindsTheValueOfAKeyInItsSection) {
  const IniFile file("[1]\r\nlayername=OUTLINE\r\nlayernr=20\r\n[2]\r\nlayername=holes\r\n");
  EXPECT_EQ(file.value("1", "layername"), "OUTLINE");
  EXPECT_EQ(file.value("1", "layernr"), "20");
  EXPECT_EQ(file.value("2", "layername"), "holes");
}

TEST(IniFile, GivesNothingForAMissingSectionOrKey) {
  EXPECT_EQ(valueIn("[1]\nlayername=A\n", "2"), "");
  EXPECT_EQ(valueIn("[1]\nlayername=A\n", "1", "layernr"), "");
  EXPECT_EQ(valueIn(""), "");
}

TEST(IniFile, FindsSectionsAndKeysWithoutRegardToCase) {
  EXPECT_EQ(valueIn("[DxF]\nLayerName=A\n", "dXf", "lAYERnAME"), "A");
}

TEST(IniFile, TrimsBlanksAroundNamesAndValues) {
  EXPECT_EQ(valueIn("  [1]  \n  layername  =   OUT LINE   \n"), "OUT LINE");
  EXPECT_EQ(valueIn("[1]\n\tlayername\t=\tA\t\n"), "A");
}

TEST(IniFile, StripsOnePairOfEnclosingQuotes) {
  EXPECT_EQ(valueIn("[1]\nlayername=\"A\"\n"), "A");
  EXPECT_EQ(valueIn("[1]\nlayername='A'\n"), "A");
  EXPECT_EQ(valueIn("[1]\nlayername=\"\"A\"\"\n"), "\"A\"");
  EXPECT_EQ(valueIn("[1]\nlayername=\"'A'\"\n"), "'A'");
  EXPECT_EQ(valueIn("[1]\nlayername=\"\"\n"), "");
}

TEST(IniFile, KeepsBlanksInsideQuotes) { EXPECT_EQ(valueIn("[1]\nlayername= \" A \" \n"), " A "); }

TEST(IniFile, KeepsQuotesThatDoNotEncloseTheValue) {
  EXPECT_EQ(valueIn("[1]\nlayername=\"A\n"), "\"A");
  EXPECT_EQ(valueIn("[1]\nlayername=A\"\n"), "A\"");
  EXPECT_EQ(valueIn("[1]\nlayername=\"A'\n"), "\"A'");
  EXPECT_EQ(valueIn("[1]\nlayername=\"\n"), "\"");
}

TEST(IniFile, ReturnsAtMost254Characters) {
  const std::string start = "[1]\nlayername=";
  EXPECT_EQ(valueIn(start + std::string(254, 'x') + "\n"), std::string(254, 'x'));
  EXPECT_EQ(valueIn(start + std::string(254, 'x') + "yz\n"), std::string(254, 'x'));
}

TEST(IniFile, TakesTheFirstOfSeveralKeysAndSections) {
  EXPECT_EQ(valueIn("[1]\nlayername=A\nlayername=B\n"), "A");
  EXPECT_EQ(valueIn("[1]\nlayername=A\n[1]\nlayername=B\n"), "A");
  EXPECT_EQ(valueIn("[1]\nlayernr=20\n[1]\nlayername=B\n"), "");
  EXPECT_EQ(valueIn("[a]\nlayername=A\n[2]\n[A]\nlayername=B\n", "a"), "A");
}

TEST(IniFile, AnEmptyFirstValueStillWins) {
  EXPECT_EQ(valueIn("[1]\nlayername=\nlayername=B\n"), "");
}

TEST(IniFile, IgnoresCommentsBlankLinesAndLinesWithoutAnEqualsSign) {
  EXPECT_EQ(valueIn("; layername=X\n[1]\n;layername=Y\n\njunk\nlayername=A\n"), "A");
}

TEST(IniFile, IgnoresKeysInFrontOfTheFirstSection) {
  EXPECT_EQ(valueIn("layername=X\n[1]\nlayernr=3\n"), "");
}

TEST(IniFile, CutsAtTheFirstEqualsSignOnly) {
  EXPECT_EQ(valueIn("[1]\nlayername=A=B\n"), "A=B");
  EXPECT_EQ(valueIn("[1]\nlayername==\n"), "=");
}

TEST(IniFile, ReadsEveryKindOfLineEnd) {
  EXPECT_EQ(valueIn("[1]\r\nlayernr=7\r\nlayername=A"), "A");
  EXPECT_EQ(valueIn("[1]\nlayernr=7\nlayername=A"), "A");
  EXPECT_EQ(valueIn("[1]\rlayernr=7\rlayername=A"), "A");
}

TEST(IniFile, KeepsBytesBeyondAscii) {
  EXPECT_EQ(valueIn("[1]\nlayername=T\xFCren\n"), "T\xFCren");
}

TEST(IniFile, ReadsAMissingFileAsEmpty) {
  const TempFolder folder;
  EXPECT_EQ(IniFile::read(folder.file("none.lay")).value("1", "layername"), "");
  EXPECT_EQ(IniFile::read(folder.path().string()).value("1", "layername"), "");
}

TEST(IniFile, ReadsAFileOfTheDisk) {
  const TempFolder folder;
  const std::string path = folder.write("a.lay", "[1]\r\nlayername=OUTLINE\r\n");
  EXPECT_EQ(IniFile::read(path).value("1", "layername"), "OUTLINE");
}

}  // namespace
}  // namespace quillon::files

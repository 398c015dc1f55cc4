#include "convert/layer_file.h"

#include <gtest/gtest.h>

#include "base/read_error.h"
#include "convert/layer_table.h"
#include "files/output_file.h"
#include "full_disk.h"
#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::convert {

bool operator==(const LayerRow& a, const LayerRow& b) {
  return a.name == b.name && a.layer == b.layer && a.areas == b.areas;
}
void PrintTo(const LayerRow& row, std::ostream* out) { *out << row.name << " = " << row.layer; }

namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class LayerFileTest : public ::testing::Test {
 protected:
  using Rows = std::vector<LayerRow>;

  Rows readBack(std::string_view bytes) const {
    return readLayerRows(folder.write("in.lay", bytes));
  }
  std::string saved(const Rows& rows) const {
    saveLayerRows(path, rows);
    return folder.read("a.lay");
  }

  TempFolder folder;
  std::string path = folder.file("a.lay");
};

TEST_F(LayerFileTest, SavesOneSectionForEachRow) {
  EXPECT_EQ(saved({{"OUTLINE", "20"}, {"holes", "45"}}),
            "[1]\r\nlayername=OUTLINE\r\nlayernr=20\r\n[2]\r\nlayername=holes\r\nlayernr=45\r\n");
}

TEST_F(LayerFileTest, SavesWhereClosedPolylinesBecomeAreas) {
  const Rows rows = {{"LOGO", "21", "", true}, {"OUTLINE", "20"}};
  EXPECT_EQ(saved(rows),
            "[1]\r\nlayername=LOGO\r\nlayernr=21\r\nareas=1\r\n"
            "[2]\r\nlayername=OUTLINE\r\nlayernr=20\r\n");
  EXPECT_EQ(readLayerRows(path), rows);
  EXPECT_FALSE(readBack("[1]\nlayername=LOGO\nlayernr=21\nareas=0\n")[0].areas);
}

TEST_F(LayerFileTest, ReadsBackWhatItSaved) {
  const Rows rows = {
      {"OUTLINE", "20"}, {"Umri\xC3\x9F", "21"}, {"Out line", "999"}, {"\"x\"", "1"},
      {"'y'", "255"},    {"a=b;c", "16"},        {"[z]", "17"},       {"\xE2\x82\xAC 100", "18"},
      {"it's", "19"}};
  saveLayerRows(path, rows);
  EXPECT_EQ(readLayerRows(path), rows);
}

TEST_F(LayerFileTest, SavesTheNumberOfAListEntry) {
  EXPECT_EQ(saved({{"a", "16 Bottom (B)"}, {"b", "999 unconverted"}, {"c", "16.7"}}),
            "[1]\r\nlayername=a\r\nlayernr=16\r\n[2]\r\nlayername=b\r\nlayernr=999\r\n"
            "[3]\r\nlayername=c\r\nlayernr=16.7\r\n");
}

TEST_F(LayerFileTest, LeavesOutRowsWithoutANameOrWithAnotherLayerAndNumbersWithoutGaps) {
  EXPECT_EQ(saved({{"", "20"},
                   {"  ", "20"},
                   {"a", "0"},
                   {"b", "256"},
                   {"c", "-1"},
                   {"d", ""},
                   {"e", "1000"},
                   {"f", "255"},
                   {"g", " Userdefined"},
                   {"h", "1"}}),
            "[1]\r\nlayername=f\r\nlayernr=255\r\n[2]\r\nlayername=h\r\nlayernr=1\r\n");
}

TEST_F(LayerFileTest, ReplacesTheOldAssignmentsAndKeepsOtherSections) {
  folder.write("a.lay", "; of the family\n[1]\nlayername=A\nlayernr=1\n[notes]\nby=me\n[7]\nx=y\n");
  EXPECT_EQ(saved({{"B", "2"}}),
            "; of the family\r\n[notes]\r\nby=me\r\n[1]\r\nlayername=B\r\nlayernr=2\r\n");
}

TEST_F(LayerFileTest, IsWindows1252AndHasAQuestionMarkForOtherCharacters) {
  EXPECT_EQ(saved({{"Umri\xC3\x9F", "20"}, {"\xE5\x9B\xBD", "21"}}),
            "[1]\r\nlayername=Umri\xDF\r\nlayernr=20\r\n[2]\r\nlayername=?\r\nlayernr=21\r\n");
}

TEST_F(LayerFileTest, SavingNothingLeavesAnEmptyFile) { EXPECT_EQ(saved({}), ""); }

TEST_F(LayerFileTest, LeavesNoTemporaryFile) {
  saveLayerRows(path, {{"A", "1"}});
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(LayerFileTest, AMissingFolderIsAnErrorAndIsNotMade) {
  try {
    saveLayerRows(folder.file("new/b.lay"), {{"A", "1"}});
    ADD_FAILURE() << "no error";
  } catch (const files::WriteError& error) {
    EXPECT_EQ(error.reason(), ENOENT);
  }
  EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(LayerFileTest, AFileInAFolderThatCannotBeWrittenStaysAsItWas) {
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=1\n");
  fs::permissions(path, fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const testing::Unprivileged user;
    EXPECT_THROW(saveLayerRows(path, {{"B", "2"}}), files::WriteError);
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.lay"), "[1]\nlayername=A\nlayernr=1\n");
}

TEST_F(LayerFileTest, NamesThatCannotBeSeenDoNotEndTheFile) {
  using std::string_literals::operator""s;
  const Rows rows = {{"\t", "20"}, {" \t ", "20"}, {"\0\0"s, "20"}, {"\tA\t", "21"}, {"B", "22"}};
  saveLayerRows(path, rows);
  EXPECT_EQ(readLayerRows(path), (Rows{{"\tA\t", "21"}, {"B", "22"}}));
}

TEST_F(LayerFileTest, AFullDiskLeavesTheFileAsItWas) {
  const std::string before = saved({{"OUTLINE", "20"}});
  {
    const testing::FullDisk disk(1000);
    EXPECT_THROW(saveLayerRows(path, {{std::string(2000, 'x'), "21"}}), files::WriteError);
  }
  EXPECT_EQ(folder.read("a.lay"), before);
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(LayerFileTest, AFileThatCannotBeReadIsNotReplaced) {
  fs::create_directory(folder.path() / "b.lay");
  EXPECT_THROW(saveLayerRows(folder.file("b.lay"), {{"B", "2"}}), base::ReadError);
}

TEST_F(LayerFileTest, AFileOfAnotherKindIsNotWritten) {
  using std::string_literals::operator""s;
  const std::string dxf = "999\nmade by hand\n  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n";
  const std::vector<std::pair<std::string, LayerFileKind>> files = {
      {dxf, LayerFileKind::Dxf},
      {"AutoCAD Binary DXF\r\n\x1A\0"s, LayerFileKind::BinaryDxf},
      {"AC1015\0\0"s, LayerFileKind::Dwg},
      {"\x89PNG\r\n\0\0"s, LayerFileKind::Binary},
      {"Set Optimizing off;\r\nLayer 20;\r\n", LayerFileKind::OtherText},
      {"no line end", LayerFileKind::OtherText},
      {"[Start]\nSet Undo_Log off;\nEndBlock\n", LayerFileKind::OtherText}};
  for (const auto& [bytes, kind] : files) {
    folder.write("a.lay", bytes);
    try {
      saveLayerRows(path, {{"A", "1"}});
      ADD_FAILURE() << bytes;
    } catch (const NotALayerFile& error) {
      EXPECT_EQ(error.kind(), kind) << bytes;
    }
    EXPECT_EQ(folder.read("a.lay"), bytes);
    EXPECT_EQ(layerFileKind(path, bytes), kind) << bytes;
    EXPECT_EQ(folder.entries(), 1U);
  }
}

TEST_F(LayerFileTest, AFileWithSettingsOfSomethingElseIsNotWritten) {
  const std::string settings = "[Settings]\r\nlayer=20\r\n";
  folder.write("program.ini", settings);
  EXPECT_THROW(saveLayerRows(folder.file("program.ini"), {{"A", "1"}}), NotALayerFile);
  EXPECT_EQ(folder.read("program.ini"), settings);
}

TEST_F(LayerFileTest, FilesThatMayHoldAssignmentsAreWritten) {
  const std::string row = "[1]\r\nlayername=A\r\nlayernr=1\r\n";
  const std::vector<std::pair<const char*, const char*>> files = {
      {"", ""},
      {"\xEF\xBB\xBF \r\n\n", " \r\n\r\n"},
      {"; mine\n[notes]\nby=me\n", "; mine\r\n[notes]\r\nby=me\r\n"},
      {"My layers\n[3]\nLayerName=x\n", "My layers\r\n"}};
  for (const auto& [bytes, kept] : files) {
    folder.write("a.lay", bytes);
    EXPECT_EQ(saved({{"A", "1"}}), kept + row) << bytes;
  }
  folder.write("mine.txt", row);
  saveLayerRows(folder.file("mine.txt"), {{"B", "2"}});
  EXPECT_EQ(folder.read("mine.txt"), "[1]\r\nlayername=B\r\nlayernr=2\r\n");
}

TEST_F(LayerFileTest, AGapInTheNumberingEndsTheFile) {
  EXPECT_EQ(readBack("[1]\nlayername=a\nlayernr=20\n[3]\nlayername=b\nlayernr=21\n"),
            (Rows{{"a", "20"}}));
}

TEST_F(LayerFileTest, ReadsANumberAsDecimalText) {
  EXPECT_EQ(readBack("[1]\nlayername=a\nlayernr=16.7\n[2]\nlayername=b\nlayernr=abc\n"
                     "[3]\nlayername=c\nlayernr=020x\n[4]\nlayername=d\n"),
            (Rows{{"a", "16.7"}, {"b", "0"}, {"c", "20"}, {"d", "0"}}));
}

TEST_F(LayerFileTest, KeepsTheSpellingOfNamesAndTrimsThem) {
  EXPECT_EQ(readBack("[1]\nlayername=  Out line \nlayernr=1\n"), (Rows{{"Out line", "1"}}));
}

TEST_F(LayerFileTest, GivesNoRowsWithoutAFile) {
  EXPECT_TRUE(readLayerRows("").empty());
  EXPECT_TRUE(readLayerRows(folder.file("none.lay")).empty());
}

TEST_F(LayerFileTest, WhatIsSavedAssignsLayersInAConversion) {
  saveLayerRows(path, {{"Outline", "20 Dimension (B)"}, {"OUTLINE", "21"}, {"hidden", "999"}});
  const LayerTable table = layerTableOf(readLayerRows(path));
  ASSERT_NE(table.find("OUTLINE"), nullptr);
  EXPECT_EQ(*table.find("OUTLINE"), "20");
  ASSERT_NE(table.find("HIDDEN"), nullptr);
  EXPECT_EQ(*table.find("HIDDEN"), "999");
}

TEST(EagleLayer, IsFrom1To255Or999) {
  for (const char* const layer : {"1", "255", "999", " 20 Dimension (B)", "0.6", "255.4", "20,5"}) {
    EXPECT_TRUE(isEagleLayer(layer)) << layer;
  }
  for (const char* const other :
       {"0", "-20", "256", "300", "998", "1000", "40000", "1e300", "", "x", "0.5"}) {
    EXPECT_FALSE(isEagleLayer(other)) << other;
  }
}

TEST(EagleLayer, MayBeFollowedByANameAfterABlank) {
  for (const char* const whole : {"20", "20 Dimension (B)", "20\tDimension", " 20 "}) {
    EXPECT_FALSE(isCutLayer(whole)) << whole;
  }
  for (const char* const cut : {"20,5", "20Dimension", "none", "", " Userdefined"}) {
    EXPECT_TRUE(isCutLayer(cut)) << cut;
  }
}

}  // namespace
}  // namespace quillon::convert

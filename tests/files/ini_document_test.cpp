#include "files/ini_document.h"

#include <gtest/gtest.h>

namespace quillon::files {
namespace {

std::string afterSetting(std::string_view before, std::string_view section, std::string_view key,
                         std::string_view value) {
  IniDocument document(before);
  document.set(section, key, value);
  return document.text();
}

TEST(IniDocument, KeepsALineAsItIs) {
  EXPECT_EQ(IniDocument("a\r\n\r\n  ; b \r\n[c]\r\n").text(), "a\r\n\r\n  ; b \r\n[c]\r\n");
}

TEST(IniDocument, WritesEveryLineEndAsCrLf) {
  EXPECT_EQ(IniDocument("[a]\nb=1\rc=2\r\nd=3").text(), "[a]\r\nb=1\r\nc=2\r\nd=3\r\n");
}

TEST(IniDocument, BeginsAnEmptyFileWithTheSection) {
  EXPECT_EQ(afterSetting("", "dxf", "unit", "2"), "[dxf]\r\nunit=2\r\n");
}

TEST(IniDocument, ReplacesAValueInItsPlaceAndKeepsTheKeysSpelling) {
  EXPECT_EQ(afterSetting("[DXF]\r\n Unit = 1 \r\nscale=2\r\n", "dxf", "unit", "2"),
            "[DXF]\r\nUnit=2\r\nscale=2\r\n");
}

TEST(IniDocument, ReplacesTheFirstOfSeveralKeysInTheFirstOfSeveralSections) {
  EXPECT_EQ(afterSetting("[a]\r\nx=1\r\nx=2\r\n[a]\r\nx=3\r\n", "a", "x", "9"),
            "[a]\r\nx=9\r\nx=2\r\n[a]\r\nx=3\r\n");
}

TEST(IniDocument, AddsANewKeyAfterTheLastLineOfItsSection) {
  EXPECT_EQ(afterSetting("[a]\r\nx=1\r\n\r\n[b]\r\ny=2\r\n", "a", "z", "3"),
            "[a]\r\nx=1\r\nz=3\r\n\r\n[b]\r\ny=2\r\n");
  EXPECT_EQ(afterSetting("[a]\r\n[b]\r\n", "a", "z", "3"), "[a]\r\nz=3\r\n[b]\r\n");
}

TEST(IniDocument, AddsANewSectionAtTheEnd) {
  EXPECT_EQ(afterSetting("[a]\r\nx=1", "b", "y", "2"), "[a]\r\nx=1\r\n[b]\r\ny=2\r\n");
}

TEST(IniDocument, DoesNotTakeACommentedKeyForTheKey) {
  EXPECT_EQ(afterSetting("[a]\r\n;x=1\r\n", "a", "x", "2"), "[a]\r\n;x=1\r\nx=2\r\n");
}

TEST(IniDocument, KeepsCommentsAndUnknownLines) {
  EXPECT_EQ(afterSetting("; family settings\r\njunk\r\n[a]\r\n; why\r\nx=1\r\nodd line\r\n", "a",
                         "x", "2"),
            "; family settings\r\njunk\r\n[a]\r\n; why\r\nx=2\r\nodd line\r\n");
}

TEST(IniDocument, AValueCannotStartANewLine) {
  EXPECT_EQ(afterSetting("", "a", "x", "1\r\n[b]\ny=2"), "[a]\r\nx=1  [b] y=2\r\n");
  EXPECT_EQ(afterSetting("", "a", "x", std::string_view("1\0002", 3)), "[a]\r\nx=1 2\r\n");
}

TEST(IniDocument, DropsByteOrderMarks) {
  EXPECT_EQ(IniDocument("\xEF\xBB\xBF\xEF\xBB\xBF[a]\r\n").text(), "[a]\r\n");
  EXPECT_EQ(afterSetting("\xEF\xBB\xBF[a]\r\nx=1\r\n", "a", "x", "2"), "[a]\r\nx=2\r\n");
}

TEST(IniDocument, RemovesTheSectionsThatFitWithAllTheirLines) {
  IniDocument document("; top\r\n[A]\r\nx=1\r\n; in A\r\n[b]\r\ny=2\r\n[A]\r\nz=3\r\n");
  document.removeSections([](std::string_view name) { return name == "A"; });
  EXPECT_EQ(document.text(), "; top\r\n[b]\r\ny=2\r\n");
}

TEST(IniDocument, AppendsASectionEvenWhenThereIsOneOfThatName) {
  IniDocument document("[1]\r\n");
  document.append("1", {{"layername", "A"}, {"layernr", "20"}});
  EXPECT_EQ(document.text(), "[1]\r\n[1]\r\nlayername=A\r\nlayernr=20\r\n");
}

}  // namespace
}  // namespace quillon::files

#include "dxf/header.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::joinLines;
using testing::LineList;
using testing::ReadDrawing;

/// A drawing whose HEADER section has these lines.
std::string headerOf(LineList lines) {
  return joinLines({"  0", "SECTION", "  2", "HEADER"}) + joinLines(lines) +
         joinLines({"  0", "ENDSEC", "  0", "SECTION", "  2", "ENTITIES", "  0", "ENDSEC", "  0",
                    "SECTION", "  2", "OBJECTS", "  0", "ENDSEC", "  0", "EOF"});
}

struct VariableCase {
  std::string_view name;
  std::string_view code;
  std::string_view value;
  double expected;
};

void expectValues(double Drawing::*field, std::initializer_list<VariableCase> cases) {
  for (const auto& [name, code, value, expected] : cases) {
    const ReadDrawing read(headerOf({"  9", name, code, value}));
    EXPECT_EQ(read.drawing.*field, expected) << name << ' ' << code << ' ' << value;
  }
}

TEST(Header, KeepsThePresetsWithoutVariables) {
  for (const std::string& text : {headerOf({}), DxfBuilder().text(), std::string()}) {
    const ReadDrawing read(text);
    EXPECT_EQ(read.drawing.angDir, 0.0);
    EXPECT_EQ(read.drawing.fillMode, 1.0);
    EXPECT_EQ(read.drawing.ltScale, 98899999.0);
    EXPECT_EQ(read.drawing.pointSize, 98899999.0);
    EXPECT_EQ(read.drawing.encoding, base::Encoding::Windows1252);
  }
}

TEST(Header, SwitchesAreOnOnlyForGroup70WithOne) {
  expectValues(&Drawing::angDir, {{"$ANGDIR", " 70", "1", 1.0},
                                  {"$ANGDIR", " 70", "     1", 1.0},
                                  {"$ANGDIR", " 70", "1.0", 1.0},
                                  {"$ANGDIR", "70.0x", "\t1e0 on", 1.0},
                                  {"$ANGDIR", " 70", "0", 0.0},
                                  {"$ANGDIR", " 70", "2", 0.0},
                                  {"$ANGDIR", " 70", "", 0.0},
                                  {"$ANGDIR", " 40", "1", 0.0},
                                  {"$ANGDIR", "", "1", 0.0}});
  expectValues(&Drawing::fillMode, {{"$FILLMODE", " 70", "1", 1.0},
                                    {"$FILLMODE", " 70", "0", 0.0},
                                    {"$FILLMODE", " 70", "-1", 0.0},
                                    {"$FILLMODE", " 40", "1", 0.0}});
}

TEST(Header, LineTypeScaleOfZeroCountsAsOne) {
  expectValues(&Drawing::ltScale, {{"$LTSCALE", " 40", "2.5", 2.5},
                                   {"$LTSCALE", " 40", "  1e-2", 0.01},
                                   {"$LTSCALE", " 40", "-3", -3.0},
                                   {"$LTSCALE", " 40", "2,5", 2.0},
                                   {"$LTSCALE", " 40", "0", 1.0},
                                   {"$LTSCALE", " 40", "0.0", 1.0},
                                   {"$LTSCALE", " 40", "wide", 1.0},
                                   {"$LTSCALE", " 70", "2.5", 1.0}});
}

TEST(Header, PointSizeTakesOnlyPositiveValues) {
  expectValues(&Drawing::pointSize, {{"$PDSIZE", " 40", "0.75", 0.75},
                                     {"$PDSIZE", " 40", "0", kNotGiven},
                                     {"$PDSIZE", " 40", "-5", kNotGiven},
                                     {"$PDSIZE", " 70", "3", kNotGiven}});
  const ReadDrawing read(headerOf({"9", "$PDSIZE", "40", "2", "9", "$PDSIZE", "40", "-5"}));
  EXPECT_EQ(read.drawing.pointSize, 2.0);
}

TEST(Header, LastOfSeveralVariablesWins) {
  const ReadDrawing read(headerOf({"9", "$ANGDIR", "70", "1", "9", "$LTSCALE", "40", "2",  //
                                   "9", "$ANGDIR", "70", "0", "9", "$LTSCALE", "40", "3"}));
  EXPECT_EQ(read.drawing.angDir, 0.0);
  EXPECT_EQ(read.drawing.ltScale, 3.0);
}

TEST(Header, KnowsItsVariablesInAnyCaseButNotWithBlanks) {
  expectValues(&Drawing::ltScale, {{"$ltscale", " 40", "2", 2.0},
                                   {"$LtScale", " 40", "2", 2.0},
                                   {"$LTSCALE ", " 40", "2", kNotGiven},
                                   {" $LTSCALE", " 40", "2", kNotGiven},
                                   {"$LTSCALE\t", " 40", "2", kNotGiven},
                                   {"$LTSCALES", " 40", "2", kNotGiven},
                                   {"LTSCALE", " 40", "2", kNotGiven}});
}

TEST(Header, KnowsItsVariablesOnCodeLinesToo) {
  const ReadDrawing read(headerOf({"one line too many", "  9", "$LTSCALE", " 40", "2"}));
  EXPECT_EQ(read.drawing.ltScale, 2.0);
}

TEST(Header, TakesTheTwoLinesAfterAVariableWhateverTheyAre) {
  const ReadDrawing read(
      headerOf({"$ANGDIR", "$LTSCALE", " 40", "5", "$FILLMODE", "70", "ENDSEC",  //
                "$PDSIZE", "40", "4"}));
  EXPECT_EQ(read.drawing.ltScale, kNotGiven);
  EXPECT_EQ(read.drawing.fillMode, 0.0);
  EXPECT_EQ(read.drawing.pointSize, 4.0);
}

TEST(Header, EndsAtEndsecInAnyCaseButNotWithBlanks) {
  struct Case {
    std::string_view line;
    double expected;
  };
  for (const auto& [line, expected] :
       {Case{"ENDSEC", kNotGiven}, {"endsec", kNotGiven}, {" ENDSEC", 2.0}, {"ENDSEC ", 2.0}}) {
    const ReadDrawing read(headerOf({"  0", line, "  9", "$LTSCALE", " 40", "2"}));
    EXPECT_EQ(read.drawing.ltScale, expected) << '"' << line << '"';
  }
}

TEST(Header, EndsAtTheEndOfTheFile) {
  for (const std::initializer_list<std::string_view> tail :
       {std::initializer_list<std::string_view>{},
        {"9"},
        {"9", "$ANGDIR"},
        {"9", "$ANGDIR", "70"}}) {
    const std::string text =
        joinLines({"2", "HEADER", "9", "$LTSCALE", "40", "2"}) + joinLines(tail);
    EXPECT_EQ(ReadDrawing(text).drawing.ltScale, 2.0) << text;
  }
}

TEST(Header, OtherSectionsHoldNoVariables) {
  DxfBuilder dxf;
  dxf.header("$ORTHOMODE", 70, "0").layer("$PDSIZE", {{40, "3"}, {70, "0"}});
  dxf.entity("TEXT", {{1, "$LTSCALE"}, {40, "2"}, {8, "0"}});
  const ReadDrawing read(dxf.text());
  EXPECT_EQ(read.drawing.ltScale, kNotGiven);
  EXPECT_EQ(read.drawing.pointSize, kNotGiven);
}

struct VersionCase {
  std::string_view version;
  std::string_view comment;
  base::Encoding encoding;
};

TEST(Header, NewVersionsOfValidUtf8AreReadAsUtf8) {
  for (const auto& [version, comment, encoding] :
       {VersionCase{"AC1021", "Gr\xC3\xBCn", base::Encoding::Utf8},
        {"AC1032", "Gr\xC3\xBCn", base::Encoding::Utf8},
        {"AC1021", "plain", base::Encoding::Utf8},
        {"ac1021", "plain", base::Encoding::Utf8},
        {"AC1021  ", "plain", base::Encoding::Utf8},
        {"AC1021", "Gr\xFCn", base::Encoding::Windows1252},
        {"AC1018", "Gr\xC3\xBCn", base::Encoding::Windows1252},
        {"AC1009", "plain", base::Encoding::Windows1252},
        {"", "plain", base::Encoding::Windows1252}}) {
    DxfBuilder dxf;
    dxf.header("$ACADVER", 1, version);
    dxf.entity("TEXT", {{1, comment}, {8, "0"}});
    EXPECT_EQ(ReadDrawing(dxf.text()).drawing.encoding, encoding) << version << ' ' << comment;
  }
}

TEST(Header, LastVersionWins) {
  const ReadDrawing newer(
      headerOf({"9", "$ACADVER", "1", "AC1009", "9", "$ACADVER", "1", "AC1024"}));
  EXPECT_EQ(newer.drawing.encoding, base::Encoding::Utf8);
  const ReadDrawing older(
      headerOf({"9", "$ACADVER", "1", "AC1024", "9", "$ACADVER", "1", "AC1009"}));
  EXPECT_EQ(older.drawing.encoding, base::Encoding::Windows1252);
}

TEST(Header, VersionCountsOnlyInItsOwnGroupAndSection) {
  const ReadDrawing lastHasNone(
      headerOf({"9", "$ACADVER", "1", "AC1024", "9", "$ACADVER", "3", "AC1024"}));
  EXPECT_EQ(lastHasNone.drawing.encoding, base::Encoding::Windows1252);
  const ReadDrawing otherGroup(headerOf({"9", "$ACADVER", "3", "AC1024"}));
  EXPECT_EQ(otherGroup.drawing.encoding, base::Encoding::Windows1252);
  const ReadDrawing otherSection(
      joinLines({"0", "SECTION", "2", "ENTITIES", "9", "$ACADVER", "1", "AC1024", "0", "ENDSEC"}));
  EXPECT_EQ(otherSection.drawing.encoding, base::Encoding::Windows1252);
}

TEST(Header, EncodingDecidesOnTheCaseOfNames) {
  for (const auto& [version, name] :
       {std::pair<std::string_view, std::string_view>{"AC1021", "GRÜN"}, {"AC1018", "GRÃ¼N"}}) {
    DxfBuilder dxf;
    dxf.header("$ACADVER", 1, version).layer("grün");
    ReadDrawing read(dxf.text());
    ASSERT_EQ(read.drawing.layers.size(), 1U);
    EXPECT_EQ(base::toUtf8(read.drawing.layers[0].name, read.drawing.encoding), name);
  }
}

}  // namespace
}  // namespace quillon::dxf

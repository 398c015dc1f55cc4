// Texts of a drawing.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::drawingOf;
using testing::DxfBuilder;
using testing::expectPoints;
using testing::GroupList;
using testing::translate;

/// A text of height 10 at (1, 2).
GroupList textOf(std::string_view content, std::string_view angle = "0") {
  return {{10, "1"}, {20, "2"}, {40, "10"}, {50, angle}, {1, content}};
}

std::string translateText(std::string_view content, std::string_view angle = "0",
                          const Placement& placement = {}) {
  return translate(drawingOf("TEXT", textOf(content, angle)), placement);
}

/// The orientation word of a text.
std::string orientation(std::string_view angle, const Placement& placement = {}) {
  const std::string script = translateText("x", angle, placement);
  const std::size_t from = script.find("Text ") + 5;
  return script.substr(from, script.find(' ', from) - from);
}

TEST(TranslateText, WritesLayerSizeAndText) {
  EXPECT_EQ(translateText("ABC"),
            "Layer  7 ;\nChange Size 6.0000000;\nText R0 'ABC ' (1.0000000 2.0000000);\n");
}

TEST(TranslateText, WritesEveryKindOfTextAlike) {
  const std::string text = translateText("ABC", "90");
  EXPECT_EQ(countOf("Text R90 'ABC '", text), 1U);
  for (const std::string_view kind : {"MTEXT", "ATTRIB", "ATTDEF"}) {
    EXPECT_EQ(translate(drawingOf(kind, textOf("ABC", "90"))), text) << kind;
  }
}

TEST(TranslateText, DoesNotUseAlignmentDirectionOrSecondPoint) {
  const GroupList extras = {{11, "50"}, {21, "60"}, {72, "5"}, {73, "3"}, {71, "9"}, {41, "0.8"}};
  for (const std::string_view kind : {"TEXT", "MTEXT"}) {
    EXPECT_EQ(translate(drawingOf(kind, testing::joined(textOf("ABC"), extras))),
              translateText("ABC"))
        << kind;
  }
}

TEST(TranslateText, ScalesAndMovesItsPointButDoesNotTurnIt) {
  for (const std::string_view kind : {"TEXT", "MTEXT", "ATTRIB", "ATTDEF"}) {
    const std::string script =
        translate(drawingOf(kind, textOf("x")),
                  {.dx = 10, .dy = 20, .scaleX = 3, .scaleY = 4, .rotation = kPi / 2});
    expectPoints(script, {{13, 28}});
  }
}

TEST(TranslateText, MirrorsItsPoint) {
  for (const std::string_view kind : {"TEXT", "MTEXT", "ATTRIB", "ATTDEF"}) {
    const Placement placement{.dx = 10, .dy = 20, .scaleX = 3, .scaleY = 4};
    expectPoints(translate(drawingOf(kind, testing::joined(textOf("x"), {{230, "-1"}})), placement),
                 {{7, 28}});
    expectPoints(translate(drawingOf(kind, testing::joined(textOf("x"), {{220, "-1"}})), placement),
                 {{13, 12}});
  }
}

TEST(TranslateText, MultipliesItsHeightByTheSmallerScaleWithoutSign) {
  const auto size = [](double scaleX, double scaleY) {
    const std::string script = translateText("x", "0", {.scaleX = scaleX, .scaleY = scaleY});
    const std::size_t from = script.find("Size ") + 5;
    return script.substr(from, script.find(';', from) - from);
  };
  EXPECT_EQ(size(2, 3), "12.0000000");
  EXPECT_EQ(size(3, 2), "12.0000000");
  EXPECT_EQ(size(-2, 3), "12.0000000");
  EXPECT_EQ(size(5, -2), "12.0000000");
  EXPECT_EQ(size(-2, -3), "12.0000000");
  EXPECT_EQ(size(0, 5), "0.0000000");
}

TEST(TranslateText, AddsTheRadiansOfTheRotationToItsDegrees) {
  EXPECT_EQ(orientation("0"), "R0");
  EXPECT_EQ(orientation("0", {.rotation = kPi / 2}), "R0") << "a quarter turn adds 1.57 degrees";
  EXPECT_EQ(orientation("43.42", {.rotation = kPi / 2}), "R0");
  EXPECT_EQ(orientation("43.43", {.rotation = kPi / 2}), "R90");
  EXPECT_EQ(orientation("46", {.rotation = -kPi / 2}), "R0");
}

TEST(TranslateText, InABlockInsertedAtAQuarterTurnKeepsItsPointUnturned) {
  DxfBuilder dxf;
  dxf.beginBlock("LABEL").entity("TEXT", textOf("x", "44")).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "LABEL"}, {10, "100"}, {20, "200"}, {50, "90"}});
  EXPECT_EQ(translate(dxf),
            "Layer  7 ;\nChange Size 6.0000000;\nText R90 'x ' (101.0000000 202.0000000);\n");
}

TEST(TranslateText, DoublesEveryApostrophe) {
  EXPECT_EQ(countOf("Text R0 'it''s ' (", translateText("it's")), 1U);
  EXPECT_EQ(countOf("Text R0 ''''''' ' (", translateText("'''")), 1U);
  for (const std::string_view kind : {"MTEXT", "ATTRIB", "ATTDEF"}) {
    EXPECT_EQ(countOf("Text R0 'a''b ' (", translate(drawingOf(kind, textOf("a'b")))), 1U) << kind;
  }
}

TEST(TranslateText, LetsNoDrawingSlipACommandIntoTheScript) {
  EXPECT_EQ(countOf("'x''; Delete all; '' ' (", translateText("x'; Delete all; '")), 1U);
}

TEST(TranslateText, RemovesFormatCodesAndBraces) {
  EXPECT_EQ(countOf("Text R0 'Hello '", translateText("{\\fArial|b0;Hello}")), 1U);
}

TEST(TranslateText, WritesAnEmptyText) {
  EXPECT_EQ(countOf("Text R0 ' ' (", translateText("")), 1U);
  EXPECT_EQ(translate(drawingOf("TEXT", {})),
            "Layer  7 ;\nChange Size 0.0000000;\nText R0 ' ' (0.0000000 0.0000000);\n");
}

TEST(TranslateText, WritesReplacementsInTheEncodingOfTheDrawing) {
  EXPECT_EQ(countOf("'5\xB0 '", translateText("5%%d")), 1U) << "an old drawing";
  DxfBuilder modern;
  modern.header("$ACADVER", 1, "AC1021").entity("TEXT", textOf("5%%d \xC3\xA9"));
  EXPECT_EQ(countOf("'5\xC2\xB0 \xC3\xA9 '", translate(modern)), 1U);
}

TEST(TranslateText, PassesOtherTextThroughByteForByte) {
  EXPECT_EQ(countOf("'Gr\xFC\xDF\x65 \x80 '", translateText("Gr\xFC\xDF\x65 \x80")), 1U);
}

}  // namespace
}  // namespace quillon::classic

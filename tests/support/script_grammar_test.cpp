#include "support/script_grammar.h"

#include <gtest/gtest.h>

namespace quillon::testing {
namespace {

std::string faultOf(std::string_view script, const ScriptRules& rules = {}) {
  return checkScript(script, rules).fault;
}

void expectLine(std::string_view line) {
  EXPECT_EQ(faultOf(std::string(line) + "\r\n"), "") << line;
}

void expectNoLine(std::string_view line) {
  EXPECT_NE(faultOf(std::string(line) + "\r\n"), "") << line;
}

TEST(ScriptGrammar, KnowsTheLinesOfEveryEmitter) {
  for (const char* const line :
       {"Layer  16 ;",
        "Layer -3 ;",
        "Wire 0.2540000 (R0.0000000 0.0000000) (R1.5000000 -5.0000000);",
        "Wire  0.00 (R0.0000000 0.0000000) (R1.5000000 -5.0000000);",
        "Wire 0.00 (R0.0000000 0.0000000) (R1.5000000 -5.0000000);",
        "Wire -0.5000000 (R0.0000000 0.0000000) (R1.5000000 -5.0000000);",
        "Circle (R0.0000000 0.0000000) (R0.0000000 2.0000000);",
        "Circle 0.0 (R0.0000000 0.0000000) (R0.0000000 2.0000000);",
        "Arc CCW 0.00 (R1.0000000 0.0000000) (R2.0000000 0.0000000) (R3.0000000 0.0000000);",
        "Arc CW 0.5000000 (R1.0000000 0.0000000) (R2.0000000 0.0000000) (R3.0000000 0.0000000);",
        "Polygon 0.0000000 (R0.0000000 0.0000000) (R1.0000000 0.0000000)(R1.0000000 1.0000000);",
        "Change Size 1.2000000;",
        "Text R0 'plate ' (R0.0000000 0.0000000);",
        "Text R90 'it''s; ''quoted'' ' (R0.0000000 0.0000000);",
        "Write;",
        "Edit 'a b.brd';",
        "Edit 'A_1.dev';",
        "Open 'lib.lbr';",
        "Open 'lib';",
        "Use 'my/lib';",
        "Add 'A_1.sym' (0 0);",
        "Add DOOR_12@my lib R0 (R0.0000000 0.0000000);",
        "Set Wire_Bend 2;",
        "Change Pour Hatch;",
        "Grid inch;",
        "# In the previous command some coordinates are out of range!"}) {
    expectLine(line);
  }
}

TEST(ScriptGrammar, RejectsNumbersOfAnotherForm) {
  for (const char* const number :
       {"1", "1.0", "1.000000", "1.00000000", ".0000000", "01.0000000", "1,0000000", "1.000000e",
        "+1.0000000", "nan", "inf", "--1.0000000", "1.0000000 ", ""}) {
    expectNoLine("Change Size " + std::string(number) + ";");
    expectNoLine("Wire 0.0000000 (R" + std::string(number) + " 0.0000000) (R0.0000000 0.0000000);");
  }
}

TEST(ScriptGrammar, RejectsLinesThatAreNearlyRight) {
  for (const char* const line :
       {"",
        " ",
        "Layer 16 ;",
        "Layer  16;",
        "Layer  ;",
        "layer  16 ;",
        "Layer  16 ; ",
        "Wire 0.0000000 (0.0000000 0.0000000) (0.0000000 0.0000000);",
        "Wire 0.0000000 (R0.0000000 0.0000000)(R0.0000000 0.0000000);",
        "Wire 0.0000000 (R0.0000000 0.0000000);",
        "Wire 0.0000000 (R0.0000000 0.0000000) (R0.0000000 0.0000000)",
        "Arc CCW 0.00 (R1.0000000 0.0000000) (R2.0000000 0.0000000);",
        "Arc CW 0.00 (R1.0000000 0.0000000) (R2.0000000 0.0000000) (R3.0000000 0.0000000);",
        "Polygon 0.0000000 (R0.0000000 0.0000000) ;",
        "Edit 'a.exe';",
        "Edit a.brd;",
        "Quit;",
        "Add 'A.sym' (0 0);",
        "Add a_1@lib R0 (R0.0000000 0.0000000);",
        "Grid cm;",
        "# note"}) {
    expectNoLine(line);
  }
}

TEST(ScriptGrammar, RejectsTextsAndNamesThatEndTheirQuotes) {
  for (const char* const line :
       {"Text R0 'a' ' (R0.0000000 0.0000000);", "Text R0 'a'; Quit; ' (R0.0000000 0.0000000);",
        "Text R0 'a' (R0.0000000 0.0000000);", "Text R0 'a '' (R0.0000000 0.0000000);",
        "Text R180 'a ' (R0.0000000 0.0000000);", "Edit 'a'.brd';", "Edit 'a;Quit;.brd';",
        "Edit 'a\x01.brd';", "Open '';", "Use 'a\tb';",
        "Add A_1@a;Quit; R0 (R0.0000000 0.0000000);", "Add A_1@a'b R0 (R0.0000000 0.0000000);"}) {
    expectNoLine(line);
  }
}

TEST(ScriptGrammar, RequiresCrLfAfterEveryLine) {
  EXPECT_NE(faultOf("Write;"), "");
  EXPECT_NE(faultOf("Write;\n"), "");
  EXPECT_NE(faultOf("Write;\r"), "");
  EXPECT_NE(faultOf("Write;\nWrite;\r\n"), "");
  EXPECT_NE(faultOf("Text R0 'a\nb ' (R0.0000000 0.0000000);\r\n"), "");
}

constexpr std::string_view kPolygon =
    "Polygon 0.0000000 '1' (R0.0000000 0.0000000) (R1.0000000 0.0000000)\\\r\n"
    "(R1.0000000 1.0000000)\\\r\n"
    "(R0.0000000 0.0000000)(R0.0000000 0.0000000);\r\n";

TEST(ScriptGrammar, CountsLinesAndNamedPolygons) {
  const ScriptFacts facts = checkScript("Layer  1 ;\r\n" + std::string(kPolygon), {});
  EXPECT_EQ(facts.fault, "");
  EXPECT_EQ(facts.lines, 4U);
  EXPECT_EQ(facts.namedPolygons, 1U);
  expectLine(
      "Polygon 0.0000000 '1' (R0.0000000 0.0000000) (R1.0000000 0.0000000)"
      "(R1.0000000 0.0000000);");
  expectLine("Polygon 0.0000000 '1' (R0.0000000 0.0000000) (R0.0000000 0.0000000);");
}

TEST(ScriptGrammar, RejectsPolygonsThatAreTornOrMisnumbered) {
  EXPECT_NE(faultOf(std::string(kPolygon) + std::string(kPolygon)), "");
  EXPECT_NE(faultOf(kPolygon.substr(0, kPolygon.find('\n') + 1)), "");
  EXPECT_NE(faultOf(std::string(kPolygon.substr(0, kPolygon.find('\n') + 1)) + "Write;\r\n"), "");
  EXPECT_NE(faultOf(kPolygon.substr(kPolygon.find('\n') + 1)), "");
}

TEST(ScriptGrammar, KnowsTheFramesLinesOnlyInTheirPlaces) {
  ScriptRules rules;
  rules.startBlock = {"one", "two"};
  rules.endBlock = {"last"};
  EXPECT_EQ(faultOf("Grid mm;\r\none\r\ntwo\r\nWrite;\r\nlast\r\n", rules), "");
  EXPECT_EQ(checkScript("Grid mm;\r\none\r\ntwo\r\nlast\r\n", rules).lines, 4U);
  EXPECT_NE(faultOf("one\r\nGrid mm;\r\none\r\ntwo\r\nlast\r\n", rules), "");
  EXPECT_NE(faultOf("Grid mm;\r\none\r\nWrite;\r\nlast\r\n", rules), "");
  EXPECT_NE(faultOf("Grid mm;\r\none\r\nlast\r\n", rules), "");
  EXPECT_NE(faultOf("Grid mm;\r\none\r\ntwo\r\n", rules), "");
  EXPECT_NE(faultOf("Grid mm;\r\none\r\ntwo\r\nlast\r\nlast\r\n", rules), "");
}

TEST(ScriptGrammar, SaysWhichLineIsWrong) {
  EXPECT_EQ(faultOf("Write;\r\nQuit;\r\n"), "line 2: no line of a script: Quit;");
}

TEST(ScriptGrammar, HoldsPlainPointsAgainstTheOlderVersion) {
  ScriptRules rules;
  rules.relative = false;
  EXPECT_EQ(faultOf("Circle (0.0000000 0.0000000) (0.0000000 2.0000000);\r\n", rules), "");
  EXPECT_NE(faultOf("Circle (R0.0000000 0.0000000) (R0.0000000 2.0000000);\r\n", rules), "");
}

}  // namespace
}  // namespace quillon::testing

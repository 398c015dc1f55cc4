#include "dxf/tables.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "support/timing.h"

namespace quillon::dxf {
namespace {

using testing::leastSeconds;
using Views = std::vector<std::string_view>;
using Strings = std::vector<std::string>;
using Parser = void (*)(const SectionLines&, Drawing&);

void checkStyles(const SectionLines& lines, Drawing&) { checkStyleTable(lines); }

/// The result of parsing the lines of a table.
struct Parsed {
  Parsed(Parser parse, const SectionLines& lines) { parse(lines, drawing); }

  Drawing drawing;
};

Strings dashLists(const SectionLines& lines) {
  const Parsed parsed(parseLineTypeTable, lines);
  Strings lists;
  for (const LineTypeRec& record : parsed.drawing.lineTypes) lists.emplace_back(record.dashes);
  return lists;
}

template <typename Records>
Views namesOf(const Records& records) {
  Views names;
  for (const auto& record : records) names.push_back(record.name);
  return names;
}

TEST(FindLine, GivesTheFirstIndexFromTheStart) {
  const SectionLines lines = {"0", "2", "LAYER", "2", "02"};
  EXPECT_EQ(findLine(lines, 0, "2"), 1);
  EXPECT_EQ(findLine(lines, 1, "2"), 1);
  EXPECT_EQ(findLine(lines, 2, "2"), 3);
  EXPECT_EQ(findLine(lines, 4, "2"), -1);
  EXPECT_EQ(findLine(lines, 9, "2"), -1);
  EXPECT_EQ(findLine(lines, 0, "layer"), -1);
  EXPECT_EQ(findLine({}, 0, "2"), -1);
}

TEST(IsTableName, KnowsThreeTablesInAnyCase) {
  for (const std::string_view name : {"LTYPE", "LAYER", "STYLE", "Layer", "ltype", "sTyLe"}) {
    EXPECT_TRUE(isTableName(name)) << name;
  }
  for (const std::string_view name : {"", "VPORT", "LAYERS", "LAYE", " LAYER", "DIMSTYLE"}) {
    EXPECT_FALSE(isTableName(name)) << name;
  }
}

TEST(LayerTable, KeepsNameColourAndLineType) {
  const Parsed parsed(parseLayerTable,
                      {"2",  "LAYER", "70", "2",      "0",   "LAYER", "2", "Walls", "70", "0",
                       "62", "5",     "6",  "Dashed", "290", "1",     "0", "LAYER", "2",  "ROOF",
                       "62", "-3",    "6",  "HIDDEN", "370", "-3",    "0", "ENDTAB"});
  ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{"WALLS", "ROOF"}));
  EXPECT_EQ(parsed.drawing.layers[0].colour, "5");
  EXPECT_EQ(parsed.drawing.layers[0].lineType, "Dashed");
  EXPECT_EQ(parsed.drawing.layers[1].colour, "-3");
  EXPECT_EQ(parsed.drawing.layers[1].lineType, "HIDDEN");
}

TEST(LayerTable, LosesTheLastGroupOfEveryEntry) {
  const Parsed parsed(parseLayerTable,
                      {"0", "LAYER", "2", "A", "70", "0",      "62", "5", "6", "DASHED",  //
                       "0", "LAYER", "2", "B", "6",  "DASHED", "62", "5",                 //
                       "0", "LAYER", "2", "C",                                            //
                       "0", "LAYER",                                                      //
                       "0", "ENDTAB"});
  // The walk starts after the first "0".
  ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{"A", "B", "", ""}));
  EXPECT_EQ(parsed.drawing.layers[0].colour, "5");
  EXPECT_EQ(parsed.drawing.layers[0].lineType, "");
  EXPECT_EQ(parsed.drawing.layers[1].colour, "");
  EXPECT_EQ(parsed.drawing.layers[1].lineType, "DASHED");
}

TEST(LayerTable, TakesTheFirstOccurrenceOfAGroup) {
  const Parsed parsed(parseLayerTable, {"0", "LAYER", "2", "A", "2", "B", "62", "1", "62", "2", "6",
                                        "X", "6", "Y", "70", "0", "0", "ENDTAB"});
  ASSERT_EQ(parsed.drawing.layers.size(), 1U);
  EXPECT_EQ(parsed.drawing.layers[0].name, "A");
  EXPECT_EQ(parsed.drawing.layers[0].colour, "1");
  EXPECT_EQ(parsed.drawing.layers[0].lineType, "X");
}

TEST(LayerTable, LeavesMissingGroupsEmpty) {
  const Parsed parsed(parseLayerTable, {"0", "LAYER", "70", "0", "290", "1", "0", "ENDTAB"});
  ASSERT_EQ(parsed.drawing.layers.size(), 1U);
  EXPECT_EQ(parsed.drawing.layers[0].name, "");
  EXPECT_EQ(parsed.drawing.layers[0].colour, "");
  EXPECT_EQ(parsed.drawing.layers[0].lineType, "");
}

TEST(LayerTable, KeepsDuplicateNamesAndFindsTheFirst) {
  Parsed parsed(parseLayerTable,
                {"0", "LAYER", "2", "Plan", "6", "FIRST", "70", "0",  //
                 "0", "LAYER", "2", "PLAN", "6", "SECOND", "70", "0", "0", "ENDTAB"});
  EXPECT_EQ(namesOf(parsed.drawing.layers), (Views{"PLAN", "PLAN"}));
  EXPECT_EQ(parsed.drawing.findLayer("PLAN"), &parsed.drawing.layers[0]);
}

TEST(LayerTable, ALayerNamedLikeATableStartsAnotherEntryAtItsName) {
  for (const std::string_view name : {"Layer", "Style", "Ltype", "LAYER"}) {
    const Parsed parsed(parseLayerTable,
                        {"0", "LAYER", "2", name, "62", "5", "6", "DASHED", "70", "0", "0", "LAYER",
                         "2", "NEXT", "70", "0", "0", "ENDTAB"});
    const std::string upper = base::upperCase(name, base::Encoding::Windows1252);
    ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{upper, upper, "NEXT"}));
    EXPECT_EQ(parsed.drawing.layers[1].colour, "5");
    EXPECT_EQ(parsed.drawing.layers[1].lineType, "DASHED");
  }
}

TEST(LayerTable, EveryValueNamedLikeATableStartsAnEntryWithTheGroupsAfterIt) {
  const Parsed parsed(parseLayerTable, {"0", "LAYER", "2", "A", "6", "Layer", "62", "5", "3",
                                        "STYLE", "70", "0", "0", "ENDTAB"});
  ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{"A", "", ""}));
  EXPECT_EQ(parsed.drawing.layers[1].colour, "5");
  EXPECT_EQ(parsed.drawing.layers[1].lineType, "Layer");
  EXPECT_EQ(parsed.drawing.layers[2].colour, "");
}

TEST(LayerTable, AnEntryAtTheLastValueOfAnotherHasNoGroups) {
  const Parsed parsed(parseLayerTable,
                      {"0", "LAYER", "2", "A", "62", "5", "6", "Layer", "0", "ENDTAB"});
  ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{"A", ""}));
  EXPECT_EQ(parsed.drawing.layers[1].colour, "");
  EXPECT_EQ(parsed.drawing.layers[1].lineType, "");
}

TEST(LayerTable, AnEntryOnACodeLinePairsTheLinesItsOwnWay) {
  // The surplus line swaps codes and values from the second entry on.
  const Parsed parsed(parseLayerTable,
                      {"0", "LAYER", "2", "A", "70", "0", "0",  //
                       "0", "LAYER", "2", "B", "62", "4", "70", "0", "0", "ENDTAB"});
  ASSERT_EQ(namesOf(parsed.drawing.layers), (Views{"A", "B"}));
  EXPECT_EQ(parsed.drawing.layers[1].colour, "4");
}

TEST(Tables, StartAfterTheFirstZeroOrAtTheFirstLine) {
  const Parsed behind(parseLayerTable, {"2", "LAYER", "70", "1", "0", "LAYER", "2", "A", "62", "5",
                                        "70", "0", "0", "ENDTAB"});
  EXPECT_EQ(namesOf(behind.drawing.layers), Views{"A"});
  // Without any "0" the name of the table itself starts an entry, which never ends.
  EXPECT_THROW(Parsed(parseLayerTable, {"2", "LAYER", "70", "1", "ENDTAB"}), base::RunTimeError);
}

TEST(Tables, StayEmptyWithoutEntries) {
  for (const SectionLines& lines : {SectionLines{}, SectionLines{"0", "ENDTAB"},
                                    SectionLines{"2", "X", "70", "0", "0", "ENDTAB"}}) {
    EXPECT_TRUE(Parsed(parseLayerTable, lines).drawing.layers.empty());
    EXPECT_TRUE(Parsed(parseLineTypeTable, lines).drawing.lineTypes.empty());
    EXPECT_NO_THROW(checkStyleTable(lines));
  }
}

TEST(LineTypeTable, KeepsLengthAndDashes) {
  const Parsed parsed(parseLineTypeTable,
                      {"0",  "LTYPE", "2",  "Dashed", "70", "0",   "3",  "__ __", "72", "65",
                       "73", "2",     "40", "0.75",   "49", "0.5", "49", "-0.25", "0",  "ENDTAB"});
  ASSERT_EQ(parsed.drawing.lineTypes.size(), 1U);
  const LineTypeRec& dashed = parsed.drawing.lineTypes[0];
  EXPECT_EQ(dashed.name, "DASHED");
  EXPECT_EQ(dashed.totalLength, "0.75");
  EXPECT_EQ(dashed.dashes, "0.5;-0.25;");
}

TEST(LineTypeTable, KeepsTheLastGroupOfEveryEntry) {
  const Parsed parsed(parseLineTypeTable, {"0", "LTYPE", "3", "solid", "2", "A", "0", "LTYPE", "2",
                                           "B", "40", "7", "0", "ENDTAB"});
  ASSERT_EQ(namesOf(parsed.drawing.lineTypes), (Views{"A", "B"}));
  EXPECT_EQ(parsed.drawing.lineTypes[1].totalLength, "7");
}

TEST(LineTypeTable, WritesDashesAsNumbers) {
  struct Case {
    SectionLines groups;
    std::string_view list;
  };
  for (const auto& [groups, list] :
       {Case{{"49", "0.5", "49", "-0.25"}, "0.5;-0.25;"},
        {{"49", "0.5", "49", "-.25", "49", "0.000", "49", "-0.2500"}, "0.5;-0.25;0;-0.25;"},
        {{"49", "12.7000"}, "12.7;"},
        {{"49", "1e1", "49", "-1.5E-1"}, "10;-0.15;"},
        {{"49", "-0"}, "0;"},
        {{"49", "1e999", "49", "-1e999"}, "1e999;-1e999;"},
        {{"49", "dash", "49", "", "49", "2,5"}, "0;0;2;"},
        // Without dashes, or with another group at the end, an extra element is added.
        {{}, "0;"},
        {{"73", "0", "40", "0"}, "0;"},
        {{"49", "0.5", "74", "0", "49", "-0.25", "74", "0"}, "0.5;-0.25;0;"},
        {{"74", "0", "49", "1", "40", "2", "49", "-1"}, "1;-1;"}}) {
    SectionLines lines = {"0", "LTYPE", "2", "X"};
    lines.insert(lines.end(), groups.begin(), groups.end());
    lines.insert(lines.end(), {"0", "ENDTAB"});
    EXPECT_EQ(dashLists(lines), Strings{std::string(list)});
  }
}

TEST(LineTypeTable, ALineTypeNamedLikeATableSharesItsDashes) {
  EXPECT_EQ(dashLists({"0", "LTYPE", "2", "Style", "49", "1", "49", "-2", "0", "ENDTAB"}),
            (Strings{"1;-2;", "1;-2;"}));
}

TEST(LineTypeTable, AnEntryInsideAnotherHasTheDashesAfterIt) {
  EXPECT_EQ(dashLists({"0", "LTYPE", "2", "X", "49", "1", "3", "LAYER", "49", "2", "3", "style",
                       "70", "0", "0", "ENDTAB"}),
            (Strings{"1;2;0;", "2;0;", "0;"}));
}

struct FaultCase {
  Parser parse;
  SectionLines lines;
  base::Fault fault;
};

TEST(Tables, RaiseAnErrorWhereAnEntryIsBroken) {
  for (const auto& [parse, lines, fault] :
       {FaultCase{parseLayerTable,
                  {"0", "LAYER", "2", "A", "x", "0", "70", "0", "0", "ENDTAB"},
                  base::Fault::BadGroupCode},
        {checkStyles,
         {"0", "STYLE", "2", "A", "", "0", "70", "0", "0", "ENDTAB"},
         base::Fault::BadGroupCode},
        {parseLineTypeTable,
         {"0", "LTYPE", "2", "A", "49x", "1", "0", "ENDTAB"},
         base::Fault::BadGroupCode},
        {parseLineTypeTable,
         {"0", "LTYPE", "2", "A", "99999", "1", "0", "ENDTAB"},
         base::Fault::BadGroupCode},
        {parseLayerTable, {"0", "LAYER", "2", "A", "62"}, base::Fault::TextEndsTooEarly},
        {parseLayerTable, {"0", "LAYER", "2", "A"}, base::Fault::TextEndsTooEarly},
        {parseLayerTable, {"0", "LAYER"}, base::Fault::TextEndsTooEarly},
        {parseLineTypeTable, {"0", "LTYPE", "2", "A", "49"}, base::Fault::TextEndsTooEarly},
        {parseLineTypeTable, {"0", "LTYPE", "2", "A"}, base::Fault::TextEndsTooEarly},
        {checkStyles, {"0", "STYLE", "2", "A", "ENDTAB"}, base::Fault::TextEndsTooEarly}}) {
    try {
      const Parsed parsed(parse, lines);
      ADD_FAILURE() << "no error in the table of " << lines[1];
    } catch (const base::RunTimeError& error) {
      EXPECT_EQ(error.fault(), fault) << lines.back();
    }
  }
}

TEST(Tables, ReadTheCodeOfALastGroupOnlyWhereTheyKeepIt) {
  const Parsed layers(parseLayerTable, {"0", "LAYER", "2", "A", "broken", "1", "0", "ENDTAB"});
  EXPECT_EQ(namesOf(layers.drawing.layers), Views{"A"});
  EXPECT_THROW(Parsed(parseLineTypeTable, {"0", "LTYPE", "2", "A", "broken", "1", "0", "ENDTAB"}),
               base::RunTimeError);
}

/// Time for a table with an entry at every value line.
double secondsFor(Parser parse, std::string_view code, std::string_view name, std::size_t entries) {
  SectionLines lines = {"0"};
  for (std::size_t i = 0; i < entries; ++i) {
    lines.push_back(name);
    lines.push_back(code);
  }
  lines.insert(lines.end(), {"1", "0", "ENDTAB"});
  return leastSeconds([&] {
    const Parsed parsed(parse, lines);
    const Drawing& drawing = parsed.drawing;
    EXPECT_EQ(drawing.layers.size() + drawing.lineTypes.size(), parse == checkStyles ? 0 : entries);
  });
}

TEST(Tables, CostNoMoreThanTheirLinesWhenEveryValueStartsAnEntry) {
  struct Case {
    Parser parse;
    std::string_view code;
    std::string_view name;
  };
  for (const auto& [parse, code, name] : {Case{parseLineTypeTable, "2", "LTYPE"},
                                          {parseLineTypeTable, "49", "LTYPE"},
                                          {parseLineTypeTable, "70", "LAYER"},
                                          {parseLayerTable, "2", "Layer"},
                                          {parseLayerTable, "70", "LAYER"},
                                          {checkStyles, "3", "STYLE"}}) {
    const double few = secondsFor(parse, code, name, 10'000);
    const double many = secondsFor(parse, code, name, 200'000);
    // A factor of 20 when the cost is linear, 400 when quadratic.
    EXPECT_LT(many / few, 150.0) << code << ' ' << name << ": " << few << " s, " << many << " s";
  }
}

}  // namespace
}  // namespace quillon::dxf

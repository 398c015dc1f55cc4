#include "exact/multileader_values.h"
#include "exact_drawing.h"
#include "exact_item.h"

namespace quillon::testing {
namespace {

void addGroups(GroupPairs& groups, const GroupPairs& more) {
  groups.insert(groups.end(), more.begin(), more.end());
}

/// What a test puts into a MULTILEADER.
struct LeaderParts {
  GroupPairs context{};  ///< besides the arrow's size, 3
  GroupPairs branch{};
  GroupPairs line{};
  GroupPairs entity{};
};

/// From an arrow at (0 0) over (10 0) to (20 5), and a dogleg of 4 from there.
DxfBuilder multiLeader(const LeaderParts& parts, DxfBuilder dxf = {}) {
  GroupPairs groups = {{8, "0"}, {100, "AcDbMLeader"}, {300, "CONTEXT_DATA{"}, {140, "3"}};
  addGroups(groups, parts.context);
  addGroups(groups, {{302, "LEADER{"},
                     {290, "1"},
                     {291, "1"},
                     {10, "20"},
                     {20, "5"},
                     {11, "1"},
                     {21, "0"},
                     {40, "4"}});
  addGroups(groups, parts.branch);
  addGroups(groups, {{304, "LEADER_LINE{"}, {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}});
  addGroups(groups, parts.line);
  addGroups(groups, {{305, "}"}, {303, "}"}, {301, "}"}, {340, "D8"}, {170, "1"}});
  addGroups(groups, parts.entity);
  dxf.entity("MULTILEADER", groups);
  return dxf;
}

constexpr const char* kLeaderLine = "7 wire 0 (0 0) (10 0) (20 5) as it is\n";
constexpr const char* kLeaderDogleg = "7 wire 0 (20 5) (24 5) as it is\n";
constexpr const char* kLeaderArrow = "7 area (0 0) (3 -0.5) (3 0.5) (0 0)\n";

TEST(ExactMultiLeaders, ALineHasAnArrowAndEndsInADogleg) {
  EXPECT_EQ(ExactDrawing(multiLeader({})).shapes(),
            std::string(kLeaderLine) + kLeaderDogleg + kLeaderArrow);
}

TEST(ExactMultiLeaders, TheShorterNameIsTheSame) {
  DxfBuilder dxf;
  dxf.entity("MLEADER", {{8, "0"},
                         {300, "CONTEXT_DATA{"},
                         {302, "LEADER{"},
                         {304, "LEADER_LINE{"},
                         {10, "0"},
                         {20, "0"},
                         {10, "1"},
                         {20, "0"},
                         {305, "}"},
                         {303, "}"},
                         {301, "}"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (1 0) as it is\n");
}

TEST(ExactMultiLeaders, BranchesMayHaveSeveralLines) {
  const DxfBuilder dxf =
      multiLeader({.line = {{305, "}"}, {304, "LEADER_LINE{"}, {10, "20"}, {20, "-5"}}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            std::string(kLeaderLine) + "7 wire 0 (20 -5) (20 5) as it is\n" + kLeaderDogleg +
                kLeaderArrow + "7 area (20 -5) (20.5 -2) (19.5 -2) (20 -5)\n");
}

TEST(ExactMultiLeaders, DoglegsCanBeSwitchedOff) {
  EXPECT_EQ(ExactDrawing(multiLeader({.entity = {{290, "0"}, {291, "1"}}})).shapes(),
            std::string(kLeaderLine) + kLeaderArrow);
  EXPECT_EQ(ExactDrawing(multiLeader({.entity = {{290, "1"}, {291, "0"}}})).shapes(),
            std::string(kLeaderLine) + kLeaderArrow);
  EXPECT_EQ(ExactDrawing(multiLeader({.branch = {{291, "0"}}})).shapes(),
            std::string(kLeaderLine) + kLeaderArrow);
}

TEST(ExactMultiLeaders, ABranchWithoutAnEndHasItsLinesAlone) {
  EXPECT_EQ(ExactDrawing(multiLeader({.branch = {{290, "0"}}})).shapes(),
            std::string("7 wire 0 (0 0) (10 0) as it is\n") + kLeaderArrow);
}

TEST(ExactMultiLeaders, LinesCanBeInvisible) {
  EXPECT_EQ(ExactDrawing(multiLeader({.entity = {{170, "0"}}})).shapes(), "");
}

TEST(ExactMultiLeaders, LinesCanBeCurvesWithoutADogleg) {
  const std::string shapes = ExactDrawing(multiLeader({.entity = {{170, "2"}}})).shapes();
  EXPECT_NE(shapes.find(" +"), std::string::npos);
  EXPECT_NE(shapes.find(" (20 5) as it is\n"), std::string::npos);
  EXPECT_EQ(shapes.find("(24 5)"), std::string::npos);
}

TEST(ExactMultiLeaders, ArrowsCanBeABlock) {
  DxfBuilder dxf;
  dxf.tableEntry("BLOCK_RECORD", "_Mine", {{5, "1F"}});
  dxf.beginBlock("_MINE")
      .entity("LINE", {{8, "0"}, {10, "-1"}, {20, "0"}, {11, "0"}, {21, "0"}})
      .endBlock();
  EXPECT_EQ(ExactDrawing(multiLeader({.entity = {{342, "1F"}}}, dxf)).shapes(),
            std::string(kLeaderLine) + kLeaderDogleg + "7 wire 0 (3 0) (0 0) as it is\n");
}

TEST(ExactMultiLeaders, GapsInLinesAreNamed) {
  const ExactDrawing drawing(multiLeader({.line = {{90, "0"}, {11, "5"}, {21, "0"}}}));
  EXPECT_EQ(drawing.shapes(), std::string(kLeaderLine) + kLeaderDogleg + kLeaderArrow);
  EXPECT_EQ(drawing.losses(),
            "leader-breaks MULTILEADER 1 line 7\nfine-fill MULTILEADER 1 line 7\n");
}

/// A block with a line from its base point (1 0) on.
DxfBuilder withContentBlock() {
  DxfBuilder dxf;
  dxf.tableEntry("BLOCK_RECORD", "Balloon", {{5, "A1"}});
  dxf.beginBlock("BALLOON", "1", "0")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "0"}, {11, "2"}, {21, "1"}})
      .endBlock();
  return dxf;
}

const GroupPairs kBlockContent = {{290, "0"}, {296, "1"}, {341, "A1"}, {14, "0"},
                                  {24, "0"},  {34, "1"},  {15, "30"},  {25, "5"},
                                  {16, "2"},  {26, "3"},  {36, "1"},   {46, "1.5707963267948966"}};

TEST(ExactMultiLeaders, ABlockIsPlacedScaledAndTurned) {
  EXPECT_EQ(ExactDrawing(
                multiLeader({.context = kBlockContent, .entity = {{170, "0"}}}, withContentBlock()))
                .shapes(),
            "7 wire 0 (30 5) (27 7) as it is\n");
}

TEST(ExactMultiLeaders, ABlockHasTheLeadersTextsForItsAttributes) {
  DxfBuilder dxf;
  dxf.tableEntry("BLOCK_RECORD", "Balloon", {{5, "A1"}});
  const auto definition = [&dxf](const char* handle, const char* flags, const char* x) {
    dxf.entity("ATTDEF", {{5, handle},
                          {8, "0"},
                          {10, x},
                          {20, "0"},
                          {40, "1"},
                          {1, "value"},
                          {2, "TAG"},
                          {70, flags}});
  };
  dxf.beginBlock("BALLOON", "1", "0");
  definition("B2", "0", "1");
  definition("B3", "2", "3");
  definition("B4", "1", "4");
  definition("B5", "0", "5");
  dxf.endBlock();
  const GroupPairs attributes = {{170, "0"},  {330, "b2"},  {302, "17"}, {330, "B3"}, {302, "left"},
                                 {330, "B4"}, {302, "hid"}, {330, "B5"}, {302, ""}};
  const ExactDrawing drawing(multiLeader({.context = kBlockContent, .entity = attributes}, dxf));
  EXPECT_EQ(drawing.shapes(),
            "7 text '17' 3 R90 bottom left (30 5)\n"
            "7 text 'value' 3 R90 bottom left (30 9)\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::LeaderAttributes), 0U);
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::Invisible), 1U);
}

TEST(ExactMultiLeaders, AttributesThatABlockLacksAndMissingBlocksAreNamed) {
  EXPECT_EQ(ExactDrawing(multiLeader({.context = kBlockContent,
                                      .entity = {{330, "B2"}, {177, "1"}, {302, "17"}}},
                                     withContentBlock()))
                .lossList()
                .countOf(exact::LossRule::LeaderAttributes),
            1U);
  EXPECT_EQ(ExactDrawing(multiLeader({.context = kBlockContent})).losses(),
            "missing-block MULTILEADER 1 line 7\nfine-fill MULTILEADER 1 line 7\n");
}

TEST(ExactMultiLeaders, OnLayersThatAreOffOnlyWhatIsOnOthersShows) {
  DxfBuilder dxf = withContentBlock();
  dxf.layer("0", {{70, "0"}, {62, "-7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.tableEntry("BLOCK_RECORD", "Other", {{5, "A2"}});
  dxf.beginBlock("OTHER")
      .entity("LINE", {{8, "OTHER"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock();
  GroupPairs content = kBlockContent;
  content.push_back({341, "A2"});
  const ExactDrawing drawing(multiLeader({.context = content}, dxf));
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (30 5) (30 7) as it is\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::LayerOff), 1U);
}

TEST(ExactMultiLeaders, TheirTextIsAParagraphOfItsContext) {
  DxfBuilder dxf;
  dxf.style("Narrow", {{5, "3B"}});
  const DxfBuilder drawing = multiLeader({.context = {{41, "2.5"},
                                                      {290, "1"},
                                                      {304, "two\\Plines"},
                                                      {11, "0"},
                                                      {31, "1"},
                                                      {340, "3B"},
                                                      {12, "25"},
                                                      {22, "6"},
                                                      {13, "0"},
                                                      {23, "1"},
                                                      {42, "1.57"},
                                                      {43, "40"},
                                                      {44, "9"},
                                                      {45, "1.2"},
                                                      {170, "2"},
                                                      {171, "3"}}},
                                         dxf);
  int found = 0;
  withItems(drawing, [&](const exact::Item& item, exact::Canvas& canvas) {
    const exact::MultiLeader leader = exact::readMultiLeader(item, canvas);
    ASSERT_TRUE(leader.text);
    const exact::ParagraphText text = exact::leaderParagraph(*leader.text);
    EXPECT_EQ(text.content, "two\\Plines");
    EXPECT_EQ(text.at, (geometry::Point{25.0, 6.0}));
    EXPECT_EQ(text.height, 2.5);
    EXPECT_EQ(text.angle, 90.0);
    EXPECT_EQ(text.width, 40.0);
    EXPECT_EQ(text.attachment, 3);
    EXPECT_EQ(text.lineSpacing, 1.2);
    EXPECT_TRUE(text.exactSpacing);
    EXPECT_EQ(text.style, "NARROW");
    ++found;
  });
  EXPECT_EQ(found, 1);
}

TEST(ExactMultiLeaders, TheirTextHangsFromItsPlace) {
  const GroupPairs context = {{290, "1"}, {304, "text"}, {41, "2.5"}, {12, "25"}, {22, "6"}};
  EXPECT_EQ(ExactDrawing(multiLeader({.context = context, .entity = {{170, "0"}}})).shapes(),
            "7 text 'text' 2.5 R0 bottom left (25 3.5)\n");
}

TEST(ExactMultiLeaders, ATextIsTurnedByItsRotationWhereItsDirectionIsLeft) {
  exact::LeaderText text;
  text.rotation = 0.5 * 3.14159265358979323846;
  EXPECT_DOUBLE_EQ(exact::leaderParagraph(text).angle, 90.0);
}

TEST(ExactMultiLeaders, DamagedOnesAreNamedOrDrawnAsFarAsTheyGo) {
  EXPECT_EQ(ExactDrawing(oneEntity("MULTILEADER", {{10, "1"}, {304, "LEADER_LINE{"}})).losses(),
            "damaged-entity MULTILEADER 1 line 7\n");
  DxfBuilder cut;
  cut.entity("MULTILEADER", {{8, "0"},
                             {300, "CONTEXT_DATA{"},
                             {140, "1e300"},
                             {302, "LEADER{"},
                             {20, "7"},
                             {304, "LEADER_LINE{"},
                             {20, "7"},
                             {10, "0"},
                             {10, "1"}});
  EXPECT_EQ(ExactDrawing(cut).shapes(), "7 wire 0 (0 0) (1 0) as it is\n");
  const ExactDrawing distant(multiLeader({.branch = {{40, "1e300"}}, .line = {{10, "1e300"}}}));
  EXPECT_EQ(distant.shapes(), kLeaderArrow);
}

}  // namespace
}  // namespace quillon::testing

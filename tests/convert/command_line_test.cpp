#include "convert/command_line.h"

#include <gtest/gtest.h>

#include "convert/job.h"

namespace quillon::convert {
namespace {

using Option = CommandLineOption;

CommandLine parse(std::string_view text) { return parseCommandLine(text); }

TEST(CommandLine, TakesEveryItemOfTheExample) {
  const CommandLine line =
      parse("/x:C:\\in\\part.dxf /s:C:\\out\\part.scr /b:PART /o:p /u:mm /f:2.5 /r:t /rx");
  EXPECT_EQ(line.dxfFile, "c:\\in\\part.dxf");
  EXPECT_EQ(line.scriptFile, "c:\\out\\part.scr");
  EXPECT_EQ(line.drawingName, "part");
  EXPECT_EQ(line.targetKind, kPackage);
  EXPECT_EQ(line.unit, "mm");
  EXPECT_EQ(line.scale, 2.5);
  EXPECT_TRUE(line.report);
  EXPECT_FALSE(line.autoRun);
  EXPECT_TRUE(line.autoRunExit);
  EXPECT_FALSE(line.overwriteScript);
  EXPECT_EQ(line.CmdLineGiven, 1U + 2U + 4U + 8U + 128U + 256U + 8192U + 16384U);
}

TEST(CommandLine, AddsTheBitOfEachOption) {
  const std::vector<std::pair<std::string, Option>> items = {
      {"/x:a", Option::DxfFile},    {"/s:a", Option::ScriptFile}, {"/b:a", Option::DrawingName},
      {"/o:s", Option::TargetKind}, {"/d:a", Option::LayerFile},  {"/l:a", Option::Layer},
      {"/v:4", Option::Version},    {"/u:mm", Option::Unit},      {"/f:1", Option::Scale},
      {"/t:t", Option::Dotted},     {"/e:t", Option::Ellipses},   {"/p:1", Option::Poly},
      {"/k:1", Option::Blocks},     {"/r:t", Option::Report},     {"/ru", Option::Unattended},
      {"/rx", Option::Unattended},  {"/w:o", Option::Overwrite},  {"/a:t", Option::ArcToLine}};
  for (const auto& [item, option] : items) {
    const CommandLine line = parse(item);
    EXPECT_EQ(line.CmdLineGiven, 1U << (static_cast<unsigned>(option) - 1)) << item;
    EXPECT_TRUE(line.given(option)) << item;
  }
}

TEST(CommandLine, AnOptionGivenTwiceSetsTheNextBitInstead) {
  const CommandLine line = parse("/x:a.dxf /x:b.dxf");
  EXPECT_EQ(line.CmdLineGiven, 2U);
  EXPECT_FALSE(line.given(Option::DxfFile));
  EXPECT_TRUE(line.given(Option::ScriptFile));
  EXPECT_EQ(line.dxfFile, "b.dxf");
}

TEST(CommandLine, BothUnattendedRunsShareABitAndAddIt) {
  EXPECT_EQ(parse("/ru /rx").CmdLineGiven, 32768U);
  EXPECT_TRUE(parse("/ru /rx").autoRun);
  EXPECT_TRUE(parse("/ru /rx").autoRunExit);
}

/// The notes on a command line: name, text and number, separated by blanks.
std::vector<std::string> notesOn(std::string_view text) {
  std::vector<std::string> notes;
  for (const NumberNote& note : parse(text).notes) {
    notes.push_back(note.name + " " + note.text + " " + note.countsAs);
  }
  return notes;
}

TEST(CommandLine, NotesNumbersThatAreFollowedBySomethingElse) {
  using Notes = std::vector<std::string>;
  EXPECT_EQ(notesOn("/f:2,5 /p:1x /k:ALL"), (Notes{"/f 2,5 2", "/p 1x 1", "/k all 0"}));
  EXPECT_EQ(notesOn("/f:2.5 /p: 1 /k:2 /f: /v:4.6 /o:p /u:mm"), Notes{});
  EXPECT_EQ(notesOn("/f:1,5 /f:abc"), Notes{"/f abc 0"});
  EXPECT_EQ(notesOn("/f:1,5 /f:2"), Notes{});
}

TEST(CommandLine, NoValueOfTheTargetSelectsABoard) {
  EXPECT_EQ(parse("/o:s").targetKind, kSchematic);
  EXPECT_EQ(parse("/o:p").targetKind, kPackage);
  EXPECT_EQ(parse("/o:y").targetKind, kSymbol);
  EXPECT_EQ(parse("/o:b").targetKind, kPackage);
  EXPECT_EQ(parse("/o:").targetKind, kPackage);
}

TEST(CommandLine, OnlyTheExactTextFourSelectsTheNewVersion) {
  EXPECT_EQ(parse("/v:4").version, 1);
  EXPECT_EQ(parse("/v:4.6").version, 0);
  EXPECT_EQ(parse("/v:5").version, 0);
  EXPECT_EQ(parse("/v:").version, 0);
}

TEST(CommandLine, LowersKeysAndValues) {
  EXPECT_TRUE(parse("/T:T").dotted);
  EXPECT_EQ(parse("/B:M\xC3\x84RZ").drawingName, "m\xC3\xA4rz");
  EXPECT_EQ(parse("/U:Inch").unit, "inch");
}

TEST(CommandLine, SwitchesAreOnForTheLetterTAlone) {
  for (const char* item : {"/t:", "/e:", "/r:", "/a:"}) {
    const auto on = [item](const std::string& value) {
      const CommandLine line = parse(item + value);
      return line.dotted || line.ellipses || line.report || line.arcToLine;
    };
    EXPECT_TRUE(on("t")) << item;
    EXPECT_FALSE(on("true")) << item;
    EXPECT_FALSE(on("1")) << item;
    EXPECT_FALSE(on("")) << item;
  }
  EXPECT_FALSE(parse("/t:t /t:f").dotted);
}

TEST(CommandLine, OverwritesForTwoValuesAndAsksForOthers) {
  EXPECT_TRUE(parse("/w:o").overwriteScript);
  EXPECT_TRUE(parse("/w:a").overwriteScript);
  EXPECT_FALSE(parse("/w:x").overwriteScript);
  EXPECT_FALSE(parse("/w:o /w:no").overwriteScript);
}

TEST(CommandLine, NumbersAreRoundedHalfToEvenAndBadOnesAreZero) {
  EXPECT_EQ(parse("/p:2").poly, 2);
  EXPECT_EQ(parse("/p:1.5").poly, 2);
  EXPECT_EQ(parse("/p:0.5").poly, 0);
  EXPECT_EQ(parse("/p:-1").poly, -1);
  EXPECT_EQ(parse("/k:abc").blocks, 0);
  EXPECT_EQ(parse("/k:99999").blocks, 0);
  EXPECT_EQ(parse("/f:abc").scale, 0.0);
  EXPECT_EQ(parse("/f:-2.5mm").scale, -2.5);
}

TEST(CommandLine, TrimsItemsAndValues) {
  const CommandLine line = parse("  / x:  c:\\my part.dxf  /  t: t  / w: o ");
  EXPECT_EQ(line.dxfFile, "c:\\my part.dxf");
  EXPECT_TRUE(line.dotted);
  EXPECT_TRUE(line.overwriteScript);
}

TEST(CommandLine, EverySlashBeginsAnItem) {
  EXPECT_EQ(parse("/x:home/u/part.dxf").dxfFile, "home");
  EXPECT_EQ(parse("x:a.dxf/t:t").dxfFile, "a.dxf");
  EXPECT_TRUE(parse("x:a.dxf/t:t").dotted);
}

TEST(CommandLine, NoticesAPathThatASlashHasSplit) {
  EXPECT_EQ(parse("/x:/home/Me/in.dxf /ru").splitPath, "/x:\\home\\me\\in.dxf");
  EXPECT_EQ(parse("/ru /d:C:/my layers/a.lay").splitPath, "/d:c:\\my layers\\a.lay");
  EXPECT_EQ(parse("/s:out/x.scr/x:in.dxf").splitPath, "/s:out\\x.scr");
  EXPECT_EQ(parse("/x:/rust/in.dxf").splitPath, "/x:\\rust\\in.dxf");
  EXPECT_EQ(parse("/x://server/share/in.dxf").splitPath, "/x:\\\\server\\share\\in.dxf");
}

TEST(CommandLine, TakesNoOtherItemForPartOfAPath) {
  for (const char* const text :
       {"/x:in.dxf/s:out.scr/ru", "/x:in.dxf /quiet", "/x:in.dxf/rx", "/x: /s:out.scr",
        "/x:in.dxf/", "/x:in.dxf //", "/x:in.dxf/z:1", "/b:my/board", "/x:\\home\\in.dxf"}) {
    EXPECT_EQ(parse(text).splitPath, "") << text;
  }
}

TEST(CommandLine, IgnoresUnknownItems) {
  const CommandLine line = parse("part.dxf /q:1 /? //x /-x:a /r /");
  EXPECT_EQ(line.CmdLineGiven, 0U);
  EXPECT_EQ(line.dxfFile, "");
  EXPECT_EQ(parse("").CmdLineGiven, 0U);
}

TEST(CommandLine, ItemsOfUnattendedRunsMayGoOn) {
  EXPECT_TRUE(parse("/run").autoRun);
  EXPECT_TRUE(parse("/rx now").autoRunExit);
}

TEST(CommandLine, JoinsArgumentsByOneBlank) {
  EXPECT_EQ(joinArguments({"/x:my", "part.dxf", "/t:t"}), "/x:my part.dxf /t:t");
  EXPECT_EQ(joinArguments({}), "");
}

}  // namespace
}  // namespace quillon::convert

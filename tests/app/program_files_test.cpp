// Which files the program reads and writes, and what it reports about them.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

TEST_F(ProgramTest, WritesTheScriptBesideTheDrawing) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf"}), 0, "", summary("part.dxf", 1, "part.scr", 11));
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(ProgramTest, WritesTheScriptBesideADrawingElsewhere) {
  std::filesystem::create_directory(folder.path() / "sub");
  write("sub/part.v2.DXF", oneLine());
  expectResult(run({"sub/part.v2.DXF"}), 0, "",
               summary("sub/part.v2.DXF", 1, "sub/part.v2.scr", 11));
  EXPECT_EQ(folder.read("sub/part.v2.scr"), lineScript("part.v2"));
}

TEST_F(ProgramTest, WritesTheScriptThatIsNamed) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "-o", "out.txt"}), 0, "", summary("part.dxf", 1, "out.txt", 11));
  EXPECT_EQ(folder.read("out.txt"), lineScript("part"));
  EXPECT_EQ(run({"part.dxf", "--output=second.scr"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"out.txt", "part.dxf", "second.scr"}));
}

TEST_F(ProgramTest, TakesTheNameOfTheBoardFromTheFileWithWhatAScriptCannotHoldReplaced) {
  write("Grundri\xC3\x9F 1'2;3(4).dxf", oneLine());
  EXPECT_EQ(run({"Grundri\xC3\x9F 1'2;3(4).dxf"}).exitCode, 0);
  EXPECT_EQ(folder.read("Grundri\xC3\x9F 1'2;3(4).scr"), lineScript("Grundri__1_2_3_4_"));
}

TEST_F(ProgramTest, FindsADrawingWithoutRegardToCase) {
  std::filesystem::create_directory(folder.path() / "Sub");
  write("Sub/Part.dxf", oneLine());
  EXPECT_EQ(run({"SUB\\PART.DXF"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"Sub", "Sub/Part.dxf", "Sub/Part.scr"}));
}

TEST_F(ProgramTest, ConvertsSeveralDrawingsInTheOrderGiven) {
  write("b.dxf", oneLine());
  write("a.dxf", oneLine());
  expectResult(run({"b.dxf", "a.dxf"}), 0, "",
               summaryLines("b.dxf", 1, "b.scr", 11) + summaryLines("a.dxf", 1, "a.scr", 11) +
                   "2 of 2 drawings converted\n");
  EXPECT_EQ(folder.read("a.scr"), lineScript("a"));
  EXPECT_EQ(folder.read("b.scr"), lineScript("b"));
}

TEST_F(ProgramTest, ConvertsTheDrawingsOfAFolderSortedButNotThoseOfItsFolders) {
  std::filesystem::create_directories(folder.path() / "in/sub");
  std::filesystem::create_directory(folder.path() / "in/folder.dxf");
  write("in/b.DXF", oneLine());
  write("in/a.dxf", oneLine());
  write("in/C.Dxf", oneLine());
  write("in/sub/d.dxf", oneLine());
  folder.write("in/notes.txt", "");
  folder.write("in/dxf", "");
  expectResult(run({"in"}), 0, "",
               summaryLines("in/C.Dxf", 1, "in/C.scr", 11) +
                   summaryLines("in/a.dxf", 1, "in/a.scr", 11) +
                   summaryLines("in/b.DXF", 1, "in/b.scr", 11) + "3 of 3 drawings converted\n");
  EXPECT_FALSE(folder.has("in/sub/d.scr"));
}

TEST_F(ProgramTest, CountsAFolderWithOneDrawingAsSeveral) {
  std::filesystem::create_directory(folder.path() / "in");
  write("in/a.dxf", oneLine());
  expectResult(run({"in", "-o", "out"}), 0, "",
               summaryLines("in/a.dxf", 1, "out/a.scr", 11) + "1 of 1 drawings converted\n");
}

TEST_F(ProgramTest, WritesScriptsAndReportsOfSeveralDrawingsIntoFoldersThatItMakes) {
  write("a.dxf", oneLine());
  write("b.dxf", oneLine());
  expectResult(run({"a.dxf", "b.dxf", "-o", "out/scripts", "--report", "reports"}), 0, "",
               summaryLines("a.dxf", 1, "out/scripts/a.scr", 11) +
                   summaryLines("b.dxf", 1, "out/scripts/b.scr", 11) +
                   "2 of 2 drawings converted\n");
  EXPECT_EQ(files(), (Strings{"a.dxf", "b.dxf", "out", "out/scripts", "out/scripts/a.scr",
                              "out/scripts/b.scr", "reports", "reports/a.txt", "reports/b.txt"}));
}

TEST_F(ProgramTest, ReadsStandardInputToStandardOutputWithoutAName) {
  expectResult(run({"-"}, oneLine().text()), 0, lineScript(""), summaryLines("-", 1, "-", 9));
  EXPECT_EQ(files(), Strings{});
}

TEST_F(ProgramTest, ReadsStandardInputToAScript) {
  expectResult(run({"-", "-o", "out.scr", "--name", "PART"}, oneLine().text()), 0, "",
               summary("-", 1, "out.scr", 11));
  EXPECT_EQ(folder.read("out.scr"), lineScript("PART"));
}

TEST_F(ProgramTest, ReadsADrawingToStandardOutput) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "-o", "-"}), 0, lineScript("part"),
               summaryLines("part.dxf", 1, "-", 11));
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(ProgramTest, ADrawingOfAnySizeGoesThroughStandardInput) {
  testing::DxfBuilder dxf;
  for (int i = 0; i < 50'000; ++i) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  const testing::ProgramResult result = run({"-", "--quiet"}, dxf.text());
  expectResult(result, 0, result.output, "");
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 100'007);
}

TEST_F(ProgramTest, DoesNotReplaceAnExistingScriptWithoutForce) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "old");
  expectResult(run({"part.dxf"}), 1, "",
               errorLine("part.scr exists already. Use --force to replace it."));
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(run({"part.dxf", "--force"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(ProgramTest, DoesNotReplaceAnExistingReportWithoutForceAndThenWritesNothing) {
  write("part.dxf", oneLine());
  folder.write("part.txt", "old");
  expectResult(run({"part.dxf", "--report", "part.txt"}), 1, "",
               errorLine("The report part.txt exists already. Use --force to replace it."));
  EXPECT_EQ(folder.read("part.txt"), "old");
  EXPECT_FALSE(folder.has("part.scr"));
  EXPECT_EQ(run({"part.dxf", "--report", "part.txt", "--force"}).exitCode, 0);
  EXPECT_TRUE(folder.read("part.txt").starts_with("\r\nConversion Report \r\n"));
}

TEST_F(ProgramTest, KeepsOnConvertingWhenOneOfSeveralExists) {
  for (const char* const name : {"a.dxf", "b.dxf", "c.dxf"}) write(name, oneLine());
  folder.write("b.scr", "old");
  expectResult(run({"a.dxf", "b.dxf", "c.dxf"}), 1, "",
               summaryLines("a.dxf", 1, "a.scr", 11) +
                   errorLine("b.scr exists already. Use --force to replace it.") +
                   summaryLines("c.dxf", 1, "c.scr", 11) + "2 of 3 drawings converted\n");
  EXPECT_EQ(folder.read("b.scr"), "old");
}

TEST_F(ProgramTest, SaysWhichDrawingItCannotFind) {
  expectResult(run({"none.dxf"}), 1, "",
               errorLine("none.dxf cannot be read: No such file or directory. Please check the "
                         "path and its permissions."));
  EXPECT_EQ(files(), Strings{});
}

TEST_F(ProgramTest, SaysWhichDrawingItMayNotRead) {
  write("part.dxf", oneLine());
  std::filesystem::permissions(folder.file("part.dxf"), std::filesystem::perms(0));
  dropRights();
  expectResult(run({"part.dxf"}), 1, "",
               errorLine("part.dxf cannot be read: Permission denied. Please check the path and "
                         "its permissions."));
}

TEST_F(ProgramTest, TakesTheNamesThatAFolderListsToTheLetter) {
  std::filesystem::create_directories(folder.path() / "a/in");
  write("a/in/..\\evil.dxf", oneLine());
  EXPECT_EQ(run({"a/in", "-o", "a/out", "--report", "a/out"}).exitCode, 0);
  EXPECT_EQ(run({"A\\IN"}).exitCode, 0);
  EXPECT_EQ(run({"a/in/..\\evil.dxf", "--force"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"a", "a/in", "a/in/..\\evil.dxf", "a/in/..\\evil.scr", "a/out",
                              "a/out/..\\evil.scr", "a/out/..\\evil.txt"}));
}

TEST_F(ProgramTest, ListedNamesAreNotLookedUpWithoutRegardToCase) {
  std::filesystem::create_directories(folder.path() / "in");
  std::filesystem::create_directories(folder.path() / "In");
  write("in/a.dxf", oneLine());
  write("In/b.dxf", oneLine());
  EXPECT_EQ(run({"in"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"In", "In/b.dxf", "in", "in/a.dxf", "in/a.scr"}));
}

TEST_F(ProgramTest, FoldersForResultsAreLookedUpWithBothSeparators) {
  std::filesystem::create_directory(folder.path() / "Out");
  write("a.dxf", oneLine());
  write("b.dxf", oneLine());
  EXPECT_EQ(run({"a.dxf", "b.dxf", "-o", "out\\new"}).exitCode, 0);
  EXPECT_EQ(run({"a.dxf", "-o", "OUT\\NEW", "--force"}).exitCode, 0);
  EXPECT_EQ(run({"a.dxf", "-o", "OUT\\c.scr"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"Out", "Out/c.scr", "Out/new", "Out/new/a.scr", "Out/new/b.scr",
                              "a.dxf", "b.dxf"}));
}

TEST_F(ProgramTest, AResultInAMissingFolderGoesNowhereElse) {
  write("a.dxf", oneLine());
  expectResult(run({"a.dxf", "-o", "Q:\\OUT\\A.SCR"}), 1, "",
               errorLine("Q:/OUT/A.SCR cannot be written: the folder Q:/OUT does not exist. Please "
                         "create the folder or correct the path."));
  EXPECT_EQ(run({"a.dxf", "-o", "a.scr", "--report", "none\\a.txt"}).exitCode, 1);
  EXPECT_EQ(files(), (Strings{"a.dxf", "a.scr"}));
}

TEST_F(ProgramTest, SaysThatAFolderHoldsNoDrawing) {
  std::filesystem::create_directory(folder.path() / "in");
  folder.write("in/notes.txt", "");
  expectResult(run({"in"}), 1, "",
               errorLine("in contains no DXF file. Please specify another folder.") +
                   "0 of 0 drawings converted\n");
}

TEST_F(ProgramTest, ConvertsTheRestWhenOneFolderHoldsNoDrawing) {
  std::filesystem::create_directory(folder.path() / "in");
  write("a.dxf", oneLine());
  expectResult(run({"a.dxf", "in"}), 1, "",
               errorLine("in contains no DXF file. Please specify another folder.") +
                   summaryLines("a.dxf", 1, "a.scr", 11) + "1 of 1 drawings converted\n");
}

TEST_F(ProgramTest, RefusesNonDrawingsEachWithItsOwnMessage) {
  using namespace std::string_literals;
  folder.write("1.dxf", "");
  folder.write("2.dxf", "AutoCAD Binary DXF\r\n\x1a\0"s);
  folder.write("3.dxf", "AC1015\0\0\0\0"s);
  folder.write("4.dxf",
               "\x7f"
               "ELF\0\0\0\n"s);
  folder.write("5.dxf", "Dear reader,\nthis is no drawing.\n");
  folder.write("6.dxf", "Dear reader");
  expectResult(
      run({"."}), 1, "",
      errorLine("./1.dxf is empty. Please export the drawing again.") +
          errorLine("./2.dxf is a binary DXF file. Please save the drawing as ASCII DXF.") +
          errorLine("./3.dxf is a DWG file. Please save the drawing as ASCII DXF.") +
          errorLine(
              "./4.dxf is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF "
              "file.") +
          errorLine("./5.dxf contains no section of a DXF drawing. Please choose a DXF file.") +
          errorLine(
              "./6.dxf is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF "
              "file.") +
          "0 of 6 drawings converted\n");
  EXPECT_EQ(files().size(), 6U);
}

TEST_F(ProgramTest, RefusesEmptyStandardInput) {
  expectResult(run({"-"}), 1, "", errorLine("- is empty. Please export the drawing again."));
}

TEST_F(ProgramTest, RefusesStandardInputThatIsNotADrawingWithoutAnyOutput) {
  std::string text = "Dear reader,\n";
  for (int i = 0; i < 100'000; ++i) text += "this is no drawing.\n";
  expectResult(run({"-"}, text), 1, "",
               errorLine("- contains no section of a DXF drawing. Please choose a DXF file."));
}

TEST_F(ProgramTest, OneByteAtTheEndOfALargeDrawingDecidesOnTheEncodingOfItsFirstText) {
  testing::DxfBuilder dxf;
  dxf.header("$ACADVER", 1, "AC1021");
  dxf.entity("TEXT", {{8, "0"}, {40, "1"}, {1, "%%c"}});
  for (int i = 0; i < 60'000; ++i) dxf.entity("POINT", {{8, "999"}, {10, "1"}, {20, "2"}});
  testing::DxfBuilder utf8 = dxf;
  utf8.entity("TEXT", {{8, "0"}, {40, "1"}, {1, "ä"}});
  dxf.entity("TEXT", {{8, "0"}, {40, "1"}, {1, "\xE4"}});
  write("latin.dxf", dxf);
  write("utf8.dxf", utf8);
  const auto firstText = [this](const Strings& arguments, const std::string& input = {}) {
    const testing::ProgramResult result = run(arguments, input);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const std::size_t at = result.output.find("Text R0 '") + 9;
    return result.output.substr(at, result.output.find(" ' ", at) - at);
  };
  EXPECT_EQ(firstText({"utf8.dxf", "-o", "-"}), "ø");
  EXPECT_EQ(firstText({"latin.dxf", "-o", "-"}), "\xF8");
  EXPECT_EQ(firstText({"-"}, utf8.text()), "ø");
  EXPECT_EQ(firstText({"-"}, dxf.text()), "\xF8");
}

TEST_F(ProgramTest, ADrawingFromAPipeGivesTheScriptOfItsFile) {
  testing::DxfBuilder dxf;
  dxf.header("$ACADVER", 1, "AC1021");
  // The line break within the character makes the drawing invalid UTF-8.
  dxf.entity("TEXT", {{8, "0"}, {40, "1"}, {1, "%%c\xC3\r\xA4"}});
  write("part.dxf", dxf);
  const std::string script = run({"part.dxf", "-o", "-", "--name", ""}).output;
  EXPECT_NE(script.find("Text R0 '\xF8\xC3\xA4 '"), std::string::npos) << script;
  EXPECT_EQ(run({"-"}, dxf.text()).output, script);
}

TEST_F(ProgramTest, RefusesADrawingNameThatAScriptCannotHold) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "--name", "it's\n"}), 1, "",
               errorLine("The drawing name \"it's\\x0a\" contains an apostrophe, a semicolon or a "
                         "control character. Please choose another name."));
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(ProgramTest, RefusesToWriteTheScriptOverTheDrawing) {
  write("part.dxf", oneLine());
  const testing::ProgramResult result = run({"part.dxf", "-o", "./part.dxf", "--force"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.error,
            errorLine("./part.dxf is the drawing itself. Please choose another script file."));
  EXPECT_EQ(folder.read("part.dxf"), oneLine().text());
}

TEST_F(ProgramTest, DoesNotWriteTheReportOverTheDrawing) {
  write("part.dxf", oneLine());
  for (const char* const report : {"part.dxf", "./part.dxf"}) {
    EXPECT_NE(run({"part.dxf", "--report", report, "--force"}).exitCode, 0) << report;
    EXPECT_EQ(folder.read("part.dxf"), oneLine().text()) << report;
  }
}

TEST_F(ProgramTest, NamesFileAndLineOfARunTimeErrorAndWritesNothing) {
  folder.write("part.dxf",
               "  0\r\nSECTION\r\n  2\r\nBLOCKS\r\n  0\r\nBLOCK\r\n  2\r\nA\r\n  0\r\nLINE\r\n"
               "  8\r\n0\r\n\x1b[2J\r\n5\r\n  0\r\nENDBLK\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
  expectResult(run({"part.dxf", "--report", "part.txt"}), 1, "",
               errorLine("part.dxf:13: The line \"\\x1b[2J\" is not a group code. The file is "
                         "damaged; please export the drawing again."));
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(ProgramTest, SaysWhereTheScriptCannotBeWritten) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "-o", "none/part.scr"}), 1, "",
               errorLine("none/part.scr cannot be written: the folder none does not exist. Please "
                         "create the folder or correct the path."));
  expectResult(run({"part.dxf", "-o", "/dev/full"}), 1, "",
               errorLine("/dev/full cannot be written: No space left on device. Please check the "
                         "path, its permissions and the free space."));
}

TEST_F(ProgramTest, SaysWhereTheReportCannotBeWritten) {
  write("part.dxf", oneLine());
  const testing::ProgramResult result = run({"part.dxf", "--report", "none/part.txt"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with(
      errorLine("none/part.txt cannot be written: the folder none does not exist. Please create "
                "the folder or correct the path.")));
  // The script itself was written, and the summary says so.
  EXPECT_NE(result.error.find("part.scr: 11 lines written\n"), std::string::npos);
  EXPECT_TRUE(folder.has("part.scr"));
}

TEST_F(ProgramTest, EscapesControlCharactersOfAFileName) {
  write("a\n\x1b[1mb.dxf", oneLine());
  const testing::ProgramResult result = run({"a\n\x1b[1mb.dxf"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(
      result.error.starts_with("a\\x0a\\x1b[1mb.dxf: 1 entities converted from 26 lines\n"
                               "a\\x0a\\x1b[1mb.scr: 11 lines written\n"));
  // There is no command to print for a path that cannot be typed.
  EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 2);
}

TEST_F(ProgramTest, EscapesControlCharactersBeyondAsciiOfAnEntityName) {
  testing::DxfBuilder dxf = oneLine();
  dxf.entity("X\x9D", {{8, "0"}});  // undefined in Windows-1252: U+009D
  write("part.dxf", dxf);
  const testing::ProgramResult result = run({"part.dxf"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.error.find("Not recognised and left out: X"), std::string::npos);
  EXPECT_EQ(result.error.find("\xC2\x9D"), std::string::npos);
}

TEST_F(ProgramTest, NamesTheWholePathOfTheScriptForEagle) {
  std::string path;
  for (int i = 0; i < 6; ++i) path += std::string(40, static_cast<char>('a' + i)) + "/";
  std::filesystem::create_directories(folder.path() / path);
  write(path + "part.dxf", oneLine());
  const testing::ProgramResult result = run({path + "part.dxf"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(
      result.error.find("SCRIPT '" + std::filesystem::canonical(folder.path()).generic_string() +
                        "/" + path + "part.scr'\n"),
      std::string::npos)
      << result.error;
}

TEST_F(ProgramTest, WarnsAboutCoordinatesOutOfRangeAndConvertsThem) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "--scale", "50000"}), 0, "",
               "quillon-convert: warning: part.dxf: The Coordinates are out of range of EAGLE. "
               "This can cause an incomplete import into EAGLE. Please check your adjustment of "
               "scaling factor and unit.\n" +
                   summary("part.dxf", 1, "part.scr", 12));
}

TEST_F(ProgramTest, ShowsNoProgressBarAndNoSummaryWhenQuiet) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "--quiet"}), 0, "", "");
  expectResult(run({"part.dxf", "--quiet"}), 1, "",
               errorLine("part.scr exists already. Use --force to replace it."));
  EXPECT_EQ(run({"part.dxf", "--quiet", "--force", "--scale", "50000"}).error.find("lines written"),
            std::string::npos);
  expectResult(run({"part.dxf", "none.dxf", "--quiet", "--force"}), 1, "",
               errorLine("none.dxf cannot be read: No such file or directory. Please check the "
                         "path and its permissions."));
}

TEST_F(ProgramTest, ManyConversionsAtATimeGiveWhatOneAtATimeGives) {
  std::filesystem::create_directory(folder.path() / "in");
  for (int i = 0; i < 24; ++i) {
    testing::DxfBuilder dxf = oneLine();
    for (int n = 0; n < (24 - i) * 200; ++n) {
      dxf.entity("POINT", {{8, "0"}, {10, std::to_string(n)}, {20, std::to_string(i)}});
    }
    write("in/" + std::to_string(10 + i) + ".dxf", dxf);
  }
  folder.write("in/20.dxf", "");
  const testing::ProgramResult one = run({"in", "-o", "out", "--force", "--json"});
  std::vector<std::string> scripts;
  for (int i = 10; i < 34; ++i) scripts.push_back(folder.read("out/" + std::to_string(i) + ".scr"));
  const testing::ProgramResult two = run({"in", "-o", "out", "--force", "--json", "--jobs", "2"});
  expectResult(two, 1, one.output, one.error);
  EXPECT_TRUE(two.error.ends_with("23 of 24 drawings converted\n"));
  for (int i = 10; i < 34; ++i) {
    EXPECT_EQ(folder.read("out/" + std::to_string(i) + ".scr"),
              scripts[static_cast<std::size_t>(i - 10)])
        << i;
  }
}

}  // namespace
}  // namespace quillon::headless

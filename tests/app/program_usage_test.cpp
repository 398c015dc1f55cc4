// Usage errors: exit code 2, a message, and nothing is written.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

class UsageTest : public ProgramTest {
 protected:
  UsageTest() {
    write("part.dxf", oneLine());
    write("second.dxf", oneLine());
    std::filesystem::create_directory(folder.path() / "in");
    write("in/a.dxf", oneLine());
  }
  /// The message of a usage error, without the text around it.
  std::string usageError(const Strings& arguments) {
    const Strings before = files();
    const testing::ProgramResult result = run(arguments, oneLine().text());
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(files(), before);
    const std::string_view start = "quillon-convert: ";
    const std::string_view end = "\nTry 'quillon-convert --help'.\n";
    if (!result.error.starts_with(start) || !result.error.ends_with(end)) return result.error;
    return result.error.substr(start.size(), result.error.size() - start.size() - end.size());
  }
};

TEST_F(UsageTest, NoDrawing) {
  EXPECT_EQ(usageError({}), "a drawing, a folder or --files-from is needed");
}

TEST_F(UsageTest, AnUnknownOption) {
  EXPECT_EQ(usageError({"part.dxf", "--bogus"}),
            "The following argument was not expected: --bogus");
}

TEST_F(UsageTest, AnOptionWithoutItsValue) {
  for (const char* const option :
       {"--name", "--target", "--unit", "--scale", "--eagle", "--layer", "--layers", "--poly",
        "--blocks", "--offset-x", "--offset-y", "--poly-width", "--language", "--frame", "--report",
        "--jobs", "-o"}) {
    EXPECT_NE(usageError({"part.dxf", option}).find("1 required"), std::string::npos) << option;
  }
}

TEST_F(UsageTest, AWordThatAChoiceDoesNotHave) {
  for (const auto& [option, word] :
       std::vector<std::pair<const char*, const char*>>{{"--target", "sheet"},
                                                        {"--unit", "cm"},
                                                        {"--unit", "MM"},
                                                        {"--eagle", "5"},
                                                        {"--poly", "3"},
                                                        {"--poly", "-2"},
                                                        {"--poly", "wire1"},
                                                        {"--blocks", "3"},
                                                        {"--blocks", "-1"},
                                                        {"--blocks", "none"},
                                                        {"--language", "fr"}}) {
    EXPECT_TRUE(usageError({"part.dxf", option, word}).starts_with(option)) << option << word;
  }
}

TEST_F(UsageTest, AnInnerNumberOfAChoiceThatHasWordsOnly) {
  for (const auto& [option, word] :
       std::vector<std::pair<const char*, const char*>>{{"--target", "1"},
                                                        {"--unit", "2"},
                                                        {"--eagle", "0"},
                                                        {"--eagle", "1"},
                                                        {"--language", "0"},
                                                        {"--language", "10000"}}) {
    EXPECT_TRUE(usageError({"part.dxf", option, word}).starts_with(option)) << option << word;
  }
}

TEST_F(UsageTest, ATextInPlaceOfANumber) {
  for (const char* const option : {"--scale", "--offset-x", "--offset-y", "--poly-width"}) {
    for (const char* const number : {"x", "1,5", "1mm", "", "inf", "nan", "0x10", "1e999", "1 "}) {
      EXPECT_EQ(usageError({"part.dxf", option, number}),
                std::string(option) + ": \"" + number + "\" is not a number");
    }
  }
}

TEST_F(UsageTest, AScaleOfZero) {
  for (const char* const zero : {"0", "0.000", "-0", "0e5", "1e-999"}) {
    EXPECT_EQ(usageError({"part.dxf", "--scale", zero}), "--scale: the scale factor must not be 0");
  }
}

TEST_F(UsageTest, ANumberOfJobsThatIsNotANumber) {
  for (const char* const jobs : {"0", "-1", "x", "1.5", "257"}) {
    EXPECT_TRUE(usageError({"part.dxf", "--jobs", jobs}).starts_with("--jobs: ")) << jobs;
  }
}

TEST_F(UsageTest, BlocksAsPartsWithoutAName) {
  const std::string text =
      "--blocks used and --blocks all need a name: the library is named like the drawing";
  for (const char* const blocks : {"1", "2", "used", "all"}) {
    EXPECT_EQ(usageError({"part.dxf", "--blocks", blocks, "--name", ""}), text);
    EXPECT_EQ(usageError({"part.dxf", "--blocks", blocks, "--name", "  "}), text);
    EXPECT_EQ(usageError({"-", "--blocks", blocks}), text);
  }
}

TEST_F(UsageTest, OneNameForSeveralDrawings) {
  EXPECT_EQ(usageError({"part.dxf", "second.dxf", "--name", "A"}), "--name takes one drawing only");
  EXPECT_EQ(usageError({"in", "--name", "A"}), "--name takes one drawing only");
  EXPECT_EQ(usageError({"part.dxf", "second.dxf", "--name", ""}), "--name takes one drawing only");
}

TEST_F(UsageTest, StandardInputTogetherWithOtherDrawings) {
  EXPECT_EQ(usageError({"part.dxf", "-"}), "- cannot be combined with other drawings");
  EXPECT_EQ(usageError({"-", "-"}), "- cannot be combined with other drawings");
}

TEST_F(UsageTest, StandardOutputForSeveralDrawings) {
  EXPECT_EQ(usageError({"part.dxf", "second.dxf", "-o", "-"}), "-o - takes one drawing only");
  EXPECT_EQ(usageError({"in", "-o", "-"}), "-o - takes one drawing only");
}

TEST_F(UsageTest, ScriptAndJsonBothOnStandardOutput) {
  const std::string text = "--json and the script cannot both go to standard output";
  EXPECT_EQ(usageError({"part.dxf", "-o", "-", "--json"}), text);
  EXPECT_EQ(usageError({"-", "--json"}), text);
}

TEST_F(UsageTest, AnEmptyPath) {
  EXPECT_EQ(usageError({""}), "the name of a drawing is empty");
  EXPECT_EQ(usageError({"part.dxf", "-o", ""}), "the name of the script is empty");
  EXPECT_EQ(usageError({"part.dxf", "--report", ""}), "the name of the report is empty");
}

TEST_F(UsageTest, TwoResultsUnderOneName) {
  std::filesystem::create_directory(folder.path() / "b");
  write("b/part.dxf", oneLine());
  EXPECT_EQ(usageError({"part.dxf", "b/part.dxf", "-o", "out"}),
            "two results would be written to out/part.scr");
  EXPECT_EQ(usageError({"part.dxf", "part.dxf"}), "two results would be written to part.scr");
  EXPECT_EQ(usageError({"part.dxf", "-o", "a", "--report", "a"}),
            "two results would be written to a");
}

TEST_F(UsageTest, AFileWhereAFolderIsNeeded) {
  folder.write("file", "x");
  EXPECT_EQ(usageError({"part.dxf", "second.dxf", "-o", "file"}),
            "file is not a folder and could not be created; converting several drawings needs an "
            "output folder");
  EXPECT_EQ(usageError({"in", "--report", "file"}),
            "file is not a folder and could not be created; converting several drawings needs an "
            "output folder");
}

TEST_F(UsageTest, IsNotWhatAskingForHelpIs) {
  for (const char* const option : {"--help", "-h"}) {
    const testing::ProgramResult result = run({option});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "");
    for (const char* const word :
         {"--name",     "--target",        "board|schematic|package|symbol",
          "--unit",     "mic|mm|mil|inch", "--scale",
          "--eagle",    "3.5|4",           "--layer ",
          "--layers",   "--poly",          "--blocks",
          "--dotted",   "--ellipses",      "--arc-to-line",
          "--offset-x", "--offset-y",      "--poly-width",
          "--language", "de|en",           "--frame",
          "--report",   "--force",         "--jobs",
          "--quiet",    "--json",          "-o"}) {
      EXPECT_NE(result.output.find(word), std::string::npos) << word;
    }
  }
}

TEST_F(UsageTest, IsNotWhatAskingForTheVersionIs) {
  expectResult(run({"--version"}), 0, "quillon-convert " QUILLON_VERSION "\n", "");
}

}  // namespace
}  // namespace quillon::headless

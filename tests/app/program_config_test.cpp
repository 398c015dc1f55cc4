// Options from a configuration file.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;

class ConfigTest : public ProgramTest {
 protected:
  ConfigTest() { write("part.dxf", oneLine()); }

  /// Makes a file in the user's folder for configurations.
  void configure(const std::string& text) {
    const std::string own = std::string("home/") + testing::kConfigFolder;
    fs::create_directories(folder.path() / own);
    path = testing::withSlashes(folder.write(own + "/quillon-convert.toml", text));
    const std::string home = (folder.path() / "home").string();
    call.environment = {"LANG=C", "TZ=UTC", std::string(testing::kConfigVariable) + "=" + home};
  }
  std::string usageError(const Strings& arguments) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_FALSE(folder.has("part.scr"));
    const std::string_view start = "quillon-convert: ";
    const std::string_view end = "\nTry 'quillon-convert --help'.\n";
    if (!result.error.starts_with(start) || !result.error.ends_with(end)) return result.error;
    return result.error.substr(start.size(), result.error.size() - start.size() - end.size());
  }
  std::string script(const Strings& arguments) {
    Strings all = {"part.dxf", "-o", "-"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const ProgramResult result = run(all);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    return result.output;
  }
  static bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  std::string path;
};

TEST_F(ConfigTest, GivesOptionsThatTheCommandLineDoesNot) {
  configure("unit = \"mm\"\nlayer = 21\nquiet = true\n");
  const ProgramResult result = run({"part.dxf", "-o", "-"});
  EXPECT_EQ(result.error, "");
  EXPECT_TRUE(has(result.output, "Grid mm;")) << result.output;
  EXPECT_TRUE(has(result.output, "Layer  21 ;")) << result.output;
}

TEST_F(ConfigTest, LosesAgainstTheCommandLine) {
  configure("unit = \"mm\"\nlayer = 21\nquiet = true\nforce = true\n");
  const std::string text = script({"--unit", "inch", "--quiet=false"});
  EXPECT_TRUE(has(text, "Grid inch;")) << text;
  EXPECT_TRUE(has(text, "Layer  21 ;")) << text;
  folder.write("part.scr", "old");
  EXPECT_EQ(run({"part.dxf", "--force=false"}).exitCode, 1);
  EXPECT_EQ(run({"part.dxf"}).exitCode, 0);
}

TEST_F(ConfigTest, MayComeFromAnyFileInstead) {
  configure("unit = \"mm\"\n");
  folder.write("mine.toml", "name = \"\"\n");
  EXPECT_EQ(script({"--config", "mine.toml"}), lineScript(""));
}

TEST_F(ConfigTest, IsNotReadWhenAskedTo) {
  configure("unit = \"mm\"\nthis is wrong");
  EXPECT_EQ(script({"--no-config"}), lineScript("part"));
}

TEST_F(ConfigTest, MaySwitchTheRulesForOptionsOfTheCommandLine) {
  configure("rules = \"exact\"\nkeep-duplicates = false\n");
  EXPECT_TRUE(has(script({"--tolerance", "0.1"}), "Grid mm"));
}

TEST_F(ConfigTest, WithAWrongKeyOrValueIsAUsageErrorThatNamesFileAndLine) {
  const std::string end = "; correct this line, or use --no-config";
  for (const auto& [text, what] : std::vector<std::pair<std::string, std::string>>{
           {"\nunti = \"mm\"", ":2: there is no option \"unti\" for a configuration file"},
           {"config = \"x\"", ":1: there is no option \"config\" for a configuration file"},
           {"help = true", ":1: there is no option \"help\" for a configuration file"},
           {"o = \"x\"", ":1: there is no option \"o\" for a configuration file"},
           {"drawings = \"x\"", ":1: there is no option \"drawings\" for a configuration file"},
           {"force = true\nunit = \"cm\"", ":2: --unit: \"cm\" is not one of mic|mm|mil|inch"},
           {"jobs = 1000", ":1: --jobs: \"1000\" is not a number from 1 to 256"},
           {"scale = \"--force\"", ":1: --scale: \"--force\" is not a number"},
           {"scale = \"\"", ":1: --scale: \"\" is not a number"},
           {"force = \"true\"", ":1: force is either true or false, without quotes"},
           {"unit = true", ":1: unit needs another value than true or false"},
           {"unit = mm", ":1: the value of unit needs quotation marks"}}) {
    configure(text);
    EXPECT_EQ(usageError({"part.dxf"}), path + what + end) << text;
  }
}

TEST_F(ConfigTest, TellsWhenItMayHaveCausedAnErrorOfSeveralOptions) {
  configure("json = true\n");
  EXPECT_EQ(usageError({"part.dxf", "-o", "-"}),
            "--json and the script cannot both go to standard output (some options come from " +
                path + "; --no-config leaves them out)");
  EXPECT_EQ(usageError({"part.dxf", "-"}), "- cannot be combined with other drawings");
  EXPECT_EQ(usageError({"part.dxf", "--bogus"}),
            "The following argument was not expected: --bogus");
}

TEST_F(ConfigTest, ThatIsNamedMustBeReadable) {
  EXPECT_EQ(usageError({"part.dxf", "--config", "nowhere.toml"}),
            "the configuration file nowhere.toml could not be read: No such file or directory; "
            "correct the path or its permissions, or use --no-config");
  EXPECT_EQ(usageError({"part.dxf", "--config", ""}),
            "the name of the configuration file is empty");
  EXPECT_EQ(usageError({"part.dxf", "--config", "a", "--no-config"}),
            "--config and --no-config exclude each other");
  fs::create_directory(folder.path() / "a");
  EXPECT_EQ(usageError({"part.dxf", "--config", "a"}),
            "the configuration file a could not be read: Is a directory; correct the path or its "
            "permissions, or use --no-config");
  folder.write("large.toml", std::string((1U << 20) + 1, '#'));
  EXPECT_EQ(usageError({"part.dxf", "--config", "large.toml"}),
            "the configuration file large.toml could not be read: File too large; correct the path "
            "or its permissions, or use --no-config");
}

TEST_F(ConfigTest, DoesNotChangeHelpAndVersion) {
  configure("this is wrong");
  EXPECT_EQ(run({"--help"}).exitCode, 0);
  EXPECT_EQ(run({"--version"}).output, "quillon-convert " QUILLON_VERSION "\n");
}

TEST_F(ConfigTest, HostileValuesAreValuesOnly) {
  configure("name = \"--force -o x\"\nreport = \"--json\"\n");
  folder.write("part.scr", "old");
  EXPECT_EQ(run({"part.dxf"}).exitCode, 1);
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(run({"part.dxf", "-o", "new.scr"}).exitCode, 0);
  EXPECT_TRUE(folder.has("--json"));
  for (const std::string& text :
       {std::string(100000, '['), std::string(100000, '"'), "name = \"" + std::string(100000, '\\'),
        std::string(99999, '\0'), std::string("++ = 1\n-- = 2\n"), std::string("x.y.z = 1")}) {
    configure(text);
    EXPECT_EQ(run({"part.dxf", "-o", "other.scr"}).exitCode, 2) << text.substr(0, 20);
  }
  EXPECT_FALSE(folder.has("other.scr"));
}

}  // namespace
}  // namespace quillon::headless

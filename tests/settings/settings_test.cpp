#include "settings/settings.h"

#include <gtest/gtest.h>

#include "full_disk.h"
#include "support/temp_folder.h"

namespace quillon::settings {
namespace {

using convert::CommandLine;
using convert::parseCommandLine;
using testing::TempFolder;

class SettingsTest : public ::testing::Test {
 protected:
  /// Loads settings from a file with these lines in its section "dxf".
  Settings load(const std::string& lines, std::string_view commandLine = {}) const {
    folder.write("larkspur.ini", "[dxf]\r\n" + lines);
    return LoadSettings(store, parseCommandLine(commandLine), english);
  }
  /// The warnings about such a file before its settings are used.
  std::vector<std::string> warnings(const std::string& lines,
                                    std::string_view commandLine = {}) const {
    folder.write("larkspur.ini", "[dxf]\r\n" + lines);
    std::vector<std::string> texts;
    for (const convert::Message& message :
         loadingWarnings(store, parseCommandLine(commandLine), english)) {
      EXPECT_EQ(message.kind, convert::MessageKind::Warning);
      texts.push_back(message.text);
    }
    return texts;
  }
  static void expectDefaults(const Settings& settings) {
    EXPECT_EQ(settings.dxfFile, "C:\\*.DXF");
    EXPECT_EQ(settings.scriptFile, "C:\\CONVERS.SCR");
    EXPECT_EQ(settings.layerFile, "");
    EXPECT_EQ(settings.drawingName, "");
    EXPECT_EQ(settings.targetKind, convert::kBoard);
    EXPECT_EQ(settings.version, 1);
    EXPECT_EQ(settings.unit, base::Unit::Mil);
    EXPECT_EQ(settings.scale, "1.000");
    EXPECT_EQ(settings.layer, "20 Dimension (B)");
    EXPECT_FALSE(settings.dotted);
    EXPECT_TRUE(settings.report);
    EXPECT_EQ(settings.PolyWidth, 0.0);
    EXPECT_FALSE(settings.ellipses);
    EXPECT_FALSE(settings.arcToLine);
    EXPECT_EQ(settings.poly, 2);
    EXPECT_EQ(settings.blocks, 0);
    EXPECT_TRUE(settings.blocksEnabled);
  }

  TempFolder folder;
  SettingsStore store{folder.path()};
  texts::Texts english{texts::kEnglish};
};

TEST_F(SettingsTest, AnEmptyOrMissingFileGivesTheDefaults) {
  expectDefaults(LoadSettings(store, CommandLine{}, english));
  expectDefaults(load(""));
  EXPECT_EQ(loadLanguage(store), texts::kGerman);
}

TEST_F(SettingsTest, EmptyPathsKeepTheInitialTexts) {
  const Settings settings = load("dxffile=\r\nscr=\r\nlayerfile=\r\n");
  EXPECT_EQ(settings.dxfFile, "C:\\*.DXF");
  EXPECT_EQ(settings.scriptFile, "C:\\CONVERS.SCR");
  EXPECT_EQ(settings.layerFile, "");
}

TEST_F(SettingsTest, PathsAndTheNameAreAppliedAsStored) {
  const Settings settings =
      load("dxffile=D:\\a.DXF\r\nscr=D:\\b.scr\r\nlayerfile=c.lay\r\nbrdsch=My Board\r\n");
  EXPECT_EQ(settings.dxfFile, "D:\\a.DXF");
  EXPECT_EQ(settings.scriptFile, "D:\\b.scr");
  EXPECT_EQ(settings.layerFile, "c.lay");
  EXPECT_EQ(settings.drawingName, "My Board");
}

TEST_F(SettingsTest, TheTargetIsTheNumericValue) {
  EXPECT_EQ(load("brd=0").targetKind, convert::kBoard);
  EXPECT_EQ(load("brd=1").targetKind, convert::kSchematic);
  EXPECT_EQ(load("brd=2").targetKind, convert::kPackage);
  EXPECT_EQ(load("brd=3").targetKind, convert::kSymbol);
  EXPECT_EQ(load("brd=abc").targetKind, convert::kBoard);
}

TEST_F(SettingsTest, ANumberBeyondTheTargetsSelectsNone) {
  for (const char* line : {"brd=4", "brd=-1", "brd=99999"}) {
    const Settings settings = load(line);
    EXPECT_EQ(settings.targetKind, kNoTarget) << line;
    EXPECT_EQ(settings.layer, "") << line;
    EXPECT_TRUE(SaveSettings(store, settings));
    EXPECT_EQ(store.ReadIni("dxf", "brd"), "4");
  }
}

TEST_F(SettingsTest, TheTargetDecidesTheLayerListAndWhetherBlocksCanBeChosen) {
  EXPECT_EQ(load("brd=0").layer, "20 Dimension (B)");
  EXPECT_EQ(load("brd=1").layer, "94 Symbols (S)");
  EXPECT_EQ(load("brd=2").layer, "20 Dimension (B)");
  EXPECT_EQ(load("brd=3").layer, "94 Symbols (S)");
  EXPECT_TRUE(load("brd=1").blocksEnabled);
  EXPECT_FALSE(load("brd=2").blocksEnabled);
  EXPECT_FALSE(load("brd=3").blocksEnabled);
}

TEST_F(SettingsTest, ClickingAPackageOrSymbolForcesBlocksToBeDrawn) {
  Settings settings = load("blocks=2");
  EXPECT_EQ(settings.blocks, 2);
  selectTarget(settings, convert::kPackage, english);
  EXPECT_EQ(settings.blocks, 0);
  EXPECT_FALSE(settings.blocksEnabled);
  selectTarget(settings, convert::kSchematic, english);
  EXPECT_TRUE(settings.blocksEnabled);
  EXPECT_EQ(settings.layer, "94 Symbols (S)");
}

TEST_F(SettingsTest, BlocksAreAppliedAfterTheTarget) {
  const Settings settings = load("brd=2\r\nblocks=1");
  EXPECT_EQ(settings.blocks, 1);
  EXPECT_FALSE(settings.blocksEnabled);
}

TEST_F(SettingsTest, AnEmptyVersionIsTheNewOne) {
  EXPECT_EQ(load("version=").version, 1);
  EXPECT_EQ(load("version=0").version, 0);
  EXPECT_EQ(load("version=abc").version, 0);
  EXPECT_EQ(load("version=2").version, 2);
  EXPECT_EQ(load("version=3").version, kNoChoice);
}

TEST_F(SettingsTest, EmptyListChoicesKeepTheWindowsOwn) {
  const Settings settings = load("unit=\r\npoly=\r\nblocks=\r\n");
  EXPECT_EQ(settings.unit, base::Unit::Mil);
  EXPECT_EQ(settings.poly, 2);
  EXPECT_EQ(settings.blocks, 0);
}

TEST_F(SettingsTest, ListChoicesAreIndexes) {
  const Settings settings = load("unit=3\r\npoly=1\r\nblocks=2\r\n");
  EXPECT_EQ(settings.unit, base::Unit::Inch);
  EXPECT_EQ(settings.poly, 1);
  EXPECT_EQ(settings.blocks, 2);
  EXPECT_EQ(load("unit=x").unit, base::Unit::Mic);
  EXPECT_EQ(load("unit=4").unit, base::Unit::None);
  EXPECT_EQ(load("poly=-1").poly, kNoChoice);
}

TEST_F(SettingsTest, AScaleOfZeroOrWithoutANumberShowsOne) {
  EXPECT_EQ(load("scale=0").scale, "1.000");
  EXPECT_EQ(load("scale=0,5").scale, "1.000");
  EXPECT_EQ(load("scale=abc").scale, "1.000");
  EXPECT_EQ(load("scale=").scale, "1.000");
}

TEST_F(SettingsTest, AnyOtherScaleIsKeptAsTyped) {
  EXPECT_EQ(load("scale=2.50").scale, "2.50");
  EXPECT_EQ(load("scale=2,5").scale, "2,5");
  EXPECT_EQ(load("scale=-1").scale, "-1");
}

TEST_F(SettingsTest, ALayerIsSelectedWhenTheListHoldsExactlyThatText) {
  EXPECT_EQ(load("layer=16 Bottom (B)").layer, "16 Bottom (B)");
  EXPECT_EQ(load("layer=1  Top (B)").layer, "1  Top (B)");
  EXPECT_EQ(load("layer=16 bottom (b)").layer, "20 Dimension (B)");
  EXPECT_EQ(load("layer=16").layer, "20 Dimension (B)");
  EXPECT_EQ(load("brd=1\r\nlayer=16 Bottom (B)").layer, "94 Symbols (S)");
  EXPECT_EQ(load("brd=1\r\nlayer=91 Nets (S)").layer, "91 Nets (S)");
}

TEST_F(SettingsTest, ALayerBeyond255IsIgnored) {
  EXPECT_EQ(load("layer=300").layer, "20 Dimension (B)");
  EXPECT_EQ(load("layer=999 unconverted").layer, "20 Dimension (B)");
  EXPECT_EQ(load("layer=255 Userdefined").layer, "255 Userdefined");
  EXPECT_EQ(load("layer=\" Nutzerdefiniert\"").layer, "20 Dimension (B)");
}

TEST_F(SettingsTest, SwitchesAreOnForEveryNumberButZero) {
  const Settings on = load("dotted=1\r\nellipses=2\r\narc2line=-1\r\n");
  EXPECT_TRUE(on.dotted && on.ellipses && on.arcToLine);
  const Settings off = load("dotted=0\r\nellipses=x\r\narc2line=\r\n");
  EXPECT_FALSE(off.dotted || off.ellipses || off.arcToLine);
}

TEST_F(SettingsTest, TheReportIsOnUnlessItWasSwitchedOff) {
  EXPECT_TRUE(load("report=").report);
  EXPECT_TRUE(load("report=1").report);
  EXPECT_FALSE(load("report=0").report);
  EXPECT_FALSE(load("report=x").report);
}

TEST_F(SettingsTest, ThePolylineWidthIsReadButNeverSaved) {
  const Settings settings = load("polywidth=0.25");
  EXPECT_EQ(settings.PolyWidth, 0.25);
  folder.write("larkspur.ini", "");
  EXPECT_TRUE(SaveSettings(store, settings));
  EXPECT_EQ(folder.read("larkspur.ini").find("polywidth"), std::string::npos);
}

TEST_F(SettingsTest, OptionsOfTheCommandLineReplaceTheFile) {
  const Settings settings = load(
      "dxffile=A\r\nscr=B\r\nlayerfile=C\r\nbrdsch=D\r\nbrd=0\r\nversion=0\r\nunit=0\r\n"
      "scale=3\r\nlayer=1  Top (B)\r\n",
      "/x:a.dxf /s:b.scr /d:c.lay /b:name /o:p /v:4 /u:mm /f:2.5 /l:16 BOTTOM (B)");
  EXPECT_EQ(settings.dxfFile, "a.dxf");
  EXPECT_EQ(settings.scriptFile, "b.scr");
  EXPECT_EQ(settings.layerFile, "c.lay");
  EXPECT_EQ(settings.drawingName, "name");
  EXPECT_EQ(settings.targetKind, convert::kPackage);
  EXPECT_EQ(settings.version, 1);
  EXPECT_EQ(settings.unit, base::Unit::Mm);
  EXPECT_EQ(settings.scale, "2.5");
  EXPECT_EQ(settings.layer, "16 Bottom (B)");
}

TEST_F(SettingsTest, SwitchesOfTheCommandLineReplaceTheFile) {
  const Settings off =
      load("dotted=1\r\nreport=1\r\nellipses=1\r\narc2line=1\r\n", "/t:f /r:f /e:f /a:f");
  EXPECT_FALSE(off.dotted || off.report || off.ellipses || off.arcToLine);
  const Settings on =
      load("dotted=0\r\nreport=0\r\nellipses=0\r\narc2line=0\r\n", "/t:t /r:t /e:t /a:t /p:1 /k:2");
  EXPECT_TRUE(on.dotted && on.report && on.ellipses && on.arcToLine);
  EXPECT_EQ(on.poly, 1);
  EXPECT_EQ(on.blocks, 2);
}

TEST_F(SettingsTest, OptionsGoThroughTheSameLoadingRules) {
  EXPECT_EQ(load("", "/x:").dxfFile, "C:\\*.DXF");
  EXPECT_EQ(load("brdsch=D", "/b:").drawingName, "");
  EXPECT_EQ(load("layer=1  Top (B)", "/l:none").layer, "20 Dimension (B)");
  EXPECT_EQ(load("", "/l:999 unconverted").layer, "20 Dimension (B)");
  EXPECT_EQ(load("unit=0", "/u:yard").unit, base::Unit::Inch);
  EXPECT_EQ(load("", "/p:7").poly, kNoChoice);
}

TEST_F(SettingsTest, AScaleOfZeroOnTheCommandLineReachesTheConversion) {
  for (const char* const item : {"/f:0", "/f:abc", "/f:0,5", "/f:"}) {
    const Settings settings = load("scale=3", item);
    EXPECT_EQ(settings.scale, "0") << item;
    EXPECT_EQ(jobOf(settings, CommandLine{}).scale, 0.0) << item;
  }
}

TEST_F(SettingsTest, AnOptionGivenTwiceTakesTheNextKeyFromTheCommandLine) {
  const Settings settings = load("dxffile=A\r\nscr=B\r\n", "/x:a.dxf /x:b.dxf");
  EXPECT_EQ(settings.dxfFile, "A");
  EXPECT_EQ(settings.scriptFile, "C:\\CONVERS.SCR");  // the command line has an empty text for it
}

TEST_F(SettingsTest, WarnsOfNumbersThatAreFollowedBySomethingElse) {
  const auto counted = [](const std::string& name, const std::string& number) {
    return name + " counts as " + number +
           ", because something follows that is not part of a number. Please correct the number; "
           "the decimal sign is a point.";
  };
  EXPECT_EQ(warnings("brd=1x\r\nversion=\r\nunit=mm\r\nscale=2,5\r\ndotted=yes\r\n"
                     "polywidth=0,2\r\nlayer=16 Bottom (B)\r\npoly=1\r\nblocks= 2 \r\n"),
            (std::vector<std::string>{counted("larkspur.ini, brd: \"1x\"", "1"),
                                      counted("larkspur.ini, unit: \"mm\"", "0"),
                                      counted("larkspur.ini, scale: \"2,5\"", "2"),
                                      counted("larkspur.ini, dotted: \"yes\"", "0"),
                                      counted("larkspur.ini, polywidth: \"0,2\"", "0")}));
  EXPECT_EQ(warnings("scale=0,5\r\n"),
            std::vector<std::string>{counted("larkspur.ini, scale: \"0,5\"", "1.000")});
}

TEST_F(SettingsTest, WarnsOfValuesThatOptionsOfTheExactRulesCannotHave) {
  const auto refused = [](const std::string& text, const std::string& used) {
    return "larkspur.ini, " + text + " is not a possible value; \"" + used +
           "\" is used instead. Please correct it: words are in lower case, numbers have a "
           "decimal point.";
  };
  EXPECT_EQ(warnings("drawingunit=cubit\r\nlinewidth=0,2\r\ntolerance=0,01\r\njoin=2\r\n"
                     "hatch=Solid\r\npoints=hole\r\nholediameters=6\r\nclosedasareas=yes\r\n"
                     "dropduplicates=no\r\n"),
            (std::vector<std::string>{
                refused("drawingunit: \"cubit\"", "auto"), refused("linewidth: \"0,2\"", "0"),
                refused("tolerance: \"0,01\"", "0.001"), refused("join: \"2\"", "0.01"),
                refused("hatch: \"Solid\"", "lines"), refused("points: \"hole\"", "glyph"),
                refused("holediameters: \"6\"", "0.2..6.5"), refused("closedasareas: \"yes\"", "0"),
                refused("dropduplicates: \"no\"", "1")}));
  EXPECT_EQ(warnings("scale=2,5\r\nhatch=2\r\n").size(), 2U);
  EXPECT_TRUE(warnings("drawingunit=inch\r\nlinewidth= 0.2 \r\nhatch=solid\r\nhidden=1\r\n"
                       "holes=A,B\r\ndropduplicates=0\r\n")
                  .empty());
}

TEST_F(SettingsTest, WarnsOfTheNumbersThatAreUsed) {
  const std::vector<std::string> all = warnings("scale=2,5\r\npoly=1,\r\n", "/f:3,5 /k:1");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_TRUE(all[0].starts_with("larkspur.ini, poly: \"1,\" counts as 1,")) << all[0];
  EXPECT_TRUE(all[1].starts_with("/f: \"3,5\" counts as 3,")) << all[1];
}

TEST_F(SettingsTest, WarnsOfFieldsOfTheWindow) {
  Settings settings;
  settings.scale = "1,5";
  settings.offsetX = "2 mm";
  settings.offsetY = "x";
  std::vector<std::string> names;
  for (const convert::Message& warning : fieldWarnings(settings, english)) {
    EXPECT_EQ(warning.kind, convert::MessageKind::Warning);
    names.push_back(warning.text.substr(0, warning.text.find(", because")));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"Scaling: \"1,5\" counts as 1",
                                             "Offset X: \"2 mm\" counts as 2",
                                             "Offset Y: \"x\" counts as 0"}));
  EXPECT_TRUE(fieldWarnings({}, english).empty());
}

TEST_F(SettingsTest, SavesTheKeysInTheirOrder) {
  Settings settings;
  selectTarget(settings, convert::kBoard, english);
  EXPECT_TRUE(SaveSettings(store, settings));
  EXPECT_EQ(folder.read("larkspur.ini"),
            "[dxf]\r\ndxffile=C:\\*.DXF\r\nscr=C:\\CONVERS.SCR\r\nlayerfile=\r\nbrdsch=CONVERS\r\n"
            "brd=0\r\nversion=1\r\nunit=2\r\nscale=1.000\r\nlayer=20 Dimension (B)\r\ndotted=0\r\n"
            "report=1\r\nellipses=0\r\narc2line=0\r\npoly=2\r\nblocks=0\r\n");
}

TEST_F(SettingsTest, ReadsBackWhatItSaved) {
  Settings settings;
  selectTarget(settings, convert::kSchematic, english);
  settings.dxfFile = "D:\\Gerät.dxf";
  settings.layer = "91 Nets (S)";
  settings.version = 0;
  settings.unit = base::Unit::Inch;
  settings.scale = "2,50";
  settings.dotted = settings.ellipses = settings.arcToLine = true;
  settings.report = false;
  settings.poly = 0;
  settings.blocks = 2;
  EXPECT_TRUE(SaveSettings(store, settings));
  const Settings loaded = LoadSettings(store, CommandLine{}, english);
  EXPECT_EQ(loaded.dxfFile, settings.dxfFile);
  EXPECT_EQ(loaded.targetKind, convert::kSchematic);
  EXPECT_EQ(loaded.layer, settings.layer);
  EXPECT_EQ(loaded.version, 0);
  EXPECT_EQ(loaded.unit, base::Unit::Inch);
  EXPECT_EQ(loaded.scale, "2,50");
  EXPECT_TRUE(loaded.dotted && loaded.ellipses && loaded.arcToLine);
  EXPECT_FALSE(loaded.report);
  EXPECT_EQ(loaded.poly, 0);
  EXPECT_EQ(loaded.blocks, 2);
}

TEST_F(SettingsTest, WarnsOfTextsThatAreNotReadBackAsTheyWereSaved) {
  Settings settings;
  settings.dxfFile = std::string(254, 'd');
  settings.exact.holeLayers = {std::string(200, 'a'), "B"};
  EXPECT_TRUE(savingWarnings(settings, english).empty());
  settings.scriptFile = std::string(255, 's');
  settings.exact.holeLayers.emplace_back(100, 'c');
  const std::vector<convert::Message> warnings = savingWarnings(settings, english);
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(warnings[0].kind, convert::MessageKind::Warning);
  EXPECT_EQ(
      warnings[0].text,
      "larkspur.ini, scr: the next start has only the first 254 characters of this text, with "
      "question marks for those that the file cannot store.");
  EXPECT_TRUE(warnings[1].text.starts_with("larkspur.ini, holes: ")) << warnings[1].text;
  EXPECT_TRUE(SaveSettings(store, settings));
  EXPECT_EQ(LoadSettings(store, CommandLine{}, english).scriptFile, std::string(254, 's'));
}

TEST_F(SettingsTest, SavingSaysWhenItFailed) {
  const SettingsStore nowhere{folder.write("file", "")};
  EXPECT_FALSE(SaveSettings(nowhere, Settings{}));
  EXPECT_FALSE(saveLanguage(nowhere, texts::kEnglish));
}

TEST_F(SettingsTest, TheLanguageIsKeptInTheCommonSection) {
  EXPECT_TRUE(saveLanguage(store, texts::kEnglish));
  EXPECT_EQ(folder.read("larkspur.ini"), "[global]\r\nlanguage=10000\r\n");
  EXPECT_EQ(loadLanguage(store), 10000);
  folder.write("larkspur.ini", "[global]\nlanguage=5\n");
  EXPECT_EQ(loadLanguage(store), 5);
  folder.write("larkspur.ini", "[global]\nlanguage=99999\n");
  EXPECT_EQ(loadLanguage(store), 0);
}

TEST_F(SettingsTest, TheJobHoldsTheNumbersOfTheTexts) {
  Settings settings = load("scale=2,5\r\npolywidth=0.2\r\nlayer=16 Bottom (B)\r\n", "/w:a");
  settings.offsetX = "1.5";
  settings.offsetY = "-2 mm";
  const convert::ConversionJob job = jobOf(settings, parseCommandLine("/w:a"));
  EXPECT_EQ(job.scale, 2.0);
  EXPECT_EQ(job.scaleText, "2,5");
  EXPECT_EQ(job.offsetX, 1.5);
  EXPECT_EQ(job.offsetY, -2.0);
  EXPECT_EQ(job.polyWidth, 0.2);
  EXPECT_EQ(job.defaultLayer, "16 Bottom (B)");
  EXPECT_TRUE(job.overwriteScript);
  EXPECT_FALSE(jobOf(settings, CommandLine{}).overwriteScript);
}

TEST_F(SettingsTest, WithoutDrivesAScriptThatWasNotChosenGoesBesideTheDrawing) {
  Settings settings;
  EXPECT_EQ(jobOf(settings, CommandLine{}).scriptBesideDrawing, !pathsHaveDrives());
  settings.scriptFile = "out.scr";
  EXPECT_FALSE(jobOf(settings, CommandLine{}).scriptBesideDrawing);
}

TEST_F(SettingsTest, AFileNameThatIsNotUtf8DoesNotSpoilOtherTexts) {
  Settings settings = load("layerfile=C:\\\xC3\x84.LAY\r\n");
  settings.dxfFile = "caf\xE9.dxf";
  EXPECT_TRUE(SaveSettings(store, settings));
  const Settings again = LoadSettings(store, CommandLine{}, english);
  EXPECT_EQ(again.layerFile, "C:\\\xC3\x84.LAY");
  EXPECT_EQ(again.dxfFile, "caf\xC3\xA9.dxf");
}

TEST_F(SettingsTest, AFullDiskLeavesTheFileAsItWas) {
  Settings settings = load("unit=3\r\n");
  const std::string before = folder.read("larkspur.ini");
  settings.unit = base::Unit::Mm;
  settings.layerFile = std::string(2000, 'x');
  {
    const testing::FullDisk disk(1000);
    EXPECT_FALSE(SaveSettings(store, settings));
    EXPECT_TRUE(saveLanguage(store, 0));  // there is room for this one
  }
  EXPECT_EQ(folder.read("larkspur.ini"), before + "[global]\r\nlanguage=0\r\n");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(SettingsTest, WithoutAProgramFolderNoFrameFileIsMade) {
  const convert::FrameSource nowhere = surroundingsOf(SettingsStore({}), 0).frame;
  EXPECT_EQ(nowhere.path, "");
  EXPECT_FALSE(nowhere.create);
  const convert::FrameSource here = surroundingsOf(store, 0).frame;
  EXPECT_EQ(here.path, folder.file("quillon.cfh"));
  EXPECT_TRUE(here.create);
}

TEST_F(SettingsTest, TheJobHoldsEveryChoice) {
  const Settings settings = load(
      "dxffile=A\r\nscr=B\r\nlayerfile=C\r\nbrdsch=D\r\nbrd=1\r\nversion=0\r\nunit=3\r\n"
      "dotted=1\r\nellipses=1\r\narc2line=1\r\npoly=1\r\nblocks=2\r\nreport=0\r\n");
  const convert::ConversionJob job = jobOf(settings, CommandLine{});
  EXPECT_EQ(job.dxfFile, "A");
  EXPECT_EQ(job.scriptFile, "B");
  EXPECT_EQ(job.layerFile, "C");
  EXPECT_EQ(job.drawingName, "D");
  EXPECT_EQ(job.targetKind, convert::kSchematic);
  EXPECT_EQ(job.version, 0);
  EXPECT_EQ(job.unit, base::Unit::Inch);
  EXPECT_TRUE(job.dotted && job.ellipses && job.arcToLine);
  EXPECT_EQ(job.poly, 1);
  EXPECT_EQ(job.blocks, 2);
  EXPECT_FALSE(job.report);
}

TEST_F(SettingsTest, BlocksMayBePartsByTheExactRulesToo) {
  const convert::ConversionJob job = jobOf(load("rules=exact\r\nblocks=2\r\n"), CommandLine{});
  EXPECT_EQ(job.rules, convert::Rules::Exact);
  EXPECT_EQ(job.blocks, 2);
}

}  // namespace
}  // namespace quillon::settings

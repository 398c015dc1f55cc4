#include "settings/exact_keys.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace quillon::settings {
namespace {

using testing::TempFolder;

class ExactKeysTest : public ::testing::Test {
 protected:
  Settings load(const std::string& lines) const {
    folder.write("larkspur.ini", "[dxf]\r\n" + lines);
    return load();
  }
  Settings load() const { return LoadSettings(store, convert::CommandLine{}, english); }
  std::string saved(const Settings& settings) const {
    EXPECT_TRUE(SaveSettings(store, settings));
    return folder.read("larkspur.ini");
  }

  TempFolder folder;
  SettingsStore store{folder.path()};
  texts::Texts english{texts::kEnglish};
};

/// Each option at something other than its default.
Settings allChosen() {
  Settings settings;
  settings.rules = kExactRules;
  settings.drawingUnit = convert::DrawingUnit::Inch;
  exact::Options& options = settings.exact;
  options.lineWidth = 0.2;
  options.fillWidth = 0.1;
  options.curveTolerance = 0.01;
  options.joinTolerance = 0.0;
  options.space = exact::Space::Both;
  options.hatch = exact::HatchStyle::Solid;
  options.lineTypes = exact::LineTypes::Dashes;
  options.wideLines = exact::WideLines::Wires;
  options.place = exact::Place::LowerLeft;
  options.points = exact::PointStyle::Hole;
  options.pointDrill = 0.8;
  options.holeLayers = {"DRILL", "NON PLATED"};
  options.holeLeast = 0.5;
  options.holeMost = 3.2;
  options.hiddenLayers = true;
  options.lineWeights = true;
  options.closedAsAreas = true;
  options.fillAlways = true;
  options.plainLetters = true;
  options.dropDuplicates = false;
  return settings;
}

TEST_F(ExactKeysTest, WhatIsSavedIsLoadedAgain) {
  const Settings chosen = allChosen();
  saved(chosen);
  const Settings loaded = load();
  EXPECT_EQ(loaded.rules, kExactRules);
  EXPECT_EQ(loaded.drawingUnit, chosen.drawingUnit);
  EXPECT_EQ(loaded.exact, chosen.exact);
}

TEST_F(ExactKeysTest, AFileHasTheWordsOfTheCommandLine) {
  const std::string file = saved(allChosen());
  for (const char* const line :
       {"rules=exact", "drawingunit=inch", "linewidth=0.2", "tolerance=0.01", "join=0",
        "space=both", "hatch=solid", "linetypes=dashes", "widelines=wires", "place=lower-left",
        "points=hole:0.8", "holes=DRILL,NON PLATED", "holediameters=0.5..3.2", "hidden=1",
        "dropduplicates=0"}) {
    EXPECT_NE(file.find(std::string(line) + "\r\n"), std::string::npos) << line << "\n" << file;
  }
}

TEST_F(ExactKeysTest, DefaultsAreSavedOnlyOverWhatTheFileHas) {
  EXPECT_EQ(exactEntries(Settings{}, [](std::string_view) { return std::string(); }).size(), 0U);
  saved(allChosen());
  saved(Settings{});
  EXPECT_EQ(load().exact, exact::Options{});
  EXPECT_EQ(load().drawingUnit, convert::DrawingUnit::Auto);
}

TEST_F(ExactKeysTest, TextsThatAreNoneOfTheChoicesLeaveTheDefaults) {
  const Settings settings = load(
      "drawingunit=cubit\r\nlinewidth=-1\r\nfillwidth=1e7\r\ntolerance=0\r\njoin=2\r\n"
      "space=Model\r\nhatch=2\r\nlinetypes=\"\"\r\nwidelines=x\r\nplace=center\r\npoints=hole\r\n"
      "holediameters=6\r\nhidden=yes\r\n");
  EXPECT_EQ(settings.drawingUnit, convert::DrawingUnit::Auto);
  EXPECT_EQ(settings.exact, exact::Options{});
}

TEST_F(ExactKeysTest, ASwitchIsAnyNumberAndOffOnlyWithZero) {
  EXPECT_TRUE(load("hidden=2\r\n").exact.hiddenLayers);
  EXPECT_TRUE(load("hidden=-1\r\n").exact.hiddenLayers);
  EXPECT_FALSE(load("hidden=0.0\r\n").exact.hiddenLayers);
  EXPECT_TRUE(load("dropduplicates=no\r\n").exact.dropDuplicates);
  EXPECT_FALSE(load("dropduplicates=0\r\n").exact.dropDuplicates);
}

TEST_F(ExactKeysTest, NumbersMayBeFollowedByNothing) {
  EXPECT_EQ(load("linewidth=0.2mm\r\n").exact.lineWidth, 0.0);
  EXPECT_EQ(load("linewidth= 0.2 \r\n").exact.lineWidth, 0.2);
}

}  // namespace
}  // namespace quillon::settings

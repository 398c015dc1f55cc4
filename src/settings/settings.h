#pragma once

#include <string>
#include <vector>

#include "convert/command_line.h"
#include "convert/driver.h"
#include "convert/job.h"
#include "settings/settings_store.h"
#include "texts/string_table.h"

namespace quillon::settings {

/// Target kind when none of the four is selected.
inline constexpr int kNoTarget = 4;
/// Index in a list without a selection.
inline constexpr int kNoChoice = -1;

/// The scale shown when the file has none, or 0.
inline constexpr const char* kScaleInPlaceOfZero = "1.000";

/// The settings' word for the exact rules, and for the others.
inline constexpr const char* kExactRules = "exact";
inline constexpr const char* kClassicRules = "classic";

/// The state of the main window's controls. The defaults are those of a window before it loads.
struct Settings {
  std::string dxfFile = "C:\\*.DXF";
  std::string scriptFile = "C:\\CONVERS.SCR";
  std::string layerFile;
  std::string drawingName = "CONVERS";
  int targetKind = convert::kBoard;  ///< or kNoTarget
  int version = convert::kEagle4;
  /// kExactRules; anything else for the classic rules. "" where nobody has chosen, which is not
  /// saved.
  std::string rules;
  base::Unit unit = base::Unit::Mil;
  std::string scale = kScaleInPlaceOfZero;
  std::string layer;  ///< the selected entry of the target's layer list; "" for none
  bool dotted = false;
  bool report = true;
  bool ellipses = false;
  bool arcToLine = false;
  int poly = 2;
  int blocks = convert::kDrawBlocks;
  bool blocksEnabled = true;  ///< block handling can only be chosen for boards and schematics
  double PolyWidth = 0.0;  ///< read but never saved, so that a value set by hand stays in the file
  /// For the exact rules; for this session, unless they are in the file.
  exact::Options exact;
  convert::DrawingUnit drawingUnit = convert::DrawingUnit::Auto;
  std::string offsetX;  ///< for this session only
  std::string offsetY;

  bool operator==(const Settings&) const = default;
};

/// The standard layers to choose from for a target; none for kNoTarget.
std::vector<std::string> layersOf(int targetKind, const texts::Texts& texts);

/// Selects a target as a click on its option does: loads its layer list with the default selected;
/// packages and symbols always have their blocks drawn in place.
void selectTarget(Settings& settings, int targetKind, const texts::Texts& texts);

/// The language offset in the settings file: 0 German, 10000 English; other numbers are returned as
/// they are.
int loadLanguage(const SettingsStore& store);
bool saveLanguage(const SettingsStore& store, int languageOffset);

/// Loads the settings in order; options on the command line take precedence, each by its own rule.
Settings LoadSettings(const SettingsStore& store, const convert::CommandLine& commandLine,
                      const texts::Texts& texts);

/// Warnings about numbers in the file and on the command line that are followed by something else,
/// and about values in the file that options of the exact rules cannot have; to be shown before the
/// settings are used.
std::vector<convert::Message> loadingWarnings(const SettingsStore& store,
                                              const convert::CommandLine& commandLine,
                                              const texts::Texts& texts);

/// The same for the window's numeric fields.
std::vector<convert::Message> fieldWarnings(const Settings& settings, const texts::Texts& texts);

/// Saves all settings. False on failure: then none is saved, but on Windows perhaps some.
bool SaveSettings(const SettingsStore& store, const Settings& settings);

/// Warnings about texts that are saved, but are loaded differently: those that are too long, or
/// have characters that the file cannot store.
std::vector<convert::Message> savingWarnings(const Settings& settings, const texts::Texts& texts);

/// True on systems whose paths may start with a drive.
bool pathsHaveDrives();

/// True where no script has been chosen and the initial path starts with a drive, but paths have no
/// drives: it would be a file in the current folder. The script then goes beside the drawing.
bool scriptBesideDrawing(const Settings& settings);

/// What the program adds to its jobs: the language, and the frame file of its folder (if it has
/// one), which is created when missing.
convert::Surroundings surroundingsOf(const SettingsStore& store, int languageOffset);

/// Builds the job from the settings.
convert::ConversionJob jobOf(const Settings& settings, const convert::CommandLine& commandLine);

}  // namespace quillon::settings

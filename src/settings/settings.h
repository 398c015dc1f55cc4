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
/// Index of a list in which nothing is selected.
inline constexpr int kNoChoice = -1;

/// The scale that is shown where the file has none, or one of 0.
inline constexpr const char* kScaleInPlaceOfZero = "1.000";

/// What the main window's controls show. The defaults are those of a window before it loads.
struct Settings {
  std::string dxfFile = "C:\\*.DXF";
  std::string scriptFile = "C:\\CONVERS.SCR";
  std::string layerFile;
  std::string drawingName = "CONVERS";
  int targetKind = convert::kBoard;  ///< or kNoTarget
  int version = 1;
  base::Unit unit = base::Unit::Mil;
  std::string scale = kScaleInPlaceOfZero;
  std::string layer;  ///< the chosen entry of the target's layer list; "" when there is none
  bool dotted = false;
  bool report = true;
  bool ellipses = false;
  bool arcToLine = false;
  int poly = 2;
  int blocks = convert::kDrawBlocks;
  bool blocksEnabled = true;  ///< block handling can be chosen for boards and schematics alone
  double PolyWidth = 0.0;     ///< read but never saved, as intended
  std::string offsetX;        ///< of this session only
  std::string offsetY;
};

/// Entries of the list of standard layers for a target; none for kNoTarget.
std::vector<std::string> layersOf(int targetKind, const texts::Texts& texts);

/// Chooses a target as a click on its option does: its layer list with the usual choice; a package
/// and a symbol have blocks drawn in place.
void selectTarget(Settings& settings, int targetKind, const texts::Texts& texts);

/// The language offset of the settings file: 0 German, 10000 English; other numbers as they stand.
int loadLanguage(const SettingsStore& store);
bool saveLanguage(const SettingsStore& store, int languageOffset);

/// Loads the settings in their order, options of the command line first, each by its own rule.
Settings LoadSettings(const SettingsStore& store, const convert::CommandLine& commandLine,
                      const texts::Texts& texts);

/// What is to be told about the settings before they are used: numbers in the file and on the
/// command line that are followed by something else.
std::vector<convert::Message> loadingWarnings(const SettingsStore& store,
                                              const convert::CommandLine& commandLine,
                                              const texts::Texts& texts);

/// The same for the fields of the window that hold numbers.
std::vector<convert::Message> fieldWarnings(const Settings& settings, const texts::Texts& texts);

/// Saves the settings, all of them or none. False when that failed.
bool SaveSettings(const SettingsStore& store, const Settings& settings);

/// True on a system whose paths may begin with a drive.
bool pathsHaveDrives();

/// True where no script has been chosen and its initial path, which has a drive, would name a file
/// in the current folder, since paths have no drives. The script goes beside the drawing then.
bool scriptBesideDrawing(const Settings& settings);

/// What the program adds to its jobs: the language, and the frame file of its folder, if it has
/// one, which is made when it is missing.
convert::Surroundings surroundingsOf(const SettingsStore& store, int languageOffset);

/// The job that the settings describe.
convert::ConversionJob jobOf(const Settings& settings, const convert::CommandLine& commandLine);

}  // namespace quillon::settings

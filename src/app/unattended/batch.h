#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"

namespace quillon::unattended {

/// One conversion of a batch, with exact paths.
struct BatchFile {
  std::string dxfFile;
  std::string scriptFile;
  std::string sameScriptAs = {};  ///< an earlier drawing with this script; prevents a conversion
};

/// A folder in the settings that does not exist.
struct MissingFolder {
  std::string folder;
  std::string item;  ///< the command-line item that sets it; "" when no folder is missing
};

struct Batch {
  std::string folder;  ///< of the drawings
  MissingFolder missing;
  std::vector<BatchFile> files;
  std::vector<std::string> leftOut;  ///< pipes and devices named like drawings
  int reason = 0;                    ///< why the folder cannot be listed (errno), or 0
};

/// The drawings ("*.dxf", ignoring case) in the folder of the drawing in the settings, in the
/// system's order; scripts go into the folder of the script in the settings. Either path may also
/// be just a folder. No drawings if the folder is missing.
Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store);

}  // namespace quillon::unattended

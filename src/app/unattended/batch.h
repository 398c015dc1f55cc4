#pragma once

#include <string>
#include <vector>

#include "settings/settings.h"

namespace quillon::unattended {

/// One conversion of a batch, with exact paths.
struct BatchFile {
  std::string dxfFile;
  std::string scriptFile;
  std::string sameScriptAs = {};  ///< a drawing before it has that script: it cannot be converted
};

/// A folder that the settings name and that does not exist.
struct MissingFolder {
  std::string folder;
  std::string item;  ///< of the command line, which sets it; "" for no missing folder
};

struct Batch {
  std::string folder;  ///< of the drawings
  MissingFolder missing;
  std::vector<BatchFile> files;
  std::vector<std::string> leftOut;  ///< pipes and devices named like drawings
  int reason = 0;                    ///< why the folder cannot be listed (errno), or 0
};

/// The drawings ("*.dxf", whatever the case) beside the one in the settings, in the order in which
/// the system lists them; scripts go into the folder of the script in the settings. Either of the
/// two may name its folder alone. A folder that is missing gives no drawings.
Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store);

}  // namespace quillon::unattended

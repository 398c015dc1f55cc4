#pragma once

#include <string>
#include <vector>

#include "ui/settings/settings.h"

namespace quillon::unattended {

/// One conversion of a batch, with exact paths.
struct BatchFile {
  std::string dxfFile;
  std::string scriptFile;
};

struct Batch {
  std::string folder;  ///< of the drawings
  std::vector<BatchFile> files;
  int reason = 0;  ///< why the folder cannot be listed (errno), or 0
};

/// The drawings ("*.dxf", whatever the case) beside the one in the settings, in the order in which
/// the system lists them; scripts go into the folder of the script in the settings.
Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store);

}  // namespace quillon::unattended

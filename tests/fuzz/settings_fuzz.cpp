// Any bytes are a settings file, and any text a command line that overrides it: the settings stay
// within their ranges, and saving them does not change other sections.
#include <algorithm>
#include <string>
#include <string_view>

#include "convert/command_line.h"
#include "files/ini_file.h"
#include "files/paths.h"
#include "memory_folder.h"
#include "parts.h"
#include "run_once.h"
#include "settings/profile_text.h"
#include "settings/settings.h"

namespace {

using quillon::fuzz::require;
using quillon::settings::Settings;

bool within(int value, int least, int most) { return value >= least && value <= most; }

void checkRanges(const Settings& settings, const quillon::texts::Texts& texts) {
  require(within(settings.targetKind, 0, quillon::settings::kNoTarget), "the target is one");
  require(within(settings.version, -1, 2), "the version is one");
  require(within(static_cast<int>(settings.unit), -1, 3), "the unit is one");
  require(within(settings.poly, -1, 2) && within(settings.blocks, -1, 2),
          "the lists have 3 entries");
  require(!settings.scale.empty(), "there is a scale");
  const auto layers = quillon::settings::layersOf(settings.targetKind, texts);
  require(settings.layer.empty() ||
              std::find(layers.begin(), layers.end(), settings.layer) != layers.end(),
          "the layer is an entry of its list");
}

}  // namespace

void quillon::fuzz::runOnce(std::string_view data) {
  static const quillon::fuzz::MemoryFolder folder;
  const auto line = quillon::convert::parseCommandLine(quillon::fuzz::takePart(data));
  const std::string path = folder.write("larkspur.ini", data);
  const quillon::settings::SettingsStore store(folder.path());
  const quillon::texts::Texts texts(quillon::settings::loadLanguage(store));

  const Settings settings = quillon::settings::LoadSettings(store, line, texts);
  checkRanges(settings, texts);
  const quillon::convert::ConversionJob job = quillon::settings::jobOf(settings, line);
  require(job.scaleText == settings.scale, "the job has the settings' scale");

  const quillon::files::IniFile before(quillon::settings::decodeProfile(data));
  require(quillon::settings::SaveSettings(store, settings), "settings can be saved");
  const std::string saved = quillon::files::readFile(path);
  const quillon::files::IniFile after(quillon::settings::decodeProfile(saved));
  for (const char* const section : {"global", "1", "window"}) {
    for (const char* const key : {"language", "layername", "dxffile"}) {
      require(after.wholeValue(section, key) == before.wholeValue(section, key),
              "other sections stay");
    }
  }
  const Settings again = quillon::settings::LoadSettings(store, {}, texts);
  checkRanges(again, texts);
  require(again.targetKind == settings.targetKind && again.dotted == settings.dotted &&
              again.ellipses == settings.ellipses && again.arcToLine == settings.arcToLine &&
              again.report == settings.report && again.layer == settings.layer &&
              again.unit == settings.unit && again.version == settings.version,
          "choices are read as they were saved");
}

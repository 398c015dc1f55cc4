#include "settings/settings.h"

#include <algorithm>
#include <optional>

#include "base/encoding.h"
#include "base/number_text.h"
#include "files/paths.h"
#include "files/program_folder.h"
#include "settings/exact_keys.h"
#include "texts/layer_lists.h"

namespace quillon::settings {
namespace {

using convert::CommandLine;
using Option = convert::CommandLineOption;

constexpr std::string_view kSection = "dxf";
constexpr std::string_view kCommonSection = "global";
constexpr std::string_view kLanguageKey = "language";

constexpr std::string_view kScaleKey = "scale";

constexpr int kVersions = 3;
constexpr int kPolyChoices = 3;
constexpr int kBlockChoices = 3;

std::string digit(bool on) { return on ? "1" : "0"; }

/// The number in a text as an index below `count`, or `none`.
int indexOf(std::string_view text, int count, int none = kNoChoice) {
  bool fits = false;
  const int index = base::roundedInteger16(base::numberValue(text), fits);
  return fits && index >= 0 && index < count ? index : none;
}

bool isOn(std::string_view text) { return base::numberValue(text) != 0.0; }

std::string unitIndex(std::string_view word) {
  const base::Unit unit = base::unitOfWord(word);
  return std::to_string(static_cast<int>(unit == base::Unit::None ? base::Unit::Inch : unit));
}

/// Looks up the texts of settings: from the command line if the option is given there, otherwise
/// from the file.
class Source {
 public:
  Source(const SettingsStore& store, const CommandLine& line) : store_(store), line_(line) {}

  /// `own` is the command line's text for this key.
  std::string operator()(std::string_view key, Option option, std::string own) const {
    return line_.given(option) ? std::move(own) : store_.ReadIni(kSection, key);
  }
  std::string operator()(std::string_view key) const { return store_.ReadIni(kSection, key); }

 private:
  const SettingsStore& store_;
  const CommandLine& line_;
};

void setIfAny(std::string& field, std::string text) {
  if (!text.empty()) field = std::move(text);
}

void setIfAny(int& index, std::string_view text, int count) {
  if (!text.empty()) index = indexOf(text, count);
}

/// Selects the first entry equal to the text, which the command line has converted to lower case.
void selectLayer(Settings& settings, const std::string& text, const texts::Texts& texts) {
  const double number = base::numberValue(text);
  if (!(number > 0.0 && number < 256.0)) return;
  const std::vector<std::string> entries = layersOf(settings.targetKind, texts);
  const auto found = std::find(entries.begin(), entries.end(), text);
  if (found != entries.end()) settings.layer = *found;
}

void selectLowerCasedLayer(Settings& settings, const std::string& text, const texts::Texts& texts) {
  for (const std::string& entry : layersOf(settings.targetKind, texts)) {
    if (base::lowerCase(entry) != text) continue;
    selectLayer(settings, entry, texts);
    return;
  }
}

void loadFiles(Settings& settings, const Source& text, const CommandLine& line) {
  setIfAny(settings.dxfFile, text("dxffile", Option::DxfFile, line.dxfFile));
  setIfAny(settings.scriptFile, text("scr", Option::ScriptFile, line.scriptFile));
  setIfAny(settings.layerFile, text("layerfile", Option::LayerFile, line.layerFile));
  // Unlike an empty path, an empty name counts.
  settings.drawingName = text("brdsch", Option::DrawingName, line.drawingName);
}

void loadTarget(Settings& settings, const Source& text, const CommandLine& line,
                const texts::Texts& texts) {
  const std::string kind = text("brd", Option::TargetKind, std::to_string(line.targetKind));
  selectTarget(settings, indexOf(kind, kNoTarget, kNoTarget), texts);
  const std::string version = text("version", Option::Version, std::to_string(line.version));
  settings.version = version.empty() ? 1 : indexOf(version, kVersions);
  settings.rules = text("rules", Option::Rules, line.rules);
  const std::string unit = text("unit", Option::Unit, unitIndex(line.unit));
  if (!unit.empty()) settings.unit = base::unitAt(indexOf(unit, base::kUnitCount));
  const std::string scale = text(kScaleKey, Option::Scale, base::numberText(line.scale));
  // The conversion refuses a scale of 0 from the command line; one in the file is shown as 1.
  const bool replaced = base::numberValue(scale) == 0.0 && !line.given(Option::Scale);
  settings.scale = replaced ? kScaleInPlaceOfZero : scale;
  if (line.given(Option::Layer)) {
    selectLowerCasedLayer(settings, line.layer, texts);
  } else {
    selectLayer(settings, text("layer"), texts);
  }
}

void loadSwitches(Settings& settings, const Source& text, const CommandLine& line) {
  settings.dotted = isOn(text("dotted", Option::Dotted, digit(line.dotted)));
  // Unlike the other switches, the report is on by default.
  const std::string report = text("report", Option::Report, digit(line.report));
  settings.report = report.empty() || isOn(report);
  settings.PolyWidth = base::numberValue(text("polywidth"));
  settings.ellipses = isOn(text("ellipses", Option::Ellipses, digit(line.ellipses)));
  settings.arcToLine = isOn(text("arc2line", Option::ArcToLine, digit(line.arcToLine)));
  setIfAny(settings.poly, text("poly", Option::Poly, std::to_string(line.poly)), kPolyChoices);
  setIfAny(settings.blocks, text("blocks", Option::Blocks, std::to_string(line.blocks)),
           kBlockChoices);
}

}  // namespace

std::vector<std::string> layersOf(int targetKind, const texts::Texts& texts) {
  switch (targetKind) {
    case convert::kBoard:
    case convert::kPackage:
      return texts::boardLayers(texts);
    case convert::kSchematic:
    case convert::kSymbol:
      return texts::schematicLayers(texts);
    default:
      return {};
  }
}

void selectTarget(Settings& settings, int targetKind, const texts::Texts& texts) {
  settings.targetKind = targetKind;
  const std::vector<std::string> entries = layersOf(targetKind, texts);
  const bool board = targetKind == convert::kBoard || targetKind == convert::kPackage;
  const auto choice =
      static_cast<std::size_t>(board ? texts::kFirstBoardChoice : texts::kFirstSchematicChoice);
  settings.layer = choice < entries.size() ? entries[choice] : "";
  if (targetKind == convert::kBoard || targetKind == convert::kSchematic) {
    settings.blocksEnabled = true;
  } else if (targetKind == convert::kPackage || targetKind == convert::kSymbol) {
    settings.blocksEnabled = false;
    settings.blocks = convert::kDrawBlocks;
  }
}

int loadLanguage(const SettingsStore& store) {
  bool fits = false;
  return base::roundedInteger16(base::numberValue(store.ReadIni(kCommonSection, kLanguageKey)),
                                fits);
}

bool saveLanguage(const SettingsStore& store, int languageOffset) {
  return store.WriteIni(kCommonSection, kLanguageKey, std::to_string(languageOffset));
}

Settings LoadSettings(const SettingsStore& store, const CommandLine& commandLine,
                      const texts::Texts& texts) {
  Settings settings;
  const Source text(store, commandLine);
  loadFiles(settings, text, commandLine);
  loadTarget(settings, text, commandLine, texts);
  loadSwitches(settings, text, commandLine);
  loadExactKeys(settings, text);
  return settings;
}

bool SaveSettings(const SettingsStore& store, const Settings& settings) {
  std::vector<ProfileEntry> entries = {{"dxffile", settings.dxfFile},
                                       {"scr", settings.scriptFile},
                                       {"layerfile", settings.layerFile},
                                       {"brdsch", settings.drawingName},
                                       {"brd", std::to_string(settings.targetKind)},
                                       {"version", std::to_string(settings.version)},
                                       {"unit", std::to_string(static_cast<int>(settings.unit))},
                                       {"scale", settings.scale},
                                       {"layer", settings.layer},
                                       {"dotted", digit(settings.dotted)},
                                       {"report", digit(settings.report)},
                                       {"ellipses", digit(settings.ellipses)},
                                       {"arc2line", digit(settings.arcToLine)},
                                       {"poly", std::to_string(settings.poly)},
                                       {"blocks", std::to_string(settings.blocks)}};
  const std::vector<ProfileEntry> exact = exactEntries(
      settings, [&store](std::string_view key) { return store.ReadIni(kSection, key); });
  entries.insert(entries.end(), exact.begin(), exact.end());
  if (!settings.rules.empty()) entries.push_back({"rules", settings.rules});
  return store.WriteIni(kSection, entries);
}

bool pathsHaveDrives() { return std::filesystem::path("C:").has_root_name(); }

bool scriptBesideDrawing(const Settings& settings) {
  return !pathsHaveDrives() && settings.scriptFile == Settings{}.scriptFile;
}

convert::Surroundings surroundingsOf(const SettingsStore& store, int languageOffset) {
  convert::Surroundings surroundings;
  surroundings.languageOffset = languageOffset;
  // Without a program folder use the default frame, so that no file depends on the current folder.
  if (store.programFolder().empty()) return surroundings;
  surroundings.frame.path = files::fromPath(store.programFolder() / files::kFrameFile);
  surroundings.frame.create = true;
  return surroundings;
}

convert::ConversionJob jobOf(const Settings& settings, const CommandLine& commandLine) {
  convert::ConversionJob job;
  job.dxfFile = settings.dxfFile;
  job.scriptFile = settings.scriptFile;
  job.scriptBesideDrawing = scriptBesideDrawing(settings);
  job.drawingName = settings.drawingName;
  job.targetKind = settings.targetKind;
  job.layerFile = settings.layerFile;
  job.defaultLayer = settings.layer;
  job.version = settings.version;
  job.blocks = settings.blocks;
  if (settings.rules == kExactRules) job.rules = convert::Rules::Exact;
  job.exact = settings.exact;
  if (job.exact.joinTolerance == 0.0) job.exact.chains = false;
  job.drawingUnit = settings.drawingUnit;
  job.unit = settings.unit;
  job.scale = base::numberValue(settings.scale);
  job.scaleText = settings.scale;
  job.dotted = settings.dotted;
  job.ellipses = settings.ellipses;
  job.poly = settings.poly;
  job.report = settings.report;
  job.arcToLine = settings.arcToLine;
  job.offsetX = base::numberValue(settings.offsetX);
  job.offsetY = base::numberValue(settings.offsetY);
  job.polyWidth = settings.PolyWidth;
  job.overwriteScript = commandLine.overwriteScript;
  return job;
}

}  // namespace quillon::settings

#include "web/options.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/number_text.h"
#include "convert/exact_words.h"
#include "settings/exact_keys.h"
#include "web/arrays.h"

namespace quillon::web {
namespace {

using emscripten::val;
using Word = std::string_view;

// In the order in which the settings count them.
constexpr auto kTargets = std::to_array<Word>({"board", "schematic", "package", "symbol"});
constexpr auto kVersions = std::to_array<Word>({"3.5", "4", "6"});
constexpr auto kPolyWords = std::to_array<Word>({"wire0", "wire", "polyline"});
constexpr auto kBlockWords = std::to_array<Word>({"draw", "used", "all"});

template <typename Words>
int indexOf(const Words& words, Word word) {
  const auto found = std::find(words.begin(), words.end(), word);
  return found == words.end() ? 0 : static_cast<int>(found - words.begin());
}

template <typename Words>
std::string wordAt(const Words& words, int index) {
  const bool isThere = index >= 0 && index < static_cast<int>(words.size());
  return std::string(words[isThere ? static_cast<std::size_t>(index) : 0]);
}

std::string textAt(const val& texts, std::string_view key) {
  const val text = texts[std::string(key)];
  return text.isString() ? text.as<std::string>() : std::string();
}

std::vector<std::string> drawingUnits() {
  std::vector<std::string> words;
  const std::string all = convert::drawingUnitWords();
  for (std::size_t start = 0; start < all.size();) {
    const std::size_t stop = std::min(all.find('|', start), all.size());
    words.push_back(all.substr(start, stop - start));
    start = stop + 1;
  }
  return words;
}

}  // namespace

settings::Settings defaultSettings(const texts::Texts& texts) {
  settings::Settings settings;
  settings.rules = settings::kExactRules;
  settings.unit = base::Unit::Mm;
  settings.drawingName.clear();
  settings.report = false;
  settings::selectTarget(settings, convert::kBoard, texts);
  return settings;
}

settings::Settings settingsOf(const Options& options) {
  settings::Settings settings;
  settings.rules = options.rules;
  settings.targetKind = targetOf(options.target);
  settings.version = indexOf(kVersions, options.eagle);
  const base::Unit unit = base::unitOfWord(options.unit);
  settings.unit = unit == base::Unit::None ? base::Unit::Mm : unit;
  settings.scale = options.scale;
  settings.offsetX = options.offsetX;
  settings.offsetY = options.offsetY;
  settings.drawingName = options.name;
  settings.layer = options.layer;
  settings.poly = indexOf(kPolyWords, options.poly);
  settings.PolyWidth = base::numberValue(options.polyWidth);
  settings.blocks = indexOf(kBlockWords, options.blocks);
  settings.dotted = options.dotted;
  settings.ellipses = options.ellipses;
  settings.arcToLine = options.arcToLine;
  settings.report = false;
  settings::loadExactKeys(settings,
                          [&options](std::string_view key) { return textAt(options.exact, key); });
  return settings;
}

Options optionsOf(const settings::Settings& settings) {
  Options options;
  const bool isExact = settings.rules == settings::kExactRules;
  options.rules = isExact ? settings::kExactRules : settings::kClassicRules;
  options.target = wordAt(kTargets, settings.targetKind);
  options.eagle = wordAt(kVersions, settings.version);
  options.unit = base::unitRecord(settings.unit).word;
  options.scale = settings.scale;
  options.offsetX = settings.offsetX;
  options.offsetY = settings.offsetY;
  options.name = settings.drawingName;
  options.layer = settings.layer;
  options.poly = wordAt(kPolyWords, settings.poly);
  options.polyWidth = base::numberText(settings.PolyWidth);
  options.blocks = wordAt(kBlockWords, settings.blocks);
  options.dotted = settings.dotted;
  options.ellipses = settings.ellipses;
  options.arcToLine = settings.arcToLine;
  options.exact = val::object();
  // Keys that are there already are told even where they are at their defaults.
  const auto isThere = [](std::string_view) { return std::string("1"); };
  for (const settings::ProfileEntry& entry : settings::exactEntries(settings, isThere)) {
    options.exact.set(std::string(entry.key), entry.value);
  }
  return options;
}

int targetOf(const std::string& word) { return indexOf(kTargets, word); }

val exactWords() {
  const auto list = [](const auto& words) { return textList({words.begin(), words.end()}); };
  val words = val::object();
  words.set("drawingunit", textList(drawingUnits()));
  words.set("space", list(convert::kSpaceWords));
  words.set("hatch", list(convert::kHatchWords));
  words.set("linetypes", list(convert::kLineTypeWords));
  words.set("widelines", list(convert::kWideLineWords));
  words.set("place", list(convert::kPlaceWords));
  return words;
}

}  // namespace quillon::web

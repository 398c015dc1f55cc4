#include "settings/exact_keys.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/number_text.h"
#include "convert/exact_words.h"

namespace quillon::settings {
namespace {

template <typename Words, typename Choice>
bool setChoice(Choice& choice, std::string_view text, const Words& words) {
  const auto found = std::find(words.begin(), words.end(), text);
  if (found == words.end()) return false;
  choice = static_cast<Choice>(found - words.begin());
  return true;
}

template <typename Words, typename Choice>
std::string wordOfChoice(Choice choice, const Words& words) {
  return std::string(words[static_cast<std::size_t>(choice)]);
}

bool setLength(double& length, std::string_view text, const convert::Range& range) {
  if (!base::isNumber(text)) return false;
  const double number = base::numberValue(text);
  if (!range.has(number)) return false;
  length = number;
  return true;
}

bool setSwitch(bool& isOn, std::string_view text) {
  if (!base::isNumber(text)) return false;
  isOn = base::numberValue(text) != 0.0;
  return true;
}

/// One setting and its text. Setting one that it cannot have changes nothing and returns false.
struct ExactKey {
  std::string_view name;
  std::string (*text)(const Settings&);
  bool (*set)(Settings&, std::string_view);
};

template <bool exact::Options::*kSwitch>
constexpr ExactKey switchKey(std::string_view name) {
  return {name, [](const Settings& s) { return std::string(s.exact.*kSwitch ? "1" : "0"); },
          [](Settings& s, std::string_view text) { return setSwitch(s.exact.*kSwitch, text); }};
}

template <double exact::Options::*kLength, const convert::Range& kRange>
constexpr ExactKey lengthKey(std::string_view name) {
  return {
      name, [](const Settings& s) { return base::numberText(s.exact.*kLength); },
      [](Settings& s, std::string_view text) { return setLength(s.exact.*kLength, text, kRange); }};
}

template <auto kChoice, const auto& kWords>
constexpr ExactKey choiceKey(std::string_view name) {
  return {
      name, [](const Settings& s) { return wordOfChoice(s.exact.*kChoice, kWords); },
      [](Settings& s, std::string_view text) { return setChoice(s.exact.*kChoice, text, kWords); }};
}

using exact::Options;

constexpr auto kKeys = std::to_array<ExactKey>({
    {"drawingunit",
     [](const Settings& s) {
       return std::string(s.drawingUnit == convert::DrawingUnit::Auto
                              ? "auto"
                              : convert::wordOfUnit(convert::millimetresOf(s.drawingUnit)));
     },
     [](Settings& s, std::string_view text) {
       return convert::findDrawingUnit(text, s.drawingUnit);
     }},
    lengthKey<&Options::lineWidth, convert::kWidthRange>("linewidth"),
    lengthKey<&Options::fillWidth, convert::kWidthRange>("fillwidth"),
    lengthKey<&Options::curveTolerance, convert::kToleranceRange>("tolerance"),
    lengthKey<&Options::joinTolerance, convert::kJoinRange>("join"),
    choiceKey<&Options::space, convert::kSpaceWords>("space"),
    choiceKey<&Options::hatch, convert::kHatchWords>("hatch"),
    choiceKey<&Options::lineTypes, convert::kLineTypeWords>("linetypes"),
    choiceKey<&Options::wideLines, convert::kWideLineWords>("widelines"),
    choiceKey<&Options::place, convert::kPlaceWords>("place"),
    {"points", [](const Settings& s) { return convert::pointsText(s.exact); },
     [](Settings& s, std::string_view text) { return convert::setPoints(s.exact, text); }},
    {"holes", [](const Settings& s) { return convert::holeLayersText(s.exact); },
     [](Settings& s, std::string_view text) {
       convert::setHoleLayers(s.exact, text);
       return true;
     }},
    {"holediameters", [](const Settings& s) { return convert::holeDiametersText(s.exact); },
     [](Settings& s, std::string_view text) { return convert::setHoleDiameters(s.exact, text); }},
    switchKey<&Options::hiddenLayers>("hidden"),
    switchKey<&Options::lineWeights>("lineweights"),
    switchKey<&Options::closedAsAreas>("closedasareas"),
    switchKey<&Options::fillAlways>("fillalways"),
    switchKey<&Options::plainLetters>("plainletters"),
    switchKey<&Options::dropDuplicates>("dropduplicates"),
});

}  // namespace

void loadExactKeys(Settings& settings, const KeyReader& read) {
  for (const ExactKey& key : kKeys) {
    const std::string text = read(key.name);
    if (!text.empty()) key.set(settings, text);
  }
}

std::vector<RefusedText> refusedTexts(const KeyReader& read) {
  std::vector<RefusedText> refused;
  Settings settings;
  for (const ExactKey& key : kKeys) {
    std::string text = read(key.name);
    if (text.empty() || key.set(settings, text)) continue;
    refused.push_back({key.name, std::move(text), key.text(settings)});
  }
  return refused;
}

std::vector<ProfileEntry> exactEntries(const Settings& settings, const KeyReader& read) {
  std::vector<ProfileEntry> entries;
  const Settings defaults;
  for (const ExactKey& key : kKeys) {
    std::string text = key.text(settings);
    if (text == key.text(defaults) && read(key.name).empty()) continue;
    entries.push_back({key.name, std::move(text)});
  }
  return entries;
}

}  // namespace quillon::settings

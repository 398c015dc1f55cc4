// Warnings about settings that may not mean what they are taken for.
#include <array>
#include <optional>

#include "base/number_text.h"
#include "convert/exact_words.h"
#include "convert/messages.h"
#include "convert/number_note.h"
#include "settings/exact_keys.h"
#include "settings/profile.h"
#include "settings/settings.h"

namespace quillon::settings {
namespace {

using texts::TextId;

using convert::Message;
using Option = convert::CommandLineOption;

struct NumberKey {
  std::string_view section;
  std::string_view key;
  std::optional<Option> option;  ///< the option that overrides the key
};

constexpr std::string_view kScale = "scale";

/// The numeric keys, in the order in which they are loaded.
constexpr std::array<NumberKey, 12> kNumberKeys = {{
    {"global", "language", std::nullopt},
    {"dxf", "brd", Option::TargetKind},
    {"dxf", "version", Option::Version},
    {"dxf", "unit", Option::Unit},
    {"dxf", kScale, Option::Scale},
    {"dxf", "dotted", Option::Dotted},
    {"dxf", "report", Option::Report},
    {"dxf", "polywidth", std::nullopt},
    {"dxf", "ellipses", Option::Ellipses},
    {"dxf", "arc2line", Option::ArcToLine},
    {"dxf", "poly", Option::Poly},
    {"dxf", "blocks", Option::Blocks},
}};

std::string nameInFile(std::string_view key) { return "larkspur.ini, " + std::string(key); }

}  // namespace

std::vector<Message> loadingWarnings(const SettingsStore& store,
                                     const convert::CommandLine& commandLine,
                                     const texts::Texts& texts) {
  const convert::Messages messages(texts);
  std::vector<Message> warnings;
  for (const NumberKey& key : kNumberKeys) {
    if (key.option && commandLine.given(*key.option)) continue;
    std::optional<convert::NumberNote> note =
        convert::noteOn(nameInFile(key.key), store.ReadIni(key.section, key.key));
    if (!note) continue;
    if (key.key == kScale && note->countsAs == "0") note->countsAs = kScaleInPlaceOfZero;
    warnings.push_back(messages.numberCut(*note));
  }
  const auto read = [&store](std::string_view key) { return store.ReadIni("dxf", key); };
  for (const RefusedText& refused : refusedTexts(read)) {
    warnings.push_back(messages.valueRefused(nameInFile(refused.key), refused.text, refused.used));
  }
  for (const convert::NumberNote& note : commandLine.notes) {
    warnings.push_back(messages.numberCut(note));
  }
  const std::string& layer = commandLine.layer;
  if (commandLine.given(Option::Layer) && base::startsWithNumber(layer) &&
      !convert::isEagleLayer(layer)) {
    const Settings used = LoadSettings(store, commandLine, texts);
    warnings.push_back(messages.layerNotUsed(layer, used.layer));
  }
  return warnings;
}

std::vector<Message> savingWarnings(const Settings& settings, const texts::Texts& texts) {
  const convert::Messages messages(texts);
  std::vector<Message> warnings;
  const auto check = [&](std::string_view key, std::string_view text) {
    if (keptByProfile(text) != text) warnings.push_back(messages.valueNotKept(nameInFile(key)));
  };
  check("dxffile", settings.dxfFile);
  check("scr", settings.scriptFile);
  check("layerfile", settings.layerFile);
  check("brdsch", settings.drawingName);
  check("scale", settings.scale);
  check("holes", convert::holeLayersText(settings.exact));
  return warnings;
}

std::vector<Message> fieldWarnings(const Settings& settings, const texts::Texts& texts) {
  const convert::Messages messages(texts);
  std::vector<Message> warnings;
  const auto check = [&](TextId captionId, std::string_view text) {
    const auto note = convert::noteOn(texts::captionName(texts(captionId)), text);
    if (note) warnings.push_back(messages.numberCut(*note));
  };
  check(TextId::CaptionScale, settings.scale);
  check(TextId::CaptionOffsetX, settings.offsetX);
  check(TextId::CaptionOffsetY, settings.offsetY);
  return warnings;
}

}  // namespace quillon::settings

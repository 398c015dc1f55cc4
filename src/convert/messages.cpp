#include "convert/messages.h"

#include <utility>

#include "base/number_text.h"
#include "base/quotable.h"
#include "files/paths.h"
#include "texts/error_texts.h"

namespace quillon::convert {
namespace {

/// Followed by the texts for kinds of files that are not layer files.
constexpr int kNotALayerFile = 3231;

/// The start of a comma-separated list.
std::string shortList(const std::vector<std::string>& entries) {
  constexpr std::size_t kMostEntries = 10;
  std::string list;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i == kMostEntries) return list + ", …";
    list += (list.empty() ? "" : ", ") + entries[i];
  }
  return list;
}

}  // namespace

Message Messages::drawingMissing(std::string_view path, std::string_view reason) const {
  return {MessageKind::Error, std::string(texts_(2804)), aroundPath(2802, path, 2803),
          unreadableText(path, reason)};
}

Message Messages::fileUnreadable(std::string_view path, std::string_view reason) const {
  const std::string text = unreadableText(path, reason);
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::layersUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(3093, {base::quotable(path), reason}));
}

std::vector<Message> Messages::layerWarnings(std::string_view path,
                                             const std::vector<LayerRow>& rows) const {
  std::vector<std::string> foreign;
  std::vector<std::string> cut;
  for (const LayerRow& row : rows) {
    const std::string name = base::quotable(row.name);
    if (isForeignLayer(row)) foreign.push_back(name + " (" + base::quotable(row.text) + ")");
    if (isCutLayer(row.text))
      cut.push_back(name + " (\"" + base::quotable(row.text) + "\": " + row.layer + ")");
  }
  std::vector<Message> warnings;
  if (!cut.empty())
    warnings.push_back(warning(texts_(3095, {base::quotable(path), shortList(cut)})));
  if (!foreign.empty()) {
    warnings.push_back(warning(texts_(3096, {base::quotable(path), shortList(foreign)})));
  }
  return warnings;
}

Message Messages::standardLayerCut(std::string_view text) const {
  const std::string name = texts::captionName(texts_(913));
  return numberCut({name, std::string(text), base::numberText(base::numberValue(text))});
}

Message Messages::layerNotUsed(std::string_view text, std::string_view used) const {
  return warning(texts_(3097, {base::quotable(text), used}));
}

Message Messages::frameUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(3094, {base::quotable(path), reason}));
}

Message Messages::fileError(int id, std::string_view subject) const {
  const std::string text = texts_(id, {base::quotable(subject)});
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::tooLarge(std::string_view drawing, std::uint64_t most) const {
  const std::string text = texts_(3118, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::scriptExists(std::string_view path) const {
  return {MessageKind::Question, std::string(texts_(2805)), aroundPath(2806, path, 2807),
          base::quotable(path)};
}

Message Messages::nameMissing() const {
  const std::string text(texts_(2808));
  return {MessageKind::Error, std::string(texts_(2809)), text, text};
}

Message Messages::targetMissing() const {
  const std::string text(texts_(3091));
  return {MessageKind::Error, std::string(texts_(2811)), text, text};
}

Message Messages::standardLayerMissing(std::string_view dxfLayer) const {
  const std::string text = texts_(3092, {base::quotable(dxfLayer)});
  return {MessageKind::Error, std::string(texts_(2811)), text, text};
}

Message Messages::scaleIsZero() const {
  const std::string text(texts_(2810));
  return {MessageKind::Error, std::string(texts_(2811)), text, text};
}

Message Messages::outOfRange(std::string_view drawing) const {
  Message message;
  message.kind = MessageKind::Warning;
  message.title = texts_(2933);
  message.detail = base::quotable(drawing) + ":";
  for (const int id : {2930, 2931, 2932}) {
    const std::string line(texts_(id));
    message.text += (message.text.empty() ? "" : "\r") + line;
    if (!base::trimBlanks(line).empty()) message.detail += " " + line;
  }
  return message;
}

Message Messages::cancelled(std::string_view drawing, std::uint64_t line) const {
  const std::string text =
      std::string(texts_(2816)) + std::to_string(line) + " " + std::string(texts_(2817));
  return {MessageKind::Warning, std::string(texts_(2805)), text,
          base::quotable(drawing) + ": " + text};
}

Message Messages::limit(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const {
  const int id = kind == rules::LimitKind::Lines ? 3113 : 3114;
  const std::string text = texts_(id, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(2814)), text,
          text + " " + std::string(texts_(3116))};
}

Message Messages::partial(std::string_view drawing, rules::LimitKind kind,
                          std::uint64_t most) const {
  const int id = kind == rules::LimitKind::Lines ? 3011 : 3115;
  const std::string text = texts_(id, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

Message Messages::numberCut(const NumberNote& note) const {
  return warning(texts_(
      3090, {base::quotable(note.name), base::quotable(note.text), base::quotable(note.countsAs)}));
}

Message Messages::nothingConverted(std::string_view drawing) const {
  const std::string text = texts_(3080, {base::quotable(drawing)});
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

Message Messages::scriptError(std::string_view script, std::string detail) const {
  return {MessageKind::Error, std::string(texts_(2814)), aroundPath(2812, script, 2813),
          std::move(detail)};
}

std::string Messages::unreadableText(std::string_view path, std::string_view reason) const {
  return texts_(3008, {base::quotable(path), reason});
}

std::string Messages::unwritableText(std::string_view path, const std::filesystem::path& target,
                                     int reason) const {
  if (reason == ENOENT && files::isInMissingFolder(target)) {
    return texts_(3070, {base::quotable(path), base::quotable(files::folderPart(path))});
  }
  return texts_(3027, {base::quotable(path), texts::reasonText(reason, texts_)});
}

Message Messages::warning(const std::string& text) const {
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

std::string Messages::notALayerFileText(std::string_view path, LayerFileKind kind) const {
  return texts_(kNotALayerFile,
                {base::quotable(path), texts_(kNotALayerFile + static_cast<int>(kind))});
}

std::string Messages::aroundPath(int before, std::string_view path, int behind) const {
  return std::string(texts_(before)) + "\r" + std::string(path) + "\r" +
         std::string(texts_(behind));
}

}  // namespace quillon::convert

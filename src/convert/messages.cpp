#include "convert/messages.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "convert/paths.h"
#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::convert {
namespace {

constexpr int kFirstFaultText = 3020;
/// Followed by the texts for the kinds of files that are not layer files.
constexpr int kNotALayerFile = 3231;

/// The start of a list, its entries separated by commas.
std::string shortList(const std::vector<std::string>& entries) {
  constexpr std::size_t kMostEntries = 10;
  std::string list;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i == kMostEntries) return list + ", …";
    list += (list.empty() ? "" : ", ") + entries[i];
  }
  return list;
}

/// Number of bytes of the control character at a place of a UTF-8 text; 0 for another character.
std::size_t controlLength(std::string_view utf8, std::size_t at) {
  const auto byte = static_cast<unsigned char>(utf8[at]);
  if (byte < 0x20 || byte == 0x7F) return 1;
  const auto next = at + 1 < utf8.size() ? static_cast<unsigned char>(utf8[at + 1]) : 0U;
  return byte == 0xC2 && next >= 0x80 && next < 0xA0 ? 2 : 0;
}

/// Appends the byte, or the control character as an escape, that stands at a place; returns how
/// many bytes that is.
std::size_t appendShown(std::string& out, std::string_view utf8, std::size_t at) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const std::size_t length = controlLength(utf8, at);
  if (length == 0) {
    out += utf8[at];
    return 1;
  }
  const unsigned code = static_cast<unsigned char>(utf8[at + length - 1]);
  out += {'\\', 'x', kHex[code >> 4], kHex[code & 15]};
  return length;
}

}  // namespace

bool hasControlCharacter(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (controlLength(utf8, i) > 0) return true;
  }
  return false;
}

std::string withoutControls(std::string_view utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    if (utf8[i] == '\t') {
      out += utf8[i++];
    } else {
      i += appendShown(out, utf8, i);
    }
  }
  return out;
}

std::string quotable(std::string_view utf8, std::size_t longest) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    if (out.size() >= longest && (static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80) {
      return out + "…";
    }
    i += appendShown(out, utf8, i);
  }
  return out;
}

Message Messages::drawingMissing(std::string_view path, std::string_view reason) const {
  return {MessageKind::Error, std::string(texts_(2804)), aroundPath(2802, path, 2803),
          unreadableText(path, reason)};
}

Message Messages::fileUnreadable(std::string_view path, std::string_view reason) const {
  const std::string text = unreadableText(path, reason);
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::layersUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(3093, {quotable(path), reason}));
}

std::vector<Message> Messages::layerWarnings(std::string_view path,
                                             const std::vector<LayerRow>& rows) const {
  std::vector<std::string> foreign;
  std::vector<std::string> cut;
  for (const LayerRow& row : rows) {
    const std::string name = quotable(row.name);
    if (isForeignLayer(row)) foreign.push_back(name + " (" + quotable(row.text) + ")");
    if (isCutLayer(row.text))
      cut.push_back(name + " (\"" + quotable(row.text) + "\": " + row.layer + ")");
  }
  std::vector<Message> warnings;
  if (!cut.empty()) warnings.push_back(warning(texts_(3095, {quotable(path), shortList(cut)})));
  if (!foreign.empty()) {
    warnings.push_back(warning(texts_(3096, {quotable(path), shortList(foreign)})));
  }
  return warnings;
}

Message Messages::standardLayerCut(std::string_view text) const {
  const std::string name = resources::captionName(texts_(913));
  return numberCut({name, std::string(text), dxf::numberText(dxf::numberValue(text))});
}

Message Messages::layerNotUsed(std::string_view text, std::string_view used) const {
  return warning(texts_(3097, {quotable(text), used}));
}

Message Messages::frameUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(3094, {quotable(path), reason}));
}

Message Messages::fileError(int id, std::string_view subject) const {
  const std::string text = texts_(id, {quotable(subject)});
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::tooLarge(std::string_view drawing, std::uint64_t most) const {
  const std::string text = texts_(3118, {quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::scriptExists(std::string_view path) const {
  return {MessageKind::Question, std::string(texts_(2805)), aroundPath(2806, path, 2807),
          quotable(path)};
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
  const std::string text = texts_(3092, {quotable(dxfLayer)});
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
  message.detail = quotable(drawing) + ":";
  for (const int id : {2930, 2931, 2932}) {
    const std::string line(texts_(id));
    message.text += (message.text.empty() ? "" : "\r") + line;
    if (!dxf::trimBlanks(line).empty()) message.detail += " " + line;
  }
  return message;
}

Message Messages::cancelled(std::string_view drawing, std::uint64_t line) const {
  const std::string text =
      std::string(texts_(2816)) + std::to_string(line) + " " + std::string(texts_(2817));
  return {MessageKind::Warning, std::string(texts_(2805)), text, quotable(drawing) + ": " + text};
}

Message Messages::limit(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const {
  const int id = kind == rules::LimitKind::Lines ? 3113 : 3114;
  const std::string text = texts_(id, {quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(2814)), text,
          text + " " + std::string(texts_(3116))};
}

Message Messages::partial(std::string_view drawing, rules::LimitKind kind,
                          std::uint64_t most) const {
  const int id = kind == rules::LimitKind::Lines ? 3011 : 3115;
  const std::string text = texts_(id, {quotable(drawing), std::to_string(most)});
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

Message Messages::numberCut(const NumberNote& note) const {
  return warning(texts_(3090, {quotable(note.name), quotable(note.text), quotable(note.countsAs)}));
}

Message Messages::nothingConverted(std::string_view drawing) const {
  const std::string text = texts_(3080, {quotable(drawing)});
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

Message Messages::scriptError(std::string_view script, std::string detail) const {
  return {MessageKind::Error, std::string(texts_(2814)), aroundPath(2812, script, 2813),
          std::move(detail)};
}

std::string Messages::faultText(const dxf::RunTimeError& error, std::string_view drawing) const {
  std::string place = quotable(drawing);
  if (error.line() > 0) place += ":" + std::to_string(error.line());
  const int id = kFirstFaultText + static_cast<int>(error.fault());
  const std::string subject = quotable(dxf::toUtf8(error.subject(), dxf::Encoding::Utf8));
  if (!place.empty()) place += ": ";
  return place + texts_(id, {subject});
}

std::string Messages::reasonText(int reason) const {
  switch (reason) {
    case ENOENT:
      return std::string(texts_(3040));
    case EACCES:
    case EPERM:
      return std::string(texts_(3041));
    case EISDIR:
      return std::string(texts_(3042));
    case ENOSPC:
      return std::string(texts_(3043));
    case EROFS:
      return std::string(texts_(3044));
    default:
      return std::generic_category().message(reason);
  }
}

std::string Messages::unreadableText(std::string_view path, std::string_view reason) const {
  return texts_(3008, {quotable(path), reason});
}

std::string Messages::unwritableText(std::string_view path, const std::filesystem::path& target,
                                     int reason) const {
  if (reason == ENOENT && isInMissingFolder(target)) {
    return texts_(3070, {quotable(path), quotable(folderPart(path))});
  }
  return texts_(3027, {quotable(path), reasonText(reason)});
}

Message Messages::warning(const std::string& text) const {
  return {MessageKind::Warning, std::string(texts_(2805)), text, text};
}

std::string Messages::notALayerFileText(std::string_view path, LayerFileKind kind) const {
  return texts_(kNotALayerFile, {quotable(path), texts_(kNotALayerFile + static_cast<int>(kind))});
}

std::string Messages::aroundPath(int before, std::string_view path, int behind) const {
  return std::string(texts_(before)) + "\r" + std::string(path) + "\r" +
         std::string(texts_(behind));
}

}  // namespace quillon::convert

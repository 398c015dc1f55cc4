#include "convert/messages.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::convert {
namespace {

constexpr int kFirstFaultText = 3020;

}  // namespace

bool hasControlCharacter(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte < 0x20 || byte == 0x7F) return true;
    const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0U;
    if (byte == 0xC2 && next >= 0x80 && next < 0xA0) return true;
  }
  return false;
}

std::string quotable(std::string_view utf8, std::size_t longest) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string out;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    const auto byte = static_cast<unsigned char>(c);
    if (out.size() >= longest && (byte & 0xC0) != 0x80) {
      out += "…";
      break;
    }
    const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0U;
    const bool c1 = byte == 0xC2 && next >= 0x80 && next < 0xA0;
    if (byte < 0x20 || byte == 0x7F || c1) {
      const unsigned code = c1 ? next : byte;
      out += {'\\', 'x', kHex[code >> 4], kHex[code & 15]};
      if (c1) ++i;
    } else {
      out += c;
    }
  }
  return out;
}

Message Messages::drawingMissing(std::string_view path, std::string_view reason) const {
  return {MessageKind::Error, std::string(texts_(2804)), aroundPath(2802, path, 2803),
          unreadableText(path, reason)};
}

Message Messages::drawingUnreadable(std::string_view path, std::string_view reason) const {
  const std::string text = unreadableText(path, reason);
  return {MessageKind::Error, std::string(texts_(2804)), text, text};
}

Message Messages::fileError(int id, std::string_view subject) const {
  const std::string text = texts_(id, {quotable(subject)});
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

Message Messages::lineLimit(std::string_view drawing, std::uint64_t lines) const {
  const std::string text = texts_(3011, {quotable(drawing), std::to_string(lines)});
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

std::string Messages::unwritableText(std::string_view path, std::string_view reason) const {
  return texts_(3027, {quotable(path), reason});
}

std::string Messages::aroundPath(int before, std::string_view path, int behind) const {
  return std::string(texts_(before)) + "\r" + std::string(path) + "\r" +
         std::string(texts_(behind));
}

}  // namespace quillon::convert

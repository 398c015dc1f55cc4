#include "convert/failure_text.h"

#include <utility>

#include "dxf/encoding.h"

namespace quillon::convert {
namespace {

constexpr int kFirstFaultText = 3020;

}  // namespace

std::string quotable(std::string_view utf8) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr std::size_t kLongest = 200;
  std::string out;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if (out.size() >= kLongest && (byte & 0xC0) != 0x80) {
      out += "…";
      break;
    }
    if (byte < 0x20 || byte == 0x7F) {
      out += {'\\', 'x', kHex[byte >> 4], kHex[byte & 15]};
    } else {
      out += c;
    }
  }
  return out;
}

std::string faultText(const dxf::RunTimeError& error, std::string_view file, std::size_t line,
                      const resources::Texts& texts) {
  const int id = kFirstFaultText + static_cast<int>(error.fault());
  std::string place(file);
  if (line > 0) place += ":" + std::to_string(line);
  const std::string subject = quotable(dxf::toUtf8(error.subject(), dxf::Encoding::Utf8));
  return place + ": " + texts(id, {subject});
}

Message scriptError(std::string_view scriptFile, std::string detail,
                    const resources::Texts& texts) {
  Message message;
  message.kind = MessageKind::Error;
  message.title = texts(2814);
  message.text =
      std::string(texts(2812)) + "\r" + std::string(scriptFile) + "\r" + std::string(texts(2813));
  message.detail = std::move(detail);
  return message;
}

}  // namespace quillon::convert

#include "exact/text_encoder.h"

#include <algorithm>

#include "base/byte_of.h"
#include "base/number_text.h"
#include "base/utf8_check.h"
#include "exact/text_code_pages.h"
#include "exact/text_plain_letters.h"

namespace quillon::exact {
namespace {

constexpr unsigned kWestern = 1252;

bool isControl(char32_t c) { return c < 0x20 || c == 0x7F; }

/// A well-formed UTF-8 character of this length.
char32_t codePointOf(std::string_view utf8) {
  if (utf8.size() == 1) return base::byteOf(utf8.front());
  char32_t c = base::byteOf(utf8.front()) & (0xFFU >> (utf8.size() + 1));
  for (const char byte : utf8.substr(1)) c = c << 6 | (base::byteOf(byte) & 0x3F);
  return c;
}

std::string utf8Of(char32_t c) {
  std::string out;
  const auto put = [&out](char32_t value) { out += static_cast<char>(value); };
  const auto putRest = [&put, c](unsigned shift) { put(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    putRest(0);
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    putRest(6);
    putRest(0);
  } else {
    put(0xF0 | c >> 18);
    putRest(12);
    putRest(6);
    putRest(0);
  }
  return out;
}

bool isCharacter(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

}  // namespace

unsigned codePageOf(std::string_view name) {
  constexpr std::string_view kPrefix = "ANSI_";
  const std::string_view prefix = name.substr(0, kPrefix.size());
  if (!base::equalsUpperCased(prefix, kPrefix)) return kWestern;
  const double number = base::numberValue(name.substr(kPrefix.size()));
  return number > 0.0 && number < 65536.0 ? static_cast<unsigned>(number) : kWestern;
}

TextEncoder::TextEncoder(const dxf::Drawing& drawing, bool plainLetters)
    : encoding_(drawing.encoding),
      page_(codePageOf(drawing.header.codePage)),
      plainLetters_(plainLetters) {}

/// The first byte of two. The second one may look like a backslash or another character of codes.
bool TextEncoder::isLead(char byte) const {
  const unsigned value = base::byteOf(byte);
  if (value < 0x81 || value == 0xFF) return false;
  return isTwoBytePage(page_) && !(page_ == kJapanesePage && value >= 0xA0 && value <= 0xDF);
}

std::size_t TextEncoder::firstLength(std::string_view text) const {
  if (text.size() < 2) return text.size();
  // A control character must not slip through as the second of two bytes.
  const bool isPair = isLead(text[0]) && !isControl(base::byteOf(text[1]));
  if (encoding_ != base::Encoding::Utf8) return isPair ? 2 : 1;
  const std::size_t length = base::utf8SequenceLength(text.data(), text.data() + text.size());
  return std::max<std::size_t>(length, 1);
}

std::size_t TextEncoder::charactersIn(std::string_view text) const {
  std::size_t count = 0;
  for (; !text.empty(); text.remove_prefix(firstLength(text))) ++count;
  return count;
}

void TextEncoder::copy(std::string_view character, std::string& out) {
  if (character.size() == 1 && isControl(base::byteOf(character.front()))) {
    out += ' ';
    return;
  }
  const bool isKnown = encoding_ == base::Encoding::Utf8 || page_ == kWestern;
  if (plainLetters_ && isKnown && base::byteOf(character.front()) >= 0x80) {
    const auto plain = plainLetters(codePointOf(base::toUtf8(character, encoding_)));
    if (plain) {
      out += *plain;
      return;
    }
  }
  out += character;
}

void TextEncoder::append(char32_t character, std::string& out) {
  if (!isCharacter(character)) return appendUnknown(out);
  if (isControl(character)) {
    out += ' ';
    return;
  }
  if (plainLetters_) {
    if (const auto plain = plainLetters(character)) {
      out += *plain;
      return;
    }
  }
  if (encoding_ != base::Encoding::Utf8) character = lookalike(character);
  const std::string encoded = base::fromUtf8(utf8Of(character), encoding_);
  if (encoded == "?" && character != '?') return appendUnknown(out);
  out += encoded;
}

void TextEncoder::appendCode(unsigned code, std::string& out) {
  if (code < 0x80) return append(code, out);
  if (code > 0xFF || isTwoBytePage(page_)) return appendUnknown(out);
  if (encoding_ != base::Encoding::Utf8) return copy(std::string(1, static_cast<char>(code)), out);
  const char32_t character = characterOf(page_, code);
  character == 0 ? appendUnknown(out) : append(character, out);
}

void TextEncoder::appendTwoBytes(unsigned page, unsigned code, std::string& out) {
  if (code < 0x80) return append(code, out);
  if (code < 0x100 || encoding_ == base::Encoding::Utf8 || page != page_) return appendUnknown(out);
  const std::string bytes = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
  // Others could pass for characters of their own.
  if (!isLead(bytes[0]) || (code & 0xFF) < 0x31) return appendUnknown(out);
  out += bytes;
}

void TextEncoder::appendUnknown(std::string& out) {
  hasReplaced_ = true;
  out += '?';
}

}  // namespace quillon::exact

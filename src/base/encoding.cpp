#include "base/encoding.h"

#include <algorithm>
#include <array>

#include "base/byte_of.h"
#include "base/utf8_check.h"

namespace quillon::base {
namespace {

/// Characters of the Windows-1252 bytes 0x80..0x9F; an undefined byte maps to the same code point.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t windows1252Character(char byte) {
  const unsigned value = byteOf(byte);
  return value >= 0x80 && value < 0xA0 ? kUpperControls[value - 0x80] : value;
}

void appendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](unsigned value) { out += static_cast<char>(value); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

constexpr char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char upperWindows1252(char c) {
  switch (byteOf(c)) {
    case 0x9A:  // š
    case 0x9C:  // œ
    case 0x9E:  // ž
      return static_cast<char>(byteOf(c) - 0x10);
    case 0xFF:  // ÿ
      return static_cast<char>(0x9F);
    case 0xF7:  // the division sign is not a letter
      return c;
    default:
      return byteOf(c) >= 0xE0 ? static_cast<char>(byteOf(c) - 0x20) : upperAscii(c);
  }
}

constexpr unsigned codeOfTwoBytes(const char* p) {
  return (byteOf(p[0]) & 0x1F) << 6 | (byteOf(p[1]) & 0x3F);
}

void putTwoBytes(char* p, unsigned code) {
  p[0] = static_cast<char>(0xC0 | (code >> 6));
  p[1] = static_cast<char>(0x80 | (code & 0x3F));
}

/// Converts the two-byte character at p to upper case in place.
void upperTwoBytes(char* p) {
  const unsigned code = codeOfTwoBytes(p);
  unsigned upper = code;
  if (code >= 0xE0 && code <= 0xFE && code != 0xF7) upper = code - 0x20;
  if (code == 0xFF) upper = 0x178;                                        // ÿ
  if (code == 0x161 || code == 0x17E || code == 0x153) upper = code - 1;  // š, ž, œ
  putTwoBytes(p, upper);
}

/// Converts the two-byte character at p to lower case in place.
void lowerTwoBytes(char* p) {
  const unsigned code = codeOfTwoBytes(p);
  unsigned lower = code;
  if (code >= 0xC0 && code <= 0xDE && code != 0xD7) lower = code + 0x20;
  if (code == 0x178) lower = 0xFF;                                        // Ÿ
  if (code == 0x160 || code == 0x17D || code == 0x152) lower = code + 1;  // Š, Ž, Œ
  putTwoBytes(p, lower);
}

/// Converts one-byte and two-byte characters in place; others stay.
template <typename OneByte, typename TwoBytes>
void changeUtf8(std::string& text, OneByte oneByte, TwoBytes twoBytes) {
  char* p = text.data();
  const char* const end = p + text.size();
  while (p != end) {
    const std::size_t length = utf8SequenceLength(p, end);
    if (length <= 1) *p = oneByte(*p);
    if (length == 2) twoBytes(p);
    p += std::max<std::size_t>(length, 1);
  }
}

/// The Windows-1252 byte of a character, or "?".
char windows1252Byte(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), c);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

char32_t decodeUtf8(const char* p, std::size_t length) {
  if (length == 1) return byteOf(*p);
  char32_t c = byteOf(*p) & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) c = c << 6 | (byteOf(p[i]) & 0x3F);
  return c;
}

}  // namespace

bool isValidUtf8(std::string_view bytes) {
  Utf8Check check;
  check.add(bytes);
  return check.complete();
}

std::string upperCase(std::string_view text, Encoding encoding) {
  std::string upper(text);
  if (encoding == Encoding::Utf8) {
    changeUtf8(upper, upperAscii, upperTwoBytes);
  } else {
    for (char& c : upper) c = upperWindows1252(c);
  }
  return upper;
}

std::string lowerCase(std::string_view utf8) {
  std::string lower(utf8);
  changeUtf8(lower, lowerAscii, lowerTwoBytes);
  return lower;
}

bool equalsOfOneSize(std::string_view text, std::string_view upper) {
  return std::equal(text.begin(), text.end(), upper.begin(),
                    [](char a, char b) { return upperAscii(a) == b; });
}

std::string windows1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) appendUtf8(out, windows1252Character(c));
  return out;
}

std::string toUtf8(std::string_view bytes, Encoding encoding) {
  if (encoding == Encoding::Windows1252) return windows1252ToUtf8(bytes);
  std::string out;
  out.reserve(bytes.size());
  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  while (p != end) {
    const std::size_t length = utf8SequenceLength(p, end);
    if (length == 0) {
      appendUtf8(out, windows1252Character(*p++));
    } else {
      out.append(p, length);
      p += length;
    }
  }
  return out;
}

std::string fromUtf8(std::string_view utf8, Encoding encoding) {
  if (encoding == Encoding::Utf8) return std::string(utf8);
  std::string out;
  out.reserve(utf8.size());
  const char* p = utf8.data();
  const char* const end = p + utf8.size();
  while (p != end) {
    const std::size_t length = utf8SequenceLength(p, end);
    out += length == 0 ? '?' : windows1252Byte(decodeUtf8(p, length));
    p += std::max<std::size_t>(length, 1);
  }
  return out;
}

}  // namespace quillon::base

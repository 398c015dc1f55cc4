#include "exact/text_codes.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/byte_of.h"
#include "base/number_text.h"

namespace quillon::exact {
namespace {

/// What EAGLE's help lists, and its relatives.
constexpr std::array<std::string_view, 16> kVariables = {
    "NAME",         "VALUE",          "PART",         "GATE",
    "XREF",         "CONTACT_XREF",   "MODULE",       "ASSEMBLY_VARIANT",
    "SHEET",        "SHEETS",         "SHEETNR",      "SHEETNR_TOTAL",
    "SHEETS_TOTAL", "LAST_DATE_TIME", "DRAWING_NAME", "PLOT_DATE_TIME"};

std::optional<unsigned> digitOf(char c, unsigned radix) {
  unsigned value = 16;
  if (c >= '0' && c <= '9') value = static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') value = static_cast<unsigned>(c - 'A') + 10;
  if (c >= 'a' && c <= 'f') value = static_cast<unsigned>(c - 'a') + 10;
  return value < radix ? std::optional(value) : std::nullopt;
}

/// The number of exactly these many digits at the start of a text.
std::optional<unsigned> numberOf(std::string_view text, std::size_t digits, unsigned radix) {
  if (text.size() < digits) return std::nullopt;
  unsigned number = 0;
  for (const char c : text.substr(0, digits)) {
    const std::optional<unsigned> digit = digitOf(c, radix);
    if (!digit) return std::nullopt;
    number = number * radix + *digit;
  }
  return number;
}

char upperLetter(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool startsWithCode(std::string_view text, char letter) {
  return text.size() > 3 && text[0] == '\\' && upperLetter(text[1]) == letter && text[2] == '+';
}

std::optional<unsigned> unicodeAt(std::string_view text) {
  return startsWithCode(text, 'U') ? numberOf(text.substr(3), 4, 16) : std::nullopt;
}

/// The code page that a digit in \M+nXXXX stands for.
unsigned pageOfDigit(char digit) {
  constexpr std::array<unsigned, 5> kPages = {932, 950, 949, 1361, 936};
  return digit >= '1' && digit <= '5' ? kPages[static_cast<std::size_t>(digit - '1')] : 0;
}

/// %%%, and %%u, %%o and %%k, which switch lines on and off.
std::size_t takePlainPercent(std::string_view text, PlainText& plain) {
  if (text.size() < 3 || text[0] != '%' || text[1] != '%') return 0;
  switch (upperLetter(text[2])) {
    case '%':
      plain.content += '%';
      return 3;
    case 'U':
    case 'O':
    case 'K':
      plain.hasLines = true;
      return 3;
    default:
      return 0;
  }
}

/// ^ and a blank, or the letter of a control character.
std::size_t takeCaret(std::string_view text, std::string& out) {
  if (text.size() < 2 || text[0] != '^') return 0;
  const char next = text[1];
  if (next != ' ' && (next < '@' || next > '_')) return 0;
  out += next == ' ' ? '^' : ' ';
  return 2;
}

/// Whether a byte is a character that stands for itself wherever a character may start.
constexpr bool isPlain(char c) {
  constexpr std::string_view kBeginCodes = "%\\^{}";
  return c >= ' ' && c <= '~' && kBeginCodes.find(c) == std::string_view::npos;
}

constexpr std::array<bool, 256> makePlainBytes() {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0; i < plain.size(); ++i)
    plain[i] = i < 0x80 && isPlain(static_cast<char>(i));
  return plain;
}
constexpr std::array<bool, 256> kPlainBytes = makePlainBytes();

}  // namespace

std::size_t plainLength(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && kPlainBytes[base::byteOf(text[length])]) ++length;
  return length;
}

std::size_t takeUnicode(std::string_view text, TextEncoder& encoder, std::string& out) {
  constexpr std::size_t kUnicodeLength = 7;
  constexpr std::size_t kPageLength = 8;
  if (const std::optional<unsigned> code = unicodeAt(text)) {
    if (*code < 0xD800 || *code > 0xDBFF) {
      encoder.append(*code, out);
      return kUnicodeLength;
    }
    // Characters beyond four digits are written as two codes.
    const std::optional<unsigned> second = unicodeAt(text.substr(kUnicodeLength));
    const bool isPair = second && *second >= 0xDC00 && *second <= 0xDFFF;
    encoder.append(isPair ? 0x10000 + ((*code - 0xD800) << 10) + (*second - 0xDC00) : *code, out);
    return isPair ? 2 * kUnicodeLength : kUnicodeLength;
  }
  if (!startsWithCode(text, 'M')) return 0;
  const unsigned page = pageOfDigit(text[3]);
  const std::optional<unsigned> code = numberOf(text.substr(4), 4, 16);
  if (page == 0 || !code) return 0;
  encoder.appendTwoBytes(page, *code, out);
  return kPageLength;
}

std::size_t takePercent(std::string_view text, TextEncoder& encoder, std::string& out) {
  if (text.size() < 3 || text[0] != '%' || text[1] != '%') return 0;
  switch (upperLetter(text[2])) {
    case 'C':
      encoder.append(0xD8, out);
      return 3;
    case 'D':
      encoder.append(0xB0, out);
      return 3;
    case 'P':
      encoder.append(0xB1, out);
      return 3;
    default:
      break;
  }
  const std::optional<unsigned> code = numberOf(text.substr(2), 3, 10);
  if (!code) return 0;
  encoder.appendCode(*code, out);
  return 5;
}

PlainText plainText(std::string_view text, TextEncoder& encoder) {
  PlainText plain;
  while (!text.empty()) {
    std::size_t taken = plainLength(text);
    plain.content += text.substr(0, taken);
    if (taken == 0) taken = takePercent(text, encoder, plain.content);
    if (taken == 0) taken = takePlainPercent(text, plain);
    if (taken == 0) taken = takeUnicode(text, encoder, plain.content);
    if (taken == 0) taken = takeCaret(text, plain.content);
    if (taken == 0) {
      taken = encoder.firstLength(text);
      encoder.copy(text.substr(0, taken), plain.content);
    }
    text.remove_prefix(taken);
  }
  plain.content = std::string(base::trimBlanks(plain.content));
  return plain;
}

bool isVariable(std::string_view text) {
  if (!text.starts_with('>')) return false;
  const auto isPart = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
  };
  const std::string_view name = text.substr(1);
  const auto end =
      static_cast<std::size_t>(std::find_if_not(name.begin(), name.end(), isPart) - name.begin());
  return std::any_of(kVariables.begin(), kVariables.end(),
                     [word = name.substr(0, end)](std::string_view variable) {
                       return base::equalsUpperCased(word, variable);
                     });
}

}  // namespace quillon::exact

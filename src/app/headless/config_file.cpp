#include "app/headless/config_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <set>
#include <utility>

#include "base/encoding.h"
#include "base/read_error.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";
constexpr std::string_view kKeyCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";

/// Reads one line.
class ConfigLine {
 public:
  ConfigLine(std::string_view text, std::size_t number) : rest_(text), number_(number) {}

  /// True for a line with an option.
  bool read(ConfigEntry& entry) {
    skipBlanks();
    if (isAtEnd()) return false;
    if (rest_.front() == '[') fail("tables are not used here: leave out this line");
    entry.line = number_;
    entry.key = take(kKeyCharacters);
    if (entry.key.empty()) fail("this is not the name of an option");
    skipBlanks();
    if (rest_.empty() || rest_.front() != '=') fail(entry.key + " lacks = and a value");
    rest_.remove_prefix(1);
    skipBlanks();
    readValue(entry);
    skipBlanks();
    if (!isAtEnd()) fail("there is more after the value of " + entry.key);
    return true;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const { throw ConfigError(number_, what); }

  bool isAtEnd() const { return rest_.empty() || rest_.front() == '#'; }

  void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }

  std::string take(std::string_view characters) {
    const std::size_t length = std::min(rest_.find_first_not_of(characters), rest_.size());
    std::string taken(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return taken;
  }

  void readValue(ConfigEntry& entry) {
    if (isAtEnd()) fail(entry.key + " lacks a value");
    const char first = rest_.front();
    if (rest_.starts_with("\"\"\"") || rest_.starts_with("'''")) {
      fail("a text has to be on one line: begin it with one quotation mark");
    }
    if (first == '[' || first == '{') fail("lists are not used here: write one text");
    if (first == '"') {
      entry.value = quoted();
    } else if (first == '\'') {
      entry.value = literal();
    } else {
      entry.value = take("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.+-");
      entry.isSwitch = entry.value == "true" || entry.value == "false";
      const bool isNumber = entry.value.find_first_of(kDigits) != std::string::npos &&
                            entry.value.find_first_not_of("0123456789.+-eE") == std::string::npos;
      if (!entry.isSwitch && !isNumber) {
        fail("the value of " + entry.key + " needs quotation marks");
      }
    }
    if (entry.value.find('\0') != std::string::npos) fail("a text contains a NUL character");
  }

  std::string literal() {
    const std::size_t end = rest_.find('\'', 1);
    if (end == std::string_view::npos) fail("a text lacks the ' at its end");
    std::string text(rest_.substr(1, end - 1));
    rest_.remove_prefix(end + 1);
    return text;
  }

  std::string quoted() {
    std::string text;
    for (rest_.remove_prefix(1); !rest_.empty() && rest_.front() != '"';) {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == '\\') {
        text += escaped();
      } else {
        text += c;
      }
    }
    if (rest_.empty()) fail("a text lacks the \" at its end");
    rest_.remove_prefix(1);
    return text;
  }

  std::string escaped() {
    constexpr std::string_view kLetters = "btnfr\"\\";
    constexpr std::string_view kMeanings = "\b\t\n\f\r\"\\";
    const char letter = rest_.empty() ? ' ' : rest_.front();
    if (!rest_.empty()) rest_.remove_prefix(1);
    const std::size_t known = kLetters.find(letter);
    if (known != std::string_view::npos) return {kMeanings[known]};
    if (letter == 'u') return character(4);
    if (letter == 'U') return character(8);
    fail("\\ starts an escape sequence between \"\": put texts with \\ between '' instead");
  }

  /// The character with a number of that many digits, as UTF-8.
  std::string character(std::size_t digits) {
    const std::string_view hex = rest_.substr(0, digits);
    constexpr std::uint32_t kLast = 0x10FFFF;
    std::uint64_t code = kLast + 1;
    if (hex.size() == digits && hex.find_first_not_of(kHexDigits) == std::string_view::npos) {
      code = std::stoull(std::string(hex), nullptr, 16);
    }
    if (code > kLast || (code >= 0xD800 && code < 0xE000)) {
      fail("\\u needs 4 digits, and \\U 8, of a character");
    }
    rest_.remove_prefix(digits);
    const auto part = [code](unsigned shift) {
      return static_cast<char>(0x80 | (code >> shift & 0x3F));
    };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0 | code >> 6), part(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0 | code >> 12), part(6), part(0)};
    return {static_cast<char>(0xF0 | code >> 18), part(12), part(6), part(0)};
  }

  std::string_view rest_;
  std::size_t number_;
};

}  // namespace

std::vector<ConfigEntry> configEntries(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<ConfigEntry> entries;
  std::set<std::string> seen;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!base::isValidUtf8(line)) throw ConfigError(number, "this is not UTF-8");
    ConfigEntry entry;
    if (!ConfigLine(line, number).read(entry)) continue;
    if (!seen.insert(entry.key).second) throw ConfigError(number, entry.key + " is there twice");
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::string readConfigText(const std::filesystem::path& path) {
  constexpr std::size_t kLargest = 1U << 20;
  if (files::namesFolder(path)) throw base::ReadError(EISDIR);
  const files::FileHandle file = files::openFile(path, "rb");
  if (file == nullptr) throw base::ReadError(errno);
  std::string text;
  std::array<char, 4096> block{};
  for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), file.get())) > 0;) {
    text.append(block.data(), got);
    if (text.size() > kLargest) throw base::ReadError(EFBIG);
  }
  if (std::ferror(file.get()) != 0) throw base::ReadError(errno);
  return text;
}

}  // namespace quillon::headless

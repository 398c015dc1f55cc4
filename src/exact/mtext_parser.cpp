#include "exact/mtext_parser.h"

#include <algorithm>
#include <utility>

#include "base/number_text.h"
#include "exact/text_codes.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// The letters of codes that stand alone, and of those whose value ends at a semicolon.
constexpr std::string_view kSwitches = "PXN~LlOoKk";
constexpr std::string_view kWithValues = "HFfCcTQWAp";

constexpr std::string_view kTabulator = "    ";

bool isBlankPart(std::string_view part) {
  return std::all_of(part.begin(), part.end(), [](char c) { return c == ' ' || c == kHardBlank; });
}

class MtextParser {
 public:
  MtextParser(std::string_view content, double height, TextEncoder& encoder)
      : content_(content), rest_(content), height_(height), encoder_(encoder) {
    parsed_.heights.push_back({0, height});
  }

  ParsedText parse() {
    while (!rest_.empty()) takeNext();
    endLine();
    while (parsed_.lines.size() > 1 && endsInBlankLine()) parsed_.lines.pop_back();
    return std::move(parsed_);
  }

 private:
  void takeNext();
  void markHeight();
  bool takeBrace();
  bool takeCaret();
  bool takeBackslash();
  void takeEscaped(std::string& out);
  void takeSwitch(char letter);
  bool takeValue(char letter);
  void setHeight(std::string_view value);
  bool takeStack();
  std::string takeStackPart(char& separator);
  void takeCharacter(std::string& out);
  void endLine();
  bool endsInBlankLine() const {
    const TextSpan last = parsed_.lines.back();
    return isBlankPart(std::string_view(parsed_.text).substr(last.begin, last.end - last.begin));
  }
  std::size_t valueEnd();

  std::string_view content_;
  std::string_view rest_;
  std::size_t semicolon_ = 0;  ///< the next one in the content, once looked for
  double height_;
  TextEncoder& encoder_;
  std::vector<double> outerHeights_;
  std::size_t lineBegin_ = 0;
  ParsedText parsed_;
};

void MtextParser::takeNext() {
  markHeight();
  if (const std::size_t plain = plainLength(rest_); plain > 0) {
    parsed_.text += rest_.substr(0, plain);
    return rest_.remove_prefix(plain);
  }
  if (takeBrace() || takeCaret() || takeBackslash()) return;
  takeCharacter(parsed_.text);
}

/// What follows has the present height.
void MtextParser::markHeight() {
  if (parsed_.heights.back().height == height_) return;
  if (parsed_.heights.back().begin == parsed_.text.size()) parsed_.heights.pop_back();
  parsed_.heights.push_back({parsed_.text.size(), height_});
}

/// Where in the rest the next semicolon is. Looked for once, however many codes lack theirs.
std::size_t MtextParser::valueEnd() {
  const std::size_t begin = content_.size() - rest_.size();
  if (semicolon_ != std::string_view::npos && (semicolon_ < begin || content_[semicolon_] != ';')) {
    semicolon_ = content_.find(';', begin);
  }
  return semicolon_ == std::string_view::npos ? semicolon_ : semicolon_ - begin;
}

/// A character, by its code or as it is.
void MtextParser::takeCharacter(std::string& out) {
  std::size_t taken = takePercent(rest_, encoder_, out);
  if (taken == 0) taken = takeUnicode(rest_, encoder_, out);
  if (taken == 0) {
    taken = encoder_.firstLength(rest_);
    encoder_.copy(rest_.substr(0, taken), out);
  }
  rest_.remove_prefix(taken);
}

bool MtextParser::takeBrace() {
  if (rest_.front() == '{') {
    outerHeights_.push_back(height_);
  } else if (rest_.front() == '}') {
    if (!outerHeights_.empty()) {
      height_ = outerHeights_.back();
      outerHeights_.pop_back();
    }
  } else {
    return false;
  }
  rest_.remove_prefix(1);
  return true;
}

/// The character that a caret and a letter stand for, 64 less than the letter: ^I, ^J and other
/// control characters, which are shown as blanks, and signs for small letters. ^ and a blank is a
/// caret, and one before anything else too.
bool MtextParser::takeCaret() {
  if (rest_.size() < 2 || rest_[0] != '^') return false;
  const char next = rest_[1];
  const bool isControl = next >= '@' && next <= '_';
  const bool isSign = next >= 'a' && next <= 'z';
  if (next != ' ' && !isControl && !isSign) return false;
  rest_.remove_prefix(2);
  if (next == 'J') {
    endLine();
  } else if (next == 'I') {
    parsed_.text += kTabulator;
  } else if (next == ' ') {
    parsed_.text += '^';
  } else {
    parsed_.text += isSign ? static_cast<char>(next - 0x40) : ' ';
  }
  return true;
}

bool MtextParser::takeBackslash() {
  if (rest_.front() != '\\') return false;
  const char letter = rest_.size() > 1 ? rest_[1] : '\\';
  if (kSwitches.find(letter) != std::string_view::npos) {
    rest_.remove_prefix(2);
    takeSwitch(letter);
    return true;
  }
  if (letter == 'S' && takeStack()) return true;
  if (kWithValues.find(letter) != std::string_view::npos && takeValue(letter)) return true;
  takeEscaped(parsed_.text);
  return true;
}

/// A character by its number; other backslashes stand for the character after them.
void MtextParser::takeEscaped(std::string& out) {
  if (const std::size_t length = takeUnicode(rest_, encoder_, out); length > 0) {
    return rest_.remove_prefix(length);
  }
  rest_.remove_prefix(1);
  const std::size_t length = encoder_.firstLength(rest_);
  if (length > 0) encoder_.copy(rest_.substr(0, length), out);
  rest_.remove_prefix(length);
}

/// Codes of one letter.
void MtextParser::takeSwitch(char letter) {
  if (letter == '~') {
    parsed_.text += kHardBlank;
  } else if (letter == 'P' || letter == 'X') {
    endLine();
  } else if (letter == 'N') {
    parsed_.hasColumns = true;
    endLine();
  } else {
    parsed_.hasLines = true;
  }
}

/// Codes whose value ends at the next semicolon; false without one.
bool MtextParser::takeValue(char letter) {
  const std::size_t end = valueEnd();
  if (end == std::string_view::npos) return false;
  const std::string_view value = rest_.substr(2, end - 2);
  if (letter == 'H' && !base::startsWithNumber(value)) return false;
  rest_.remove_prefix(end + 1);
  if (letter == 'H') setHeight(value);
  if (letter == 'W' && base::numberValue(value) != 1.0) parsed_.hasWidths = true;
  if (letter == 'Q' && base::numberValue(value) != 0.0) parsed_.hasOblique = true;
  return true;
}

/// A height, or with an x after it a multiple of the present one.
void MtextParser::setHeight(std::string_view value) {
  const std::string_view unit = base::textAfterNumber(value);
  const bool isFactor = unit.starts_with('x') || unit.starts_with('X');
  const double height = base::numberValue(value) * (isFactor ? height_ : 1.0);
  if (height > 0.0 && geometry::usable(height)) height_ = height;
}

/// A fraction or the like: two sides and what separates them.
bool MtextParser::takeStack() {
  if (valueEnd() == std::string_view::npos) return false;
  rest_.remove_prefix(2);
  char separator = ';';
  const std::string first = takeStackPart(separator);
  if (separator == ';') {
    parsed_.text += first;
    return true;
  }
  char end = '\0';
  const std::string second = takeStackPart(end);
  const bool isFraction = separator != '^';
  const bool isOneSided = first.empty() || second.empty();
  parsed_.text += first;
  if (isFraction) parsed_.text += '/';
  if (!isFraction && !isOneSided) parsed_.text += ' ';
  parsed_.text += second;
  return true;
}

/// Up to a separator, of which only the first one counts, or the end, and beyond it.
std::string MtextParser::takeStackPart(char& separator) {
  const bool isFirst = separator == ';';
  std::string part;
  while (!rest_.empty()) {
    const char next = rest_.front();
    const bool isSeparator = isFirst && (next == '^' || next == '/' || next == '#');
    if (next == ';' || isSeparator) {
      separator = next;
      rest_.remove_prefix(1);
      break;
    }
    next == '\\' ? takeEscaped(part) : takeCharacter(part);
  }
  return std::string(base::trimBlanks(part));
}

void MtextParser::endLine() {
  parsed_.lines.push_back({lineBegin_, parsed_.text.size()});
  lineBegin_ = parsed_.text.size();
}

}  // namespace

bool ParsedText::isBlank() const {
  return lines.size() == 1 && isBlankPart(std::string_view(text).substr(0, lines[0].end));
}

ParsedText parseMtext(std::string_view content, double height, TextEncoder& encoder) {
  return MtextParser(content, height, encoder).parse();
}

}  // namespace quillon::exact

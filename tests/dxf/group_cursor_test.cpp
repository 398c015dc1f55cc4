#include "dxf/group_cursor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "support/dxf_builder.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::kLineEnds;

std::size_t digitsAt(std::string_view text, std::size_t at) {
  std::size_t count = 0;
  while (at + count < text.size() && text[at + count] >= '0' && text[at + count] <= '9') ++count;
  return count;
}

/// True for a sign, digits with a point, an exponent, and nothing else.
bool isDecimalNumber(std::string_view text) {
  std::size_t at = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
  std::size_t digits = digitsAt(text, at);
  at += digits;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fraction = digitsAt(text, at + 1);
    digits += fraction;
    at += 1 + fraction;
  }
  if (digits == 0) return false;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t exponent = digitsAt(text, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == text.size();
}

/// The group code on a line, determined naively, or nothing.
std::optional<int> plainGroupCode(std::string_view line) {
  const std::string trimmed(base::trimBlanks(line));
  if (!isDecimalNumber(trimmed)) return std::nullopt;
  const double rounded = std::nearbyint(std::strtod(trimmed.c_str(), nullptr));
  if (!(rounded >= -32768.0 && rounded <= 32767.0)) return std::nullopt;
  return static_cast<int>(rounded);
}

/// How a cursor reads the first code line of a text: as the end, a group code, or an error.
struct Outcome {
  bool ended = false;
  std::optional<int> code;
  bool operator==(const Outcome&) const = default;
};

Outcome takeCode(std::string_view line, std::string_view lineEnd) {
  const std::string bytes =
      DxfBuilder::withLineEnds("before\n" + std::string(line) + "\nvalue\n", lineEnd);
  const TextSource text(bytes);
  LineCursor lines({text.begin(), text.end()}, text.lineEnds());
  lines.next();
  GroupCursor groups(lines);
  Group group;
  try {
    if (!groups.next(group)) return {true, {}};
  } catch (const base::RunTimeError& error) {
    EXPECT_EQ(error.fault(), base::Fault::BadGroupCode);
    EXPECT_GE(error.position(), text.begin() + 7);
    EXPECT_LT(error.position(), text.begin() + bytes.find("value"));
    return {false, {}};
  }
  EXPECT_EQ(group.value, "value") << '"' << line << '"';
  return {false, group.code};
}

void addLines(std::vector<std::string>& lines, const std::string& start, std::size_t left) {
  lines.push_back(start);
  if (left == 0) return;
  for (const char c : std::string_view(" 0159+-.e\tA")) addLines(lines, start + c, left - 1);
}

TEST(GroupCursor, TakesEveryShortCodeLineByTheRuleOfGroupCodes) {
  std::vector<std::string> lines;
  addLines(lines, "", 4);
  for (const std::string& line : lines) {
    const bool ends = base::trimBlanks(line) == "0";
    const Outcome expected{ends, ends ? std::nullopt : plainGroupCode(line)};
    for (const std::string_view lineEnd : kLineEnds) {
      ASSERT_EQ(takeCode(line, lineEnd), expected) << '"' << line << '"';
    }
  }
}

TEST(GroupCursor, TakesLongCodeLinesByTheSameRule) {
  for (const std::string_view line :
       {"     10", "10     ", "        0",     "0        ", "00000",  "000010",
        "1071 ",   " 1071",   "32767",         "32768",     "-32768", "-32769",
        "65536",   "65546",   "1000000000000", "10.500",    "1.05e1", "12a45",
        "LINE",    "LINES",   "ENDSEC",        "1e1    ",   "1 0 1",  "0.0000"}) {
    const bool ends = base::trimBlanks(line) == "0";
    const Outcome expected{ends, ends ? std::nullopt : plainGroupCode(line)};
    for (const std::string_view lineEnd : kLineEnds) {
      EXPECT_EQ(takeCode(line, lineEnd), expected) << '"' << line << '"';
    }
  }
}

TEST(GroupCursor, TrimsValuesAndLeavesTheirTabsAndCase) {
  const TextSource text(" 10\n  1.5 \n  1\n\tNote a \n  7\n\n  0\nLINE\n");
  GroupCursor groups(LineCursor({text.begin(), text.end()}, text.lineEnds()));
  std::vector<std::pair<int, std::string>> found;
  for (Group group; groups.next(group);) found.emplace_back(group.code, group.value);
  EXPECT_EQ(found,
            (std::vector<std::pair<int, std::string>>{{10, "1.5"}, {1, "\tNote a"}, {7, ""}}));
}

TEST(GroupCursor, StaysAtTheZeroThatEndsTheEntity) {
  const TextSource text("  8\n0\n  0\nLINE\n");
  GroupCursor groups(LineCursor({text.begin(), text.end()}, text.lineEnds()));
  Group group;
  EXPECT_TRUE(groups.next(group));
  EXPECT_FALSE(groups.next(group));
  EXPECT_EQ(groups.lines().position(), text.begin() + 6);
  EXPECT_FALSE(groups.next(group));
}

TEST(GroupCursor, FailsWhereTheLinesEndInsideAnEntity) {
  for (const std::string_view bytes :
       {"", "  8\nA\n", "  8\nA\n 62\n", "  8\nA\n 62", "  8\nA\n 62\n7"}) {
    const TextSource text(bytes);
    GroupCursor groups(LineCursor({text.begin(), text.end()}, text.lineEnds()));
    try {
      Group group;
      while (groups.next(group)) {
      }
      ADD_FAILURE() << "no error: " << bytes;
    } catch (const base::RunTimeError& error) {
      EXPECT_EQ(error.fault(), base::Fault::TextEndsTooEarly) << bytes;
      EXPECT_EQ(error.position(), text.end()) << bytes;
    }
  }
}

TEST(GroupCursor, SeesNothingAfterItsLines) {
  const TextSource text("  8\nA\n  0\nLINE\n");
  const LineRange firstGroup{text.begin(), text.begin() + 6};
  GroupCursor groups(LineCursor(firstGroup, text.lineEnds()));
  Group group;
  EXPECT_TRUE(groups.next(group));
  EXPECT_THROW(groups.next(group), base::RunTimeError);
}

/// The lines of a range, split one character at a time.
std::vector<std::string> plainLines(LineRange range, const LineEnds& ends) {
  std::vector<std::string> lines;
  for (const char* at = range.begin; at < range.end;) {
    if (*at == ends.eolOther) ++at;
    std::string& line = lines.emplace_back();
    while (at < range.end && *at != ends.eolChar) line += *at++;
    ++at;
  }
  return lines;
}

TEST(LineCursor, SplitsAnyRangeOfLinesAtItsLineEndsAndAtItsEnd) {
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    std::string bytes;
    for (auto left = random() % 400; left > 0; --left) bytes += "ab \n\n"[random() % 5];
    const TextSource text(
        DxfBuilder::withLineEnds(bytes, kLineEnds[random() % std::size(kLineEnds)]));
    // From the start of a line to anywhere, also into the middle of a line.
    const char* begin = text.begin();
    for (auto skip = random() % 3; skip > 0 && begin != text.end(); --skip) {
      const char* const found = std::find(begin, text.end(), text.lineEnds().eolChar);
      begin = found == text.end() ? begin : found + 1;
    }
    const char* const end = begin + random() % static_cast<unsigned>(text.end() - begin + 1);
    std::vector<std::string> lines;
    LineCursor cursor({begin, end}, text.lineEnds());
    while (!cursor.atEnd()) {
      EXPECT_LT(cursor.position(), end);
      if (random() % 8 == 0) cursor.seek(cursor.position());
      lines.emplace_back(cursor.next());
    }
    EXPECT_EQ(cursor.position(), end);
    EXPECT_EQ(cursor.next(), "");
    ASSERT_EQ(lines, plainLines({begin, end}, text.lineEnds()));
  }
}

}  // namespace
}  // namespace quillon::dxf

#include "classic/format_codes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/script_capture.h"
#include "support/timing.h"

namespace quillon::classic {
namespace {

using testing::leastSeconds;
using testing::ScriptCapture;

std::string stripped(std::string text) {
  ScriptCapture capture;
  EXPECT_TRUE(stripFormatCodes(text, capture.context.cancelled));
  return text;
}

TEST(FormatCodes, RunFromABackslashToTheNextSemicolon) {
  EXPECT_EQ(stripped("\\fArial;Hello"), "Hello");
  EXPECT_EQ(stripped("Hello\\H2.5x; world"), "Hello world");
  EXPECT_EQ(stripped("a\\;b"), "ab");
}

TEST(FormatCodes, StayWithoutASemicolon) {
  EXPECT_EQ(stripped("\\PHello"), "\\PHello");
  EXPECT_EQ(stripped("a;b\\Pc\\Pd"), "a;b\\Pc\\Pd");
  EXPECT_EQ(stripped("\\"), "\\");
}

TEST(FormatCodes, ReachFromTheFirstOfSeveralBackslashes) {
  EXPECT_EQ(stripped("x\\Pa\\H2;y"), "xy");
}

TEST(FormatCodes, DisappearWhereverTheyOccur) {
  EXPECT_EQ(stripped("\\A1;x\\A1;y\\A1;"), "xy");
  EXPECT_EQ(stripped("\\A1;x\\A2;y"), "xy");
}

TEST(FormatCodes, AreLookedForFromTheStartAfterEveryDeletion) {
  // Without "\A;" the text reads "\B;c", which is another code.
  EXPECT_EQ(stripped("\\A;\\B\\A;;c"), "c");
  EXPECT_EQ(stripped("\\A;x\\Py"), "x\\Py");
}

TEST(FormatCodes, LeaveTextsWithoutABackslashAlone) {
  EXPECT_EQ(stripped(""), "");
  EXPECT_EQ(stripped("a;b"), "a;b");
}

/// Removes format codes naively, each throughout the whole text.
std::string strippedStepByStep(std::string text) {
  std::size_t from = 0;
  for (;;) {
    const std::size_t backslash = text.find('\\', from);
    if (backslash == std::string::npos) return text;
    const std::size_t semicolon = text.find(';', backslash);
    from = backslash + 1;
    if (semicolon == std::string::npos) continue;
    const std::string piece = text.substr(backslash, semicolon - backslash + 1);
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at)) {
      text.erase(at, piece.size());
    }
    from = 0;
  }
}

TEST(FormatCodes, OfTextsOfAnyShapeAreRemovedAsStepByStep) {
  std::mt19937 random(5);
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (std::size_t n = random() % 24; n > 0; --n) text += "\\\\;;AB1"[random() % 7];
    ASSERT_EQ(stripped(text), strippedStepByStep(text)) << text;
  }
}

/// Codes that are parts of each other: each is a random piece of the previous one.
std::string nestedCodes(std::mt19937& random, std::size_t count) {
  std::vector<std::string> pieces = {"\\A\\B1;", "\\B1;", "\\B\\A;", "x;"};
  std::string text;
  while (text.size() < count) {
    const std::string& one = pieces[random() % pieces.size()];
    const std::string& other = pieces[random() % pieces.size()];
    std::string next = one.substr(random() % one.size()) + other.substr(random() % other.size());
    text += next.substr(0, random() % (next.size() + 1));
    if (next.size() < 40 && random() % 2 == 0) pieces.push_back(next);
  }
  return text;
}

TEST(FormatCodes, WithinEachOtherAreRemovedAsStepByStep) {
  std::mt19937 random(6);
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (std::size_t n = random() % 60; n > 0; --n) text += "\\\\\\;;aa"[random() % 7];
    ASSERT_EQ(stripped(text), strippedStepByStep(text)) << text;
  }
  for (int i = 0; i < 300; ++i) {
    const std::string text = nestedCodes(random, 20 + random() % 1000);
    ASSERT_EQ(stripped(text), strippedStepByStep(text)) << text;
  }
}

TEST(FormatCodes, OfAVeryLongTextAreRemovedInReasonableTime) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "\\A1;x";
  EXPECT_EQ(stripped(text), std::string(100'000, 'x'));
}

/// A text with many different codes, each with a backslash inside.
std::string manyCodes(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text.append("\\H").append(number).append("\\C").append(number).append(";x");
  }
  return text;
}

TEST(FormatCodes, OfManyKindsCostNoMoreThanTheirText) {
  const auto secondsFor = [](std::size_t codes) {
    const std::string text = manyCodes(codes);
    return leastSeconds([&] { EXPECT_EQ(stripped(text), std::string(codes, 'x')); });
  };
  const double few = secondsFor(2'000);
  const double many = secondsFor(40'000);
  // A factor of 20 when the cost is linear, 400 when quadratic.
  EXPECT_LT(many / few, 100.0) << few << " s, " << many << " s";
}

TEST(FormatCodes, StopBeingRemovedAfterACancel) {
  ScriptCapture capture;
  capture.monitor.cancelWhen = [&capture] { return capture.monitor.polls > 3; };
  std::string text = manyCodes(10'000);
  EXPECT_FALSE(stripFormatCodes(text, capture.context.cancelled));
  EXPECT_LT(capture.monitor.polls, 10U);
}

}  // namespace
}  // namespace quillon::classic

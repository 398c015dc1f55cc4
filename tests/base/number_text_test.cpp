#include "base/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/coordinate_text.h"
#include "base/run_time_error.h"
#include "support/infinity.h"

namespace quillon::base {
namespace {

using testing::kInfinity;

struct NumberCase {
  std::string_view text;
  double value;
};

void expectValues(std::initializer_list<NumberCase> cases) {
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(numberValue(text), value) << '"' << text << '"';
  }
}

TEST(TrimBlanks, TakesBlanksAwayAtBothEndsAndLeavesTabs) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
  EXPECT_EQ(trimBlanks(" \t "), "\t");
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(trimBlanks(""), "");
}

TEST(NumberRule, ReadsSignDigitsPointAndExponent) {
  expectValues({{"12.5", 12.5},
                {"0", 0.0},
                {"007", 7.0},
                {"+3", 3.0},
                {"-3.25", -3.25},
                {".5", 0.5},
                {"-.5", -0.5},
                {"5.", 5.0},
                {"1e3", 1000.0},
                {"1E3", 1000.0},
                {"1e+3", 1000.0},
                {"5.e2", 500.0},
                {".5e1", 5.0},
                {"-1.5e-3", -0.0015},
                {"1e0000000000000000003", 1000.0}});
}

TEST(NumberRule, SkipsLeadingBlanksAndTabs) {
  expectValues({{"   12.5", 12.5}, {"\t12.5", 12.5}, {" \t \t-7", -7.0}});
}

TEST(NumberRule, StopsAtTheFirstCharacterThatDoesNotFit) {
  expectValues({{"12abc", 12.0},
                {"1,5", 1.0},
                {"1.2.3", 1.2},
                {"10 20", 10.0},
                {"7\t8", 7.0},
                {"3-4", 3.0},
                {"0.5;-0.25;", 0.5},
                {"2d3", 2.0},
                {"2D3", 2.0},
                {"0x10", 0.0},
                {"1e5.5", 1e5}});
}

TEST(NumberRule, LeavesAnExponentWithoutDigitsOut) {
  expectValues(
      {{"1e", 1.0}, {"1E+", 1.0}, {"1e-", 1.0}, {"4ex", 4.0}, {"4e 2", 4.0}, {"1e+-3", 1.0}});
}

TEST(NumberRule, GivesZeroForTextWithoutDigits) {
  for (const std::string_view text :
       {"", " ", "\t", ".", "+", "-", "-.", "- 5", "+-5", "e5", ".e5", "abc", "inf", "-infinity",
        "nan", ",5", "&H10", "\xA0\x35", "$LTSCALE"}) {
    EXPECT_EQ(numberValue(text), 0.0) << '"' << text << '"';
  }
}

TEST(NumberRule, GivesInfinityForNumbersTooLargeForADouble) {
  const std::string manyDigits = "1" + std::string(400, '0');
  expectValues({{"1e309", kInfinity},
                {"-1e309", -kInfinity},
                {"1e99999999999999999999", kInfinity},
                {"0.00001e99999999999999999999", kInfinity},
                {manyDigits, kInfinity},
                {"1.7976931348623159e308", kInfinity},
                {"1.7976931348623157e308", std::numeric_limits<double>::max()}});
}

TEST(NumberRule, GivesZeroForNumbersTooSmallForADouble) {
  const std::string manyZeros = "0." + std::string(400, '0') + "1";
  expectValues({{"1e-400", 0.0},
                {"-1e-400", 0.0},
                {"1e-99999999999999999999", 0.0},
                {"12345678901234567890123e-99999999999", 0.0},
                {manyZeros, 0.0},
                {"2.4e-324", 0.0},
                {"2.5e-324", std::numeric_limits<double>::denorm_min()}});
}

TEST(NumberRule, WeighsManyDigitsAgainstTheExponent) {
  const std::string large = "1" + std::string(400, '0') + "e-400";
  const std::string small = "0." + std::string(400, '0') + "1e401";
  expectValues({{large, 1.0}, {small, 1.0}, {"0e99999999999", 0.0}, {"0.000e-99999999999", 0.0}});
}

TEST(NumberRule, RoundsHalfwayCasesToTheNearestDouble) {
  for (const char* const text : {"9007199254740991",
                                 "9007199254740992",
                                 "9007199254740993",
                                 "9007199254740995",
                                 "9007199254740993.0000000000000000000000001",
                                 "1e22",
                                 "1e23",
                                 "9007199254740993e22",
                                 "0.1",
                                 "0.3",
                                 "123456789012345678",
                                 "1234567890123456789",
                                 "12345678901234567890",
                                 "0.1234567890123456789",
                                 "2.2250738585072011e-308",
                                 "2.2250738585072014e-308",
                                 "6929495644600919.5",
                                 "8.5e-23",
                                 "5e-324",
                                 "1.00000000000000011102230246251565"}) {
    EXPECT_EQ(numberValue(text), std::strtod(text, nullptr)) << text;
  }
}

/// So many decimals behind the digits of a whole number.
std::string withPoint(std::uint64_t digits, std::size_t places) {
  std::string text = std::to_string(digits);
  return places == 0 ? text : text.insert(text.size() - places, ".");
}

TEST(NumberRule, RoundsLongNumbersAtAndBesideHalfwayCasesLikeTheCLibrary) {
  std::mt19937_64 random(53);
  for (int i = 0; i < 20'000; ++i) {
    // 54 bits, the last of which is set: halfway between two doubles.
    std::uint64_t digits = std::uint64_t{1} << 53 | (random() >> 11) | 1U;
    for (std::size_t places = 0; places < 4; ++places, digits *= 5) {
      for (const std::uint64_t text : {digits, digits - 1, digits + 1}) {
        const std::string number = withPoint(text, places);
        ASSERT_EQ(numberValue(number), std::strtod(number.c_str(), nullptr)) << number;
      }
    }
  }
}

TEST(NumberRule, RoundsRandomNumbersOfUpToNineteenDigitsLikeTheCLibrary) {
  std::mt19937_64 random(1917);
  for (int i = 0; i < 200'000; ++i) {
    const std::string number = withPoint(std::uint64_t{1} << 53 | (random() >> 1), random() % 16);
    ASSERT_EQ(numberValue(number), std::strtod(number.c_str(), nullptr)) << number;
  }
}

TEST(NumberRule, GivesRandomDoublesBackFromTheirText) {
  std::mt19937_64 random(20261121);
  std::array<char, 400> text{};
  for (int i = 0; i < 50'000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    std::snprintf(text.data(), text.size(), "%.17g", value);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(numberValue(text.data())),
              std::bit_cast<std::uint64_t>(value))
        << text.data();
    // Typical numbers in drawings: moderate, with a few decimals.
    const double moderate = std::fmod(value, 1e6);
    std::snprintf(text.data(), text.size(), "%.*f", static_cast<int>(i % 20), moderate);
    ASSERT_EQ(numberValue(text.data()), std::strtod(text.data(), nullptr)) << text.data();
  }
}

TEST(NumberRule, AgreesWithTheCLibraryOnRandomText) {
  constexpr std::string_view kCharacters = "00123456789999..eE+- \t,d;";
  std::mt19937_64 random(4711);
  for (int i = 0; i < 200'000; ++i) {
    std::string text;
    for (auto left = random() % 24; left > 0; --left) {
      text += kCharacters[random() % kCharacters.size()];
    }
    ASSERT_EQ(numberValue(text), std::strtod(text.c_str(), nullptr)) << '"' << text << '"';
  }
}

void addTexts(std::vector<std::string>& texts, const std::string& start, std::size_t left) {
  texts.push_back(start);
  if (left == 0) return;
  for (const char c : std::string_view("09.-:")) addTexts(texts, start + c, left - 1);
}

TEST(NumberRule, AgreesWithTheCLibraryOnEveryShortText) {
  std::vector<std::string> texts;
  addTexts(texts, "", 6);
  for (const std::string& text : texts) {
    const double expected = std::strtod(text.c_str(), nullptr);
    ASSERT_EQ(numberValue(text), expected) << '"' << text << '"';
  }
}

TEST(NumberRule, AgreesWithTheCLibraryOnDigitsOfAnyLengthWithAPointAnywhere) {
  std::mt19937_64 random(815);
  for (std::size_t length = 1; length <= 24; ++length) {
    for (std::size_t point = 0; point <= length; ++point) {
      for (int round = 0; round < 40; ++round) {
        std::string text = round % 2 == 0 ? "" : "-";
        for (std::size_t i = 0; i < length; ++i) {
          if (i == point) text += '.';
          text += static_cast<char>('0' + (round < 4 ? 9 : random() % 10));
        }
        if (point == length) text += '.';
        // Sometimes a character that is no digit, or a second point.
        if (round >= 30) text[random() % text.size()] = "-./:e ;"[random() % 7];
        const double expected = std::strtod(text.c_str(), nullptr);
        ASSERT_EQ(numberValue(text), expected) << '"' << text << '"';
      }
    }
  }
}

TEST(DigitsByWords, AreThoseOfTheCLibraryWhereTheyAreRead) {
  if (std::endian::native != std::endian::little) GTEST_SKIP();
  std::mt19937_64 random(907);
  int known = 0;
  for (std::size_t length = 1; length <= 20; ++length) {
    for (std::size_t point = 0; point <= length; ++point) {
      std::string text;
      for (std::size_t i = 0; i < length; ++i) {
        if (i == point) text += '.';
        // A double holds fifteen digits.
        text += static_cast<char>('0' + (i + 15 < length ? 0 : random() % 10));
      }
      CoordinateDigits digits;
      if (!readDigitsByWords(text, digits)) continue;
      ++known;
      const double value = static_cast<double>(digits.mantissa) / std::pow(10.0, digits.places);
      EXPECT_EQ(value, std::strtod(text.c_str(), nullptr)) << text;
    }
  }
  EXPECT_GT(known, 100);
}

TEST(NumberRule, ReadsNothingAroundItsText) {
  // Digits on both sides would be seen in the value.
  const std::string around = "99999999";
  for (const std::string_view text : {"", "1", "12", "1.5", "-1.5", "12.5", "123.5", "1234.5",
                                      "12345.5", "123456.5", "1234567.5", "1.5555555555"}) {
    const std::string bytes = around + std::string(text) + around;
    EXPECT_EQ(numberValue(std::string_view(bytes).substr(8, text.size())),
              std::strtod(std::string(text).c_str(), nullptr))
        << text;
  }
}

TEST(NumberRule, KeepsTheSignOfZero) {
  for (const std::string_view text : {"-0", "-0.0", "-0.00000", "-0.0000000000", "-0000000000.0"}) {
    EXPECT_TRUE(std::signbit(numberValue(text))) << text;
    EXPECT_FALSE(std::signbit(numberValue(text.substr(1)))) << text;
  }
}

TEST(RoundedInteger16, RoundsHalfToEven) {
  for (const auto& [value, rounded] : {std::pair{0.5, 0},
                                       {1.5, 2},
                                       {2.5, 2},
                                       {-0.5, 0},
                                       {-1.5, -2},
                                       {2.4, 2},
                                       {2.6, 3},
                                       {32767.4, 32767},
                                       {-32768.5, -32768}}) {
    bool fits = false;
    EXPECT_EQ(roundedInteger16(value, fits), rounded) << value;
    EXPECT_TRUE(fits) << value;
  }
}

TEST(RoundedInteger16, RefusesWhatDoesNotFitInSixteenBits) {
  for (const double value : {32767.5, 32768.0, -32768.6, -32769.0, 1e300, kInfinity, -kInfinity,
                             std::numeric_limits<double>::quiet_NaN()}) {
    bool fits = true;
    EXPECT_EQ(roundedInteger16(value, fits), 0) << value;
    EXPECT_FALSE(fits) << value;
  }
}

TEST(IsOddNumber, TakesTheRoundedLeadingNumber) {
  for (const std::string_view odd : {"1", " 1", "3", "129", "-1", "-3", "1 closed", "0.6", "1e0"}) {
    EXPECT_TRUE(isOddNumber(odd)) << odd;
  }
  for (const std::string_view even :
       {"", "0", "2", "128", "-2", "abc", "0.5", "1.5", "2.5", "1e30"}) {
    EXPECT_FALSE(isOddNumber(even)) << even;
  }
}

TEST(GroupCode, ConvertsEveryIntegerOfSixteenBits) {
  for (int code = -32768; code <= 32767; ++code) {
    ASSERT_EQ(groupCode(std::to_string(code)), code);
  }
}

TEST(GroupCode, ConvertsAnyDecimalNumberRoundedHalfToEven) {
  struct Case {
    std::string_view line;
    int code;
  };
  for (const auto& [line, code] :
       {Case{" 10", 10},      {"10 ", 10},  {"   8   ", 8}, {"+10", 10},     {"-5", -5},
        {"010", 10},          {"00", 0},    {"0.0", 0},     {"10.", 10},     {".5", 0},
        {"1.5", 2},           {"10.5", 10}, {"11.5", 12},   {"10.4999", 10}, {"10.51", 11},
        {"1e1", 10},          {"1E+1", 10}, {"105e-1", 10}, {"-0.5", 0},     {"32767.4", 32767},
        {"-32768.5", -32768}, {"1e-400", 0}}) {
    EXPECT_EQ(groupCode(line), code) << '"' << line << '"';
  }
}

TEST(GroupCode, RefusesEveryOtherLine) {
  for (const std::string_view line :
       {"",      " ",    "    ",  "abc",    "LINE",  "10a",   "a10",     "1 0",
        "1,0",   ".",    "+",     "-",      "e1",    "1e",    "1e+",     "0x10",
        "--1",   "\t10", "10\t",  " \t10",  "1.2.3", "32768", "32767.5", "-32769",
        "99999", "1e5",  "1e400", "-1e400", "inf",   "nan",   "1d1"}) {
    try {
      groupCode(line);
      ADD_FAILURE() << '"' << line << "\" was taken for a group code";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.fault(), Fault::BadGroupCode) << line;
      EXPECT_EQ(error.subject(), line);
      EXPECT_EQ(error.position(), line.data());
    }
  }
}

TEST(NumberText, HasFifteenDigitsAndNoTrailingZeros) {
  struct Case {
    double value;
    std::string_view text;
  };
  for (const auto& [value, text] : {Case{0.5, "0.5"},
                                    {-0.25, "-0.25"},
                                    {0.0, "0"},
                                    {-0.0, "0"},
                                    {12.7, "12.7"},
                                    {1.0, "1"},
                                    {-100.0, "-100"},
                                    {1e6, "1000000"},
                                    {123456.789, "123456.789"},
                                    {0.1 + 0.2, "0.3"},
                                    {1.0 / 3.0, "0.333333333333333"},
                                    {200.0 / 3.0, "66.6666666666667"},
                                    {0.0001, "0.0001"},
                                    {123456789012345.0, "123456789012345"}}) {
    EXPECT_EQ(numberText(value), text);
  }
}

TEST(TextAfterNumber, IsWhatFollowsTheNumber) {
  for (const char* const whole : {"", " ", "\t ", "1", " -2.5e3\t ", "+.5", "5."}) {
    EXPECT_EQ(textAfterNumber(whole), "") << whole;
  }
  EXPECT_EQ(textAfterNumber("2,5"), ",5");
  EXPECT_EQ(textAfterNumber("2 mm "), " mm ");
  EXPECT_EQ(textAfterNumber("1e"), "e");
  EXPECT_EQ(textAfterNumber("1.2.3"), ".3");
  EXPECT_EQ(textAfterNumber("1\xC2\xA0"), "\xC2\xA0");
}

TEST(TextAfterNumber, IsTheWholeTextWithoutANumber) {
  for (const char* const none : {"abc", " x 1", "-", ".", ",5", "+-1"}) {
    EXPECT_EQ(textAfterNumber(none), none);
    EXPECT_FALSE(startsWithNumber(none)) << none;
  }
  EXPECT_TRUE(startsWithNumber(" 0x"));
  EXPECT_FALSE(startsWithNumber(""));
}

TEST(NumberText, KeepsInfinityReadable) {
  EXPECT_EQ(numberValue(numberText(kInfinity)), kInfinity);
  EXPECT_EQ(numberValue(numberText(-kInfinity)), -kInfinity);
}

TEST(NumberText, IsReadBackAsTheSameNumberUpToFifteenDigits) {
  std::mt19937_64 random(99);
  std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
  for (int i = 0; i < 20'000; ++i) {
    const double value = mantissa(random) * std::pow(10.0, static_cast<double>(i % 40 - 20));
    ASSERT_NEAR(numberValue(numberText(value)), value, std::fabs(value) * 1e-14) << value;
  }
}

}  // namespace
}  // namespace quillon::base

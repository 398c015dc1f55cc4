#include "eagle/number_format.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <string_view>

#include "eagle/exact_decimal.h"

namespace quillon::eagle {
namespace {

using testing::exactSevenDecimals;

struct FormatCase {
  double value;
  std::string_view text;
};

void expectTexts(std::initializer_list<FormatCase> cases) {
  for (const auto& [value, text] : cases) EXPECT_EQ(formatNumber(value), text);
}

TEST(FormatNumber, WritesAtLeastOneDigitBeforeThePointAndSevenAfterIt) {
  expectTexts({{2.5, "2.5000000"},
               {1.0, "1.0000000"},
               {0.5, "0.5000000"},
               {0.25, "0.2500000"},
               {10.0, "10.0000000"},
               {99.0, "99.0000000"},
               {100.0, "100.0000000"},
               {1234567.125, "1234567.1250000"}});
}

TEST(FormatNumber, WritesAMinusSignForNegatives) {
  expectTexts({{-2.5, "-2.5000000"}, {-0.0625, "-0.0625000"}, {-838.86, "-838.8600000"}});
}

TEST(FormatNumber, WritesNoThousandsSeparator) {
  expectTexts({{1000.0, "1000.0000000"}, {-1234567890.0, "-1234567890.0000000"}});
}

TEST(FormatNumber, WritesAnyNumberOfDigitsBeforeThePoint) {
  expectTexts({{9.0, "9.0000000"},
               {10.5, "10.5000000"},
               {99.5, "99.5000000"},
               {100.25, "100.2500000"},
               {101.0, "101.0000000"},
               {999.0, "999.0000000"},
               {1000.5, "1000.5000000"},
               {1005.0, "1005.0000000"},
               {9999.0, "9999.0000000"},
               {10000.5, "10000.5000000"},
               {100000.0, "100000.0000000"}});
}

TEST(FormatNumber, WritesZeroWithoutASignWhateverItsSignBit) {
  EXPECT_EQ(formatNumber(0.0), "0.0000000");
  EXPECT_EQ(formatNumber(-0.0), "0.0000000");
}

TEST(FormatNumber, KeepsTheSignOfANegativeThatRoundsToZero) {
  constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
  expectTexts({{-0.00000004, "-0.0000000"},
               {-1e-300, "-0.0000000"},
               {-std::numeric_limits<double>::min(), "-0.0000000"},
               {-kSmallest, "-0.0000000"},
               {kSmallest, "0.0000000"},
               {0.00000004, "0.0000000"}});
}

TEST(FormatNumber, RoundsExactHalvesAwayFromZero) {
  // Only odd multiples of 1/256 have an eighth decimal of exactly 5: 1/256 = 0.00390625.
  expectTexts({{1.0 / 256, "0.0039063"},
               {-1.0 / 256, "-0.0039063"},
               {3.0 / 256, "0.0117188"},  // 0.01171875
               {5.0 / 256, "0.0195313"},  // 0.01953125
               {-5.0 / 256, "-0.0195313"},
               {255.0 / 256, "0.9960938"},  // 0.99609375
               {1234.00390625, "1234.0039063"},
               {-1234.00390625, "-1234.0039063"},
               {17592186044416.00390625, "17592186044416.0039063"}});
}

TEST(FormatNumber, RoundsTheNeighboursOfAHalfToTheirOwnSide) {
  for (const double sign : {1.0, -1.0}) {
    const std::string minus = sign < 0.0 ? "-" : "";
    const double half = 1.0 / 256;
    EXPECT_EQ(formatNumber(sign * std::nextafter(half, 0.0)), minus + "0.0039062");
    EXPECT_EQ(formatNumber(sign * std::nextafter(half, 1.0)), minus + "0.0039063");
    const double large = 1234.00390625;
    EXPECT_EQ(formatNumber(sign * std::nextafter(large, 0.0)), minus + "1234.0039062");
    EXPECT_EQ(formatNumber(sign * std::nextafter(large, 1e9)), minus + "1234.0039063");
  }
}

TEST(FormatNumber, CarriesARoundingIntoTheDigitsBeforeThePoint) {
  expectTexts({{0.99999995001, "1.0000000"},
               {9.99999996, "10.0000000"},
               {-99.99999999, "-100.0000000"},
               {999999.99999996, "1000000.0000000"}});
}

TEST(FormatNumber, HoldsWhereTheNumberOfDigitsBeforeThePointChanges) {
  for (const double power : {1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7}) {
    for (const double step : {0.0, 1.0, 0.5, 1e-7, 0.25, 0.1234567}) {
      for (const double value : {power - step, power + step, -power - step, step - power}) {
        ASSERT_EQ(formatNumber(value), exactSevenDecimals(value)) << value;
      }
    }
  }
  for (int whole = 0; whole <= 12'000; ++whole) {
    ASSERT_EQ(formatNumber(whole), std::to_string(whole) + ".0000000");
  }
}

TEST(FormatNumber, HoldsAroundTheSizesWhereFractionsEnd) {
  expectTexts({{4503599627370495.5, "4503599627370495.5000000"},   // 2^52 - 1/2
               {4503599627370496.0, "4503599627370496.0000000"},   // 2^52
               {4503599627370497.0, "4503599627370497.0000000"},   // 2^52 + 1
               {2251799813685247.75, "2251799813685247.7500000"},  // 2^51 - 1/4
               {2251799813685248.5, "2251799813685248.5000000"},   // 2^51 + 1/2
               {9007199254740991.0, "9007199254740991.0000000"},   // 2^53 - 1
               {9007199254740992.0, "9007199254740992.0000000"},   // 2^53
               {9007199254740994.0, "9007199254740994.0000000"},   // 2^53 + 2
               {-4503599627370495.5, "-4503599627370495.5000000"},
               {-4503599627370496.0, "-4503599627370496.0000000"},
               {9223372036854775808.0, "9223372036854775808.0000000"},      // 2^63
               {18446744073709551616.0, "18446744073709551616.0000000"}});  // 2^64
}

TEST(FormatNumber, HoldsWhereTheScaledValueLeavesSixtyFourBits) {
  // 2^64 / 10^7 = 1844674407370.9551616
  expectTexts({{1844674407370.5, "1844674407370.5000000"},
               {1844674407371.0, "1844674407371.0000000"},
               {1844674407371.5, "1844674407371.5000000"},
               {-1844674407371.5, "-1844674407371.5000000"}});
}

TEST(FormatNumber, WritesEveryDigitOfAVeryLargeNumber) {
  constexpr double kMax = std::numeric_limits<double>::max();
  for (const double value : {1e22, 1e23, 1e100, -1e308, 1e308, kMax, -kMax}) {
    EXPECT_EQ(formatNumber(value), exactSevenDecimals(value)) << value;
  }
  EXPECT_EQ(formatNumber(1e22), "10000000000000000000000.0000000");
  EXPECT_EQ(formatNumber(kMax).substr(0, 20), "17976931348623157081");
  EXPECT_EQ(formatNumber(-kMax).size(), 318U);
}

TEST(FormatNumber, FitsTheRoomThatCallersProvide) {
  constexpr double kMax = std::numeric_limits<double>::max();
  std::array<char, kNumberRoom + 8> buffer{};
  for (const double value : {-kMax, kMax, -1e308, -4503599627370496.0, -0.0, 0.5}) {
    buffer.fill('#');
    const char* const end = formatNumber(value, buffer.data());
    const auto size = static_cast<std::size_t>(end - buffer.data());
    ASSERT_LE(size, kNumberRoom);
    EXPECT_EQ(std::string_view(buffer.data(), size), exactSevenDecimals(value + 0.0));
    for (std::size_t i = kNumberRoom; i < buffer.size(); ++i) EXPECT_EQ(buffer[i], '#');
  }
}

TEST(FormatNumber, AgreesWithExactArithmeticForCoordinatesOfAnySize) {
  std::mt19937_64 random(20231121);
  std::uniform_int_distribution<int> exponent(-40, 60);
  std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
  for (int i = 0; i < 20'000; ++i) {
    const double value = std::ldexp(mantissa(random), exponent(random));
    ASSERT_EQ(formatNumber(value), exactSevenDecimals(value));
  }
}

TEST(FormatNumber, AgreesWithExactArithmeticForNumbersCloseToHalves) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> whole(-4'000'000'000'000, 4'000'000'000'000);
  for (int i = 0; i < 10'000; ++i) {
    // An eighth decimal of 5, as close as a double gets.
    const double value = (static_cast<double>(whole(random)) + 0.5) / 1e7;
    ASSERT_EQ(formatNumber(value), exactSevenDecimals(value));
    const double usual = (static_cast<double>(whole(random) % 10'000'000'000) + 0.5) / 1e7;
    for (const double beside : {usual, std::nextafter(usual, 1e9), std::nextafter(usual, -1e9)}) {
      ASSERT_EQ(formatNumber(beside), exactSevenDecimals(beside));
    }
    const double half = (2.0 * static_cast<double>(whole(random) % 1'000'000'000) + 1.0) / 256.0;
    ASSERT_EQ(formatNumber(half), exactSevenDecimals(half));
  }
}

TEST(FormatNumber, AgreesWithExactArithmeticForAnyBitPattern) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 1'000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(formatNumber(value), exactSevenDecimals(value));
  }
}

/// Formats numbers as some countries do: decimal comma, a point between thousands.
class CommaNumbers : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(FormatNumber, UsesThePointWhateverTheUsersLocale) {
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
  // Has no effect where this locale is missing; the facet above is always used.
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  const std::string small = formatNumber(1234.5);
  const std::string large = formatNumber(1e16);
  std::setlocale(LC_ALL, "C");
  std::locale::global(before);
  EXPECT_EQ(small, "1234.5000000");
  EXPECT_EQ(large, "10000000000000000.0000000");
}

}  // namespace
}  // namespace quillon::eagle

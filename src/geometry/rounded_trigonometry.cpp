#include "geometry/rounded_trigonometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "base/double_pair.h"
#include "geometry/trigonometry_tables.h"

namespace quillon::geometry {
namespace {

using base::productOf;
using base::sumOf;

constexpr double kSteps = 64.0;        // table entries per 1
constexpr double kEighthTurn = 0.785;  // slightly less than pi / 4
constexpr double kTiny = 0x1p-27;      // below it, sine and arc tangent equal their argument

/// An angle as quarter turns plus a remainder of at most an eighth of a turn.
struct Reduced {
  unsigned quarters = 0;
  Pair rest;
};

using Limbs = std::array<std::uint32_t, 8>;  // of a 256-bit number, lowest first

/// 256 bits of 2 / pi from a bit position on.
Limbs twoOverPiFrom(int bit) {
  const auto word = static_cast<std::size_t>(bit / 32);
  const int shift = bit % 32;
  Limbs limbs{};
  for (std::size_t i = 0; i < limbs.size(); ++i) {
    const std::uint64_t two =
        (std::uint64_t{kTwoOverPi[word + i]} << 32U) | kTwoOverPi[word + i + 1];
    limbs[limbs.size() - 1 - i] = static_cast<std::uint32_t>(two >> (32 - shift));
  }
  return limbs;
}

/// A product truncated to 256 bits.
Limbs product(const Limbs& a, std::uint64_t b) {
  Limbs out{};
  for (std::size_t place = 0; place < 2; ++place) {
    const std::uint64_t factor = (b >> (32 * place)) & 0xFFFFFFFFU;
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i + place < out.size(); ++i) {
      const std::uint64_t sum = factor * a[i] + out[i + place] + carry;
      out[i + place] = static_cast<std::uint32_t>(sum);
      carry = sum >> 32U;
    }
  }
  return out;
}

/// Reduces a finite positive angle by an integer multiplication with 2 / pi. Bits of 2 / pi that
/// only contribute whole turns are left out, so the 254 fractional bits of the product are right
/// for an angle of any size.
Reduced reduceAny(double x) {
  constexpr int kDigits = std::numeric_limits<double>::digits;
  constexpr unsigned kBitsOfTop = 30;  // fractional bits in the highest limb
  int exponent = 0;
  const double fraction = std::frexp(x, &exponent);
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, kDigits));
  exponent -= kDigits;
  Limbs limbs = product(twoOverPiFrom(exponent - 2 + kZeroBits), mantissa);
  Reduced reduced;
  reduced.quarters = limbs.back() >> kBitsOfTop;
  limbs.back() &= (1U << kBitsOfTop) - 1;
  const bool above = (limbs.back() >> (kBitsOfTop - 1)) != 0;  // closer to the next quarter turn
  if (above) {
    reduced.quarters = (reduced.quarters + 1) % 4;
    for (std::uint32_t& limb : limbs) limb = ~limb;  // being off by 2^-254 does not matter
    limbs.back() &= (1U << kBitsOfTop) - 1;
  }
  Pair turns;
  double unit = 0x1p-30;
  for (std::size_t i = limbs.size(); i-- > 0; unit *= 0x1p-32) {
    turns = turns + static_cast<double>(limbs[i]) * unit;
  }
  const Pair rest = turns * kHalfPi;
  reduced.rest = above ? -rest : rest;
  return reduced;
}

/// Reduces a finite positive angle. For usual ones, quarter turns are subtracted in parts, which is
/// exact until the last of them.
Reduced reduce(double x) {
  constexpr double kMostTurned = 0x1p20;  // so many quarter turns have 20 bits
  constexpr double kLeastRest = 0x1p-20;  // below it, too few bits are left
  constexpr double kQuartersIn1 = 0x1.45f306dc9c883p-1;
  if (x < kEighthTurn) return {0, {x, 0.0}};
  if (x < kMostTurned) {
    const double quarters = std::floor(x * kQuartersIn1 + 0.5);
    const double first = x - quarters * kHalfPiFirst;
    const Pair rest = sumOf(first, -quarters * kHalfPiSecond) + -(kHalfPiRest * quarters);
    if (std::fabs(rest.high) > kLeastRest) return {static_cast<unsigned>(quarters), rest};
  }
  return reduceAny(x);
}

/// The sine of a small angle, and its cosine minus 1.
struct SmallAngle {
  Pair sine;
  Pair cosineLessOne;
};

/// Up to 1/128, both series need few terms, and only the first ones need two doubles.
SmallAngle smallAngle(const Pair& d) {
  constexpr Pair kMinusSixth = {-0x1.5555555555555p-3, -0x1.5555555555555p-57};
  const Pair square = d * d;
  const double z = square.high;
  const double ofSine = z * z * (1.0 / 120.0 - z * (1.0 / 5040.0 - z * (1.0 / 362880.0)));
  const double ofCosine =
      z * z * (1.0 / 24.0 - z * (1.0 / 720.0 - z * (1.0 / 40320.0 - z * (1.0 / 3628800.0))));
  const Pair half = {-0.5 * square.high, -0.5 * square.low};
  return {d + d * (square * kMinusSixth + ofSine), half + ofCosine};
}

/// The double nearest to a sum whose second part may be wrong by `doubt`; false where that leaves
/// it open. Nearly always it does not, and the sum needs no more digits.
bool roundSum(double first, double second, double doubt, double& sum) {
  sum = first + (second - doubt);
  return sum == first + (second + doubt);
}

/// What sine and cosine of a table's angle plus a small one are made of: a table's value, and how
/// it changes with the angle.
struct Tangential {
  Pair value;
  Pair slope;
};

/// Some 65 bits of it, from products of which only the largest needs two doubles.
bool roundQuickly(const Tangential& at, const Pair& d, double& result) {
  const double z = d.high * d.high;
  const double ofSine = d.high * z * (-1.0 / 6.0 + z * (1.0 / 120.0 - z * (1.0 / 5040.0)));
  const double ofCosine = z * (-0.5 + z * (1.0 / 24.0 - z * (1.0 / 720.0)));
  const Pair change = productOf(at.slope.high, d.high);
  const Pair sum = sumOf(at.value.high, change.high);
  const double less = at.value.low + at.slope.low * d.high + change.low +
                      (at.slope.high - at.value.high * d.high) * d.low;
  const double second = sum.low + (less + (at.slope.high * ofSine + at.value.high * ofCosine));
  const double doubt = (std::fabs(at.value.high) + std::fabs(change.high)) * z * 0x1p-50 +
                       std::fabs(sum.high) * 0x1p-75;
  return roundSum(sum.high, second, doubt, result);
}

/// Sine or cosine of an angle of up to an eighth of a turn, from the nearest multiple of 1/64.
double sineOrCosine(const Pair& angle, bool wantsCosine) {
  const bool negative = angle.high < 0.0;
  const Pair a = negative ? -angle : angle;
  const double step = std::floor(a.high * kSteps + 0.5);
  const auto index = static_cast<std::size_t>(step);
  const Pair small = sumOf(a.high - step / kSteps, a.low);
  const Pair& s = kSines[index];
  const Pair& c = kCosines[index];
  const Tangential at = wantsCosine ? Tangential{c, -s} : Tangential{s, c};
  double result = 0.0;
  if (!roundQuickly(at, small, result)) {
    const SmallAngle d = smallAngle(small);
    result = (at.value + (at.value * d.cosineLessOne + at.slope * d.sine)).high;
  }
  return negative && !wantsCosine ? -result : result;
}

/// The sine of an angle plus some quarter turns.
double sineOf(const Reduced& reduced, unsigned moreQuarters) {
  const unsigned quarters = (reduced.quarters + moreQuarters) % 4;
  const double value = sineOrCosine(reduced.rest, quarters % 2 == 1);
  return quarters >= 2 ? -value : value;
}

/// The arc tangent of up to 1/128.
Pair smallArcTangent(const Pair& z) {
  constexpr Pair kMinusThird = {-0x1.5555555555555p-2, -0x1.5555555555555p-56};
  const Pair square = z * z;
  const double w = square.high;
  const double rest =
      w * w *
      (1.0 / 5.0 -
       w * (1.0 / 7.0 - w * (1.0 / 9.0 - w * (1.0 / 11.0 - w * (1.0 / 13.0 - w / 15.0)))));
  return z + z * (square * kMinusThird + rest);
}

/// The sum of an arc tangent and that of up to 1/128, rounded.
double roundedArcTangentSum(const Pair& first, const Pair& small) {
  const double w = small.high * small.high;
  const double rest =
      small.high * w * (-1.0 / 3.0 + w * (1.0 / 5.0 - w * (1.0 / 7.0 - w * (1.0 / 9.0))));
  const Pair sum = sumOf(first.high, small.high);
  const double doubt = std::fabs(rest) * 0x1p-49 + std::fabs(sum.high) * 0x1p-75;
  double result = 0.0;
  const bool isKnown = roundSum(sum.high, sum.low + (first.low + small.low + rest), doubt, result);
  return isKnown ? result : (first + smallArcTangent(small)).high;
}

/// The arc tangent of 0 to 1: that of the nearest multiple of 1/64 plus that of the angle between.
double arcTangentToOne(double x) {
  const double step = std::floor(x * kSteps + 0.5);
  const double near = step / kSteps;
  const Pair between = Pair{x - near, 0.0} / (productOf(x, near) + 1.0);
  return roundedArcTangentSum(kArcTangents[static_cast<std::size_t>(step)], between);
}

/// The same for a number of 0 to 1 with more digits than a double has.
Pair arcTangentToOne(const Pair& x) {
  const double step = std::floor(x.high * kSteps + 0.5);
  const double near = step / kSteps;
  const Pair between = (x + -near) / (x * near + 1.0);
  return kArcTangents[static_cast<std::size_t>(step)] + smallArcTangent(between);
}

/// The same above 1, by the reciprocal.
double arcTangentBeyondOne(double x) {
  const double step = std::floor(kSteps / x + 0.5);
  const double near = step / kSteps;
  const Pair between = (-productOf(x, near) + 1.0) / sumOf(x, near);
  const Pair other = kHalfPi + -kArcTangents[static_cast<std::size_t>(step)];
  return roundedArcTangentSum(other, -between);
}

}  // namespace

double roundedSine(double x) {
  if (!std::isfinite(x)) return std::numeric_limits<double>::quiet_NaN();
  const double size = std::fabs(x);
  if (size < kTiny) return x;
  const double value = sineOf(reduce(size), 0);
  return x < 0.0 ? -value : value;
}

double roundedCosine(double x) {
  if (!std::isfinite(x)) return std::numeric_limits<double>::quiet_NaN();
  const double size = std::fabs(x);
  return size < kTiny ? 1.0 : sineOf(reduce(size), 1);
}

double roundedArcTangent(double x) {
  constexpr double kHuge = 0x1p60;  // from here on the result is a quarter turn
  const double size = std::fabs(x);
  if (std::isnan(x) || size < kTiny) return x;
  if (size > kHuge) return std::copysign(kHalfPi.high, x);
  const double value = size <= 1.0 ? arcTangentToOne(size) : arcTangentBeyondOne(size);
  return std::copysign(value, x);
}

double roundedDirection(double y, double x) {
  if (std::isnan(x) || std::isnan(y)) return std::numeric_limits<double>::quiet_NaN();
  double width = std::fabs(x);
  double height = std::fabs(y);
  const bool isSteep = height > width;
  if (std::isinf(width) || std::isinf(height)) {
    width = std::isinf(width) ? 1.0 : 0.0;
    height = std::isinf(height) ? 1.0 : 0.0;
  } else {
    // Within the range where the products of pairs are exact.
    const int exponent = std::max(std::ilogb(width), std::ilogb(height));
    if (width != 0.0 || height != 0.0) {
      width = std::ldexp(width, -exponent);
      height = std::ldexp(height, -exponent);
    }
  }
  const double less = std::min(width, height);
  const double more = std::max(width, height);
  constexpr double kFlat = 0x1p-120;  // below, a pair has no room for the error of a quotient
  Pair angle;
  if (less > kFlat) {
    angle = arcTangentToOne(Pair{less, 0.0} / Pair{more, 0.0});
  } else if (less > 0.0) {
    angle = {std::fabs(isSteep ? x / y : y / x), 0.0};
  }
  if (isSteep) angle = kHalfPi + -angle;
  if (std::signbit(x)) angle = kHalfPi * 2.0 + -angle;
  return std::copysign(angle.high, y);
}

}  // namespace quillon::geometry

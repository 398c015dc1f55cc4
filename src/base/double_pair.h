#pragma once

namespace quillon::base {

/// A number as the sum of two doubles, the second at most half an ulp of the first: about 106 bits.
/// The operations use plain IEEE 754 double arithmetic, so every system gives the same results.
struct Pair {
  double high = 0.0;
  double low = 0.0;
};

/// The exact sum of two numbers; |a| must not be less than |b|.
inline Pair sumOfOrdered(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

/// The exact sum of two numbers.
inline Pair sumOf(double a, double b) {
  const double sum = a + b;
  const double ofB = sum - a;
  return {sum, (a - (sum - ofB)) + (b - ofB)};
}

/// The exact product of two numbers that are neither huge nor tiny.
inline Pair productOf(double a, double b) {
  constexpr double kSplit = 134217729.0;  // 2^27 + 1: splits a double into halves
  const double product = a * b;
  const double bigA = kSplit * a;
  const double bigB = kSplit * b;
  const double highA = bigA - (bigA - a);
  const double highB = bigB - (bigB - b);
  const double lowA = a - highA;
  const double lowB = b - highB;
  return {product, ((highA * highB - product) + highA * lowB + lowA * highB) + lowA * lowB};
}

inline Pair operator-(const Pair& a) { return {-a.high, -a.low}; }

inline Pair operator+(const Pair& a, const Pair& b) {
  const Pair sum = sumOf(a.high, b.high);
  return sumOfOrdered(sum.high, sum.low + (a.low + b.low));
}

inline Pair operator+(const Pair& a, double b) {
  const Pair sum = sumOf(a.high, b);
  return sumOfOrdered(sum.high, sum.low + a.low);
}

inline Pair operator*(const Pair& a, const Pair& b) {
  const Pair product = productOf(a.high, b.high);
  return sumOfOrdered(product.high, product.low + (a.high * b.low + a.low * b.high));
}

inline Pair operator*(const Pair& a, double b) {
  const Pair product = productOf(a.high, b);
  return sumOfOrdered(product.high, product.low + a.low * b);
}

inline Pair operator/(const Pair& a, const Pair& b) {
  const double quotient = a.high / b.high;
  const Pair rest = a + -(b * quotient);
  return sumOfOrdered(quotient, (rest.high + rest.low) / b.high);
}

}  // namespace quillon::base

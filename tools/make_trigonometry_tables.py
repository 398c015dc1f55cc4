#!/usr/bin/env python3
"""Computes src/geometry/trigonometry_tables.h: sines, cosines and arc tangents of multiples of 1/64, as
sums of two doubles, and the bits of 2 / pi.

    tools/make_trigonometry_tables.py >src/geometry/trigonometry_tables.h
    clang-format -i src/geometry/trigonometry_tables.h
"""

from fractions import Fraction

BITS = 1500  # of the fixed-point numbers here; far more than any result has
ONE = 1 << BITS
STEPS = 64  # of the tables, for 1
SINES = 52  # up to pi / 4
ZERO_BITS = 64  # in front of those of 2 / pi
WORDS = 42


def arc_tangent(x):
    """The arc tangent of a fraction of at most 1/2, as a fixed-point number."""
    square = x * x
    power = x.numerator * ONE // x.denominator
    total, divisor = 0, 1
    while power:
        total += power // divisor if divisor % 4 == 1 else -(power // divisor)
        power = power * square.numerator // square.denominator
        divisor += 2
    return total


def any_arc_tangent(x):
    """The same for any fraction from 0 to 1: its angle to 1/2, and that of 1/2."""
    half = Fraction(1, 2)
    if x <= half:
        return arc_tangent(x)
    return arc_tangent(half) + arc_tangent((x - half) / (1 + x * half))


def sine_and_cosine(x):
    """Both for a fraction below 1, as fixed-point numbers."""
    sums = [0, 0]
    term, count = ONE, 0
    while term:
        sums[count % 2] += term if count % 4 < 2 else -term
        count += 1
        term = term * x.numerator // (x.denominator * count)
    return sums[1], sums[0]


def as_double(value):
    """The nearest double of a fixed-point number."""
    return float(Fraction(value, ONE))


def pair(value):
    """A fixed-point number as the sum of two doubles."""
    high = as_double(value)
    low = as_double(value - int(Fraction(high) * ONE))
    return "{%s, %s}" % (high.hex(), low.hex())


def table(name, values):
    print(f"inline constexpr std::array<Pair, {len(values)}> {name} = {{{{")
    for value in values:
        print(f"    {pair(value)},")
    print("}};\n")


def main():
    pi = 4 * (4 * arc_tangent(Fraction(1, 5)) - arc_tangent(Fraction(1, 239)))
    both = [sine_and_cosine(Fraction(i, STEPS)) for i in range(SINES)]
    print("// Made by tools/make_trigonometry_tables.py.")
    print("#pragma once\n\n#include <array>\n#include <cstdint>\n")
    print('#include "geometry/double_pair.h"\n')
    print("namespace quillon::geometry {\n")
    print(f"/// Sines and cosines of multiples of 1/{STEPS}.")
    table("kSines", [sine for sine, _ in both])
    table("kCosines", [cosine for _, cosine in both])
    print(f"/// Arc tangents of multiples of 1/{STEPS}.")
    table("kArcTangents", [any_arc_tangent(Fraction(i, STEPS)) for i in range(STEPS + 1)])
    print(f"inline constexpr Pair kHalfPi = {pair(pi // 2)};\n")
    print(f"/// The bits of 2 / pi behind its point, with {ZERO_BITS} zeros in front; highest first.")
    print(f"inline constexpr int kZeroBits = {ZERO_BITS};")
    bits = (2 * ONE * ONE // pi) >> (BITS - (32 * WORDS - ZERO_BITS))
    words = [(bits >> (32 * (WORDS - 1 - i))) & 0xFFFFFFFF for i in range(WORDS)]
    print(f"inline constexpr std::array<std::uint32_t, {WORDS}> kTwoOverPi = {{")
    for i in range(0, WORDS, 6):
        print("    " + " ".join(f"{word:#010x}," for word in words[i : i + 6]))
    print("};\n\n}  // namespace quillon::geometry")


if __name__ == "__main__":
    main()

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "classic/areas.h"

namespace quillon::testing {

/// Half a unit of the last decimal in scripts, plus a little for the preceding arithmetic.
inline constexpr double kScriptTolerance = 6e-8;

/// A script with every point replaced by "P", so that the rest can be compared exactly: "Wire
/// 0.0000000 P P;".
inline std::string layoutOf(std::string_view script) {
  std::string out;
  while (!script.empty()) {
    const std::size_t open = script.find('(');
    out.append(script.substr(0, open));
    const std::size_t close = script.find(')');
    if (open == std::string_view::npos || close == std::string_view::npos) break;
    out += 'P';
    script.remove_prefix(close + 1);
  }
  return out;
}

/// All points of a script, in order.
inline std::vector<geometry::Point> pointsOf(std::string_view script) {
  std::vector<geometry::Point> points;
  for (std::size_t open = script.find('('); open != std::string_view::npos;
       open = script.find('(', open + 1)) {
    const std::size_t blank = script.find(' ', open);
    points.push_back(
        {base::numberValue(script.substr(open + 1)), base::numberValue(script.substr(blank + 1))});
  }
  return points;
}

/// Compares all points of a script to the precision of its decimals.
inline void expectPoints(std::string_view script, const std::vector<geometry::Point>& expected) {
  const std::vector<geometry::Point> points = pointsOf(script);
  ASSERT_EQ(points.size(), expected.size()) << script;
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(points[i].x, expected[i].x, kScriptTolerance) << "point " << i << " of\n" << script;
    EXPECT_NEAR(points[i].y, expected[i].y, kScriptTolerance) << "point " << i << " of\n" << script;
  }
}

/// How often a text occurs in another.
inline std::size_t countOf(std::string_view part, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

/// A text repeated several times.
inline std::string repeated(std::string_view text, std::size_t times) {
  std::string out;
  for (std::size_t i = 0; i < times; ++i) out += text;
  return out;
}

/// The comment that follows a command with a coordinate out of range.
inline constexpr std::string_view kRangeNote =
    "# In the previous command some coordinates are out of range!\n";

}  // namespace quillon::testing

#pragma once

#include <cmath>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>

#include "exact_drawing.h"
#include "geometry/area.h"

namespace quillon::testing {

inline GroupPairs operator+(GroupPairs one, const GroupPairs& other) {
  one.insert(one.end(), other.begin(), other.end());
  return one;
}

// Parts of a HATCH. Numbers are literals, which outlive them.

inline GroupPairs hatchHead(std::string_view solid = "1") {
  return {{100, "AcDbHatch"}, {10, "0"},   {20, "0"}, {30, "0"},
          {2, "SOLID"},       {70, solid}, {71, "0"}, {91, "1"}};
}

/// A loop of corners: x y x y …
inline GroupPairs cornerLoop(std::initializer_list<std::string_view> numbers,
                             std::string_view flags = "2") {
  GroupPairs groups = {{92, flags}, {72, "0"}, {73, "1"}, {93, "99"}};
  int code = 10;
  for (const std::string_view number : numbers) {
    groups.emplace_back(code, number);
    code = 30 - code;
  }
  groups.emplace_back(97, "0");
  return groups;
}

inline GroupPairs edgeLoop() { return {{92, "1"}, {93, "99"}}; }

inline GroupPairs lineEdge(std::string_view x, std::string_view y, std::string_view toX,
                           std::string_view toY) {
  return {{72, "1"}, {10, x}, {20, y}, {11, toX}, {21, toY}};
}

inline GroupPairs arcEdge(std::string_view x, std::string_view y, std::string_view radius,
                          std::string_view start, std::string_view end,
                          std::string_view counterClockwise = "1") {
  return {
      {72, "2"}, {10, x}, {20, y}, {40, radius}, {50, start}, {51, end}, {73, counterClockwise}};
}

/// What follows the loops, with the point from which the area was picked.
inline GroupPairs hatchTail(std::string_view style = "0") {
  return {{75, style}, {76, "1"}, {98, "1"}, {10, "77"}, {20, "88"}};
}

inline GroupPairs squareLoop(std::string_view low, std::string_view high) {
  return cornerLoop({low, low, high, low, high, high, low, high});
}

/// The outline of an area that was written down: "(x y) (x y) +curve (x y)".
inline geometry::Path pathIn(const std::string& text) {
  geometry::Path path{{}, true};
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (word[0] != '(') {
      path.vertices.back().curve = std::stod(word);
      continue;
    }
    std::string y;
    words >> y;
    path.vertices.push_back({{std::stod(word.substr(1)), std::stod(y)}, 0.0});
  }
  path.vertices.pop_back();  // the first one again
  return path;
}

inline std::vector<geometry::Path> areasIn(const std::string& shapes) {
  constexpr std::string_view kWord = " area ";
  std::vector<geometry::Path> areas;
  std::istringstream lines(shapes);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t at = line.find(kWord);
    if (at != std::string::npos) areas.push_back(pathIn(line.substr(at + kWord.size())));
  }
  return areas;
}

/// The size of all areas together.
inline double filledIn(const std::string& shapes) {
  double sum = 0.0;
  for (const geometry::Path& area : areasIn(shapes)) sum += std::fabs(geometry::signedArea(area));
  return sum;
}

}  // namespace quillon::testing

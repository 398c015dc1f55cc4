#pragma once

#include <cmath>
#include <cstdio>
#include <string>

#include "exact/shapes.h"

namespace quillon::testing {

/// A number with up to six decimals, without trailing zeros.
inline std::string shortNumber(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.6f", value);
  std::string number(text);
  while (number.back() == '0') number.pop_back();
  if (number.back() == '.') number.pop_back();
  return number == "-0" ? "0" : number;
}

/// Writes shapes down, a line each: "20 wire 0 (0 0) (1 0) +90 (2 1)". The layer comes first, the
/// width follows the word.
class ShapeLog : public exact::ShapeSink {
 public:
  void take(const exact::Origin& origin, exact::Chain&& chain) override {
    begin(origin, chain.isCircle ? "circle" : "wire");
    text_ += " " + shortNumber(chain.width);
    if (chain.style != exact::Style::Continuous) {
      text_ += " style " + std::to_string(static_cast<int>(chain.style));
    }
    put(chain.path);
    if (!chain.cleanable) text_ += " as it is";
    text_ += "\n";
  }
  void take(const exact::Origin& origin, exact::Area&& area) override {
    begin(origin, "area");
    put(area.outline);
    text_ += "\n";
  }
  void take(const exact::Origin& origin, exact::TextLine&& line) override {
    static constexpr const char* kColumns[] = {"left", "centre", "right"};
    static constexpr const char* kRows[] = {"bottom", "centre", "top"};
    begin(origin, "text");
    text_ += " '" + line.content + "' " + shortNumber(line.height) + " ";
    text_ += std::string(line.spin ? "S" : "") + (line.mirrored ? "M" : "") + "R" +
             shortNumber(line.angle);
    text_ += std::string(" ") + kRows[static_cast<int>(line.rows)] + " " +
             kColumns[static_cast<int>(line.columns)];
    put(line.at);
    text_ += "\n";
  }
  void take(const exact::Origin& origin, const exact::Dot& dot) override {
    begin(origin, "dot");
    text_ += " " + shortNumber(dot.diameter);
    put(dot.centre);
    text_ += "\n";
  }
  void take(const exact::Origin& origin, const exact::Hole& hole) override {
    begin(origin, "hole");
    text_ += " " + shortNumber(hole.drill);
    put(hole.centre);
    text_ += "\n";
  }
  void take(const exact::Origin& origin, const exact::EndlessLine& line) override {
    begin(origin, line.bothWays ? "xline" : "ray");
    put(line.start);
    put(line.direction);
    if (line.hasSolidInstead) text_ += " solid";
    text_ += "\n";
  }

  const std::string& text() const { return text_; }

 private:
  void begin(const exact::Origin& origin, const char* word) {
    text_ += std::to_string(origin.layer) + " " + word;
  }
  void put(geometry::Point p) { text_ += " (" + shortNumber(p.x) + " " + shortNumber(p.y) + ")"; }
  void put(const geometry::Path& path) {
    const std::size_t size = path.vertices.size();
    for (std::size_t i = 0; i < size; ++i) {
      put(path.vertices[i].at);
      const double curve = path.vertices[i].curve;
      if (curve != 0.0 && (path.closed || i + 1 < size)) {
        text_ += std::string(curve > 0 ? " +" : " ") + shortNumber(curve);
      }
    }
    if (path.closed && size > 0) put(path.vertices[0].at);
  }

  std::string text_;
};

}  // namespace quillon::testing

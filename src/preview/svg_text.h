#pragma once

#include <string>
#include <string_view>

#include "base/byte_sink.h"
#include "geometry/point.h"

namespace quillon::preview {

/// Collects the text of a picture and hands it on in large blocks. Numbers have as many decimals as
/// can be seen; y is turned over, as it grows downwards in SVG.
class SvgText {
 public:
  /// `finest`: the smallest length that can be seen.
  SvgText(base::ByteSink& sink, double finest);

  SvgText& text(std::string_view text);
  /// Numbers that are no coordinates of a drawing become 0.
  SvgText& number(double value);
  /// "x y"
  SvgText& point(geometry::Point point);
  void flush();

 private:
  base::ByteSink& sink_;
  std::string buffer_;
  unsigned decimals_ = 0;
};

/// A number with all of these decimals, at most 6: "12.50". One that no drawing has gives "0".
std::string fixedText(double value, unsigned decimals);
/// The same without zeros at the end: "12.5".
std::string shortText(double value, unsigned decimals);

/// The text with the characters replaced that mean something in XML, and without those that it
/// cannot have.
std::string xmlText(std::string_view utf8);

}  // namespace quillon::preview

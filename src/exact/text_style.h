#pragma once

#include <map>
#include <string>
#include <string_view>

#include "dxf/drawing.h"
#include "exact/recent_texts.h"

namespace quillon::exact {

/// What a text style says about letters that EAGLE draws its own way.
struct TextStyle {
  double widthFactor = 1.0;
  double oblique = 0.0;  ///< degrees
  bool isVertical = false;
};

/// The text styles of a drawing, each read once.
class TextStyles {
 public:
  explicit TextStyles(const dxf::Drawing& drawing) : drawing_(drawing) {}

  /// The style of this name in any case; the defaults for one that the drawing does not have.
  const TextStyle& find(std::string_view name);

 private:
  TextStyle read(std::string_view name) const;

  const dxf::Drawing& drawing_;
  std::map<std::string, TextStyle, std::less<>> styles_;  ///< by names as texts have them
  RecentTexts<const TextStyle*> recent_;
};

}  // namespace quillon::exact

#pragma once

#include <cstdint>
#include <string>

namespace quillon::preview {

/// The background that a picture is drawn on.
enum class Theme : std::uint8_t { Light = 0, Dark = 1 };

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Colour&) const = default;
};

/// EAGLE's own colours: those that its layers have unless a user changed them.
Colour colourOfLayer(int layer, Theme theme);
Colour backgroundColour(Theme theme);
/// For what is no part of the drawing, such as a scale bar.
Colour noteColour(Theme theme);

/// "#rrggbb"
std::string hexText(Colour colour);

}  // namespace quillon::preview

#include "preview/palette.h"

#include <string_view>

namespace quillon::preview {
namespace {

/// A colour of EAGLE's palette on both backgrounds.
struct Pair {
  Colour light;
  Colour dark;
};

// The indices that layers have by default: blue, green, cyan, red, magenta, brown, grey and white.
constexpr Pair kBlue{{0x00, 0x00, 0x80}, {0x50, 0x50, 0xdc}};
constexpr Pair kGreen{{0x00, 0x80, 0x00}, {0x32, 0xc8, 0x32}};
constexpr Pair kCyan{{0x00, 0x80, 0x80}, {0x32, 0xc8, 0xc8}};
constexpr Pair kRed{{0x80, 0x00, 0x00}, {0xc8, 0x32, 0x32}};
constexpr Pair kMagenta{{0x80, 0x00, 0x80}, {0xc8, 0x32, 0xc8}};
constexpr Pair kBrown{{0x80, 0x80, 0x00}, {0xc8, 0xc8, 0x32}};
constexpr Pair kGrey{{0x80, 0x80, 0x80}, {0xc8, 0xc8, 0xc8}};
constexpr Pair kWhite{{0x00, 0x00, 0x00}, {0xff, 0xff, 0xff}};

const Pair& pairOfLayer(int layer) {
  constexpr int kLastOfCopper = 16;
  if (layer >= 1 && layer < kLastOfCopper) return layer % 2 != 0 ? kRed : kBlue;
  switch (layer) {
    case 16:
    case 40:
    case 42:
    case 92:
      return kBlue;
    case 17:
    case 18:
    case 43:
    case 91:
    case 93:
      return kGreen;
    case 19:
    case 33:
    case 34:
    case 98:
      return kBrown;
    case 20:
    case 23:
    case 24:
      return kWhite;
    case 39:
    case 41:
    case 94:
      return kRed;
    case 46:
      return kCyan;
    case 90:
      return kMagenta;
    default:
      return kGrey;
  }
}

}  // namespace

Colour colourOfLayer(int layer, Theme theme) {
  const Pair& pair = pairOfLayer(layer);
  return theme == Theme::Light ? pair.light : pair.dark;
}

Colour backgroundColour(Theme theme) {
  return theme == Theme::Light ? Colour{0xff, 0xff, 0xff} : Colour{0x10, 0x14, 0x18};
}

Colour noteColour(Theme theme) {
  return theme == Theme::Light ? Colour{0x60, 0x68, 0x70} : Colour{0x90, 0x98, 0xa0};
}

std::string hexText(Colour colour) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    text += kDigits[part >> 4U];
    text += kDigits[part & 0xFU];
  }
  return text;
}

}  // namespace quillon::preview

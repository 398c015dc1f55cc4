#include "preview/palette.h"

#include <gtest/gtest.h>

namespace quillon::preview {
namespace {

TEST(Palette, LayersHaveEaglesColours) {
  EXPECT_EQ(hexText(colourOfLayer(1, Theme::Light)), "#800000");
  EXPECT_EQ(hexText(colourOfLayer(16, Theme::Light)), "#000080");
  EXPECT_EQ(hexText(colourOfLayer(17, Theme::Dark)), "#32c832");
  EXPECT_EQ(hexText(colourOfLayer(20, Theme::Light)), "#000000");
  EXPECT_EQ(hexText(colourOfLayer(20, Theme::Dark)), "#ffffff");
  EXPECT_EQ(hexText(colourOfLayer(46, Theme::Dark)), "#32c8c8");
  EXPECT_EQ(hexText(colourOfLayer(94, Theme::Dark)), "#c83232");
  EXPECT_EQ(hexText(colourOfLayer(140, Theme::Light)), "#808080");
}

TEST(Palette, InnerLayersOfCopperAlternate) {
  EXPECT_EQ(colourOfLayer(3, Theme::Dark), colourOfLayer(1, Theme::Dark));
  EXPECT_EQ(colourOfLayer(2, Theme::Dark), colourOfLayer(16, Theme::Dark));
}

/// The luminance of a colour by the rules for accessible contents.
double luminance(Colour colour) {
  const auto linear = [](std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double contrast(Colour a, Colour b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

TEST(Palette, EveryLayerCanBeSeenOnBothBackgrounds) {
  for (const Theme theme : {Theme::Light, Theme::Dark}) {
    for (int layer = 1; layer <= 255; ++layer) {
      EXPECT_GE(contrast(colourOfLayer(layer, theme), backgroundColour(theme)), 3.0) << layer;
    }
    EXPECT_GE(contrast(noteColour(theme), backgroundColour(theme)), 4.5);
  }
}

}  // namespace
}  // namespace quillon::preview

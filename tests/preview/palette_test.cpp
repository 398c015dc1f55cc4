#include "preview/palette.h"

#include <gtest/gtest.h>

#include "preview/colour_contrast.h"

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

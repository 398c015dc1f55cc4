#include "preview/scene_colours.h"

#include <gtest/gtest.h>

#include <cmath>

#include "preview/colour_contrast.h"

namespace quillon::preview {
namespace {

constexpr Theme kThemes[] = {Theme::Light, Theme::Dark};

TEST(SceneColours, AllCanBeSeenOnBothBackgrounds) {
  for (const Theme theme : kThemes) {
    for (const auto colourOf : {drawingColour, paleDrawingColour, onlyDrawingColour,
                                onlyResultColour, warningColour, markColour}) {
      EXPECT_GE(contrast(colourOf(theme), backgroundColour(theme)), 3.0);
    }
    for (int layer = 0; layer <= 255; ++layer) {
      EXPECT_GE(contrast(colourOfLayer(layer, theme), backgroundColour(theme)), 3.0) << layer;
    }
  }
}

TEST(SceneColours, NumbersCanBeRead) {
  for (const Theme theme : kThemes) {
    EXPECT_GE(contrast(noteColour(theme), backgroundColour(theme)), 4.5);
    EXPECT_GE(contrast(markColour(theme), backgroundColour(theme)), 4.5);
  }
}

/// As somebody sees a colour who lacks the cones for red (or for green: much the same): red and
/// green light give one impression, blue light another.
struct Impression {
  double yellow;
  double blue;
};
Impression impressionOf(Colour colour) {
  return {0.5 * colour.red + 0.5 * colour.green, static_cast<double>(colour.blue)};
}

TEST(SceneColours, DifferencesCanBeToldApartWithoutSeeingRedAndGreen) {
  for (const Theme theme : kThemes) {
    const Impression drawing = impressionOf(onlyDrawingColour(theme));
    const Impression result = impressionOf(onlyResultColour(theme));
    EXPECT_GE(std::hypot(drawing.yellow - result.yellow, drawing.blue - result.blue), 128.0);
  }
}

}  // namespace
}  // namespace quillon::preview

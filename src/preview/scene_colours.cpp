#include "preview/scene_colours.h"

namespace quillon::preview {
namespace {

Colour chosen(Theme theme, Colour light, Colour dark) {
  return theme == Theme::Light ? light : dark;
}

}  // namespace

Colour drawingColour(Theme theme) { return chosen(theme, {0x28, 0x30, 0x38}, {0xd8, 0xdc, 0xe0}); }

Colour paleDrawingColour(Theme theme) {
  return chosen(theme, {0x90, 0x90, 0x90}, {0x6c, 0x74, 0x7c});
}

Colour onlyDrawingColour(Theme theme) {
  return chosen(theme, {0xd5, 0x5e, 0x00}, {0xff, 0xa0, 0x30});
}

Colour onlyResultColour(Theme theme) {
  return chosen(theme, {0x00, 0x72, 0xd8}, {0x56, 0xb4, 0xff});
}

Colour warningColour(Theme theme) { return chosen(theme, {0xc0, 0x00, 0x60}, {0xff, 0x60, 0xb0}); }

Colour markColour(Theme theme) { return chosen(theme, {0x6a, 0x1b, 0x9a}, {0xff, 0xe0, 0x40}); }

}  // namespace quillon::preview

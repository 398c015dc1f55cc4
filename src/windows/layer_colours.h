#pragma once

#include <QIcon>
#include <QPalette>

#include "preview/palette.h"

namespace quillon::windows {

/// The theme of pictures that goes with the colours of windows.
preview::Theme themeOf(const QPalette& palette);

/// A swatch of the layer's colour in pictures; an empty icon for a text without a layer number.
QIcon layerSwatch(const QString& entry);

/// A swatch of the layer's colour in pictures of a theme.
QIcon layerSwatch(int layer, preview::Theme theme);

}  // namespace quillon::windows

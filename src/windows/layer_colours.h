#pragma once

#include <QIcon>

namespace quillon::windows {

/// A swatch in the colour that EAGLE's editor gives a layer on black; an empty icon for a text
/// without a layer's number.
QIcon layerSwatch(const QString& entry);

}  // namespace quillon::windows

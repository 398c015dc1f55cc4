#pragma once

#include <QIcon>

namespace quillon::windows {

/// A swatch of the layer's colour in EAGLE's editor on black; an empty icon for a text without a
/// layer number.
QIcon layerSwatch(const QString& entry);

}  // namespace quillon::windows

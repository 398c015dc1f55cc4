#pragma once

#include <string>

namespace quillon::testing {

// Commands as layoutOf() shows them, on layer 7 and without a width.
inline const std::string kLayerLine = "Layer  7 ;\n";
inline const std::string kWire = "Wire 0.0000000 P P;\n";
inline const std::string kLayerWire = kLayerLine + kWire;
inline const std::string kArc = "Arc CCW 0.00 P P P;\n";
/// A dash without length, which has a layer line of its own.
inline const std::string kDot = kLayerLine + "Circle 0.0 P P;\n";

}  // namespace quillon::testing

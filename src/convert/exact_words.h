#pragma once

#include <array>
#include <string>
#include <string_view>

#include "exact/options.h"

/// Options of the exact rules as texts: those of the command line, of the settings file and of the
/// window's fields.
namespace quillon::convert {

// Words of the choices, in the order of their enums.
inline constexpr auto kSpaceWords = std::to_array<std::string_view>({"model", "paper", "both"});
inline constexpr auto kHatchWords =
    std::to_array<std::string_view>({"lines", "border", "solid", "none"});
inline constexpr auto kLineTypeWords =
    std::to_array<std::string_view>({"solid", "style", "dashes"});
inline constexpr auto kWideLineWords = std::to_array<std::string_view>({"auto", "wires", "areas"});
inline constexpr auto kPlaceWords =
    std::to_array<std::string_view>({"keep", "lower-left", "centre"});

/// What a length may be.
struct Range {
  double least;
  double most;
  constexpr bool has(double value) const { return value >= least && value <= most; }
};

inline constexpr Range kWidthRange{0.0, 1e6};       ///< units of the script
inline constexpr Range kToleranceRange{1e-4, 1.0};  ///< of curves, in millimetres
inline constexpr Range kJoinRange{0.0, 1.0};        ///< between ends, in millimetres

/// What points become, as text: "glyph", "dot", "none" or "hole:0.8".
std::string pointsText(const exact::Options& options);
/// False, without a change, for any other text.
bool setPoints(exact::Options& options, std::string_view text);

/// Layers with a comma between.
std::string holeLayersText(const exact::Options& options);
/// Takes the layers of a text; those that are blank do not count.
void setHoleLayers(exact::Options& options, std::string_view text);

/// Smallest and largest diameter, as "0.2..6.5".
std::string holeDiametersText(const exact::Options& options);
/// False, without a change, for any other text.
bool setHoleDiameters(exact::Options& options, std::string_view text);

}  // namespace quillon::convert

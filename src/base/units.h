#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon::base {

/// The unit of a drawing's numbers and of the script's grid, in the order used in windows and
/// settings.
enum class Unit : std::int8_t {
  None = -1,  ///< no choice; counts as mm where a number is needed
  Mic = 0,
  Mm = 1,
  Mil = 2,
  Inch = 3,
};
inline constexpr int kUnitCount = 4;

struct UnitRecord {
  std::string_view word;   ///< in scripts, reports, settings and options
  double millimetres;      ///< length of one unit, for rules that know the drawing's own unit
  double coordinateLimit;  ///< largest coordinate of EAGLE's drawing area, in this unit
};

inline constexpr std::array<UnitRecord, kUnitCount> kUnits = {{{"mic", 0.001, 838860.0},
                                                               {"mm", 1.0, 838.86},
                                                               {"mil", 0.0254, 33026.0},
                                                               {"inch", 25.4, 33.026}}};

/// The record of a unit; None shares that of mm.
constexpr const UnitRecord& unitRecord(Unit unit) {
  return kUnits[unit == Unit::None ? static_cast<std::size_t>(Unit::Mm)
                                   : static_cast<std::size_t>(unit)];
}

/// The unit at an index of the list; None when out of range.
constexpr Unit unitAt(int index) {
  return index >= 0 && index < kUnitCount ? static_cast<Unit>(index) : Unit::None;
}

/// The unit with this word; None for any other text.
constexpr Unit unitOfWord(std::string_view word) {
  for (int i = 0; i < kUnitCount; ++i) {
    if (kUnits[static_cast<std::size_t>(i)].word == word) return unitAt(i);
  }
  return Unit::None;
}

}  // namespace quillon::base

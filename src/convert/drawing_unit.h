#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "geometry/box.h"

namespace quillon::convert {

/// What the user says about the unit of a drawing's numbers.
enum class DrawingUnit : std::uint8_t {
  Auto,  ///< what the drawing says, where that can be believed
  Inch,
  Foot,
  Mile,
  Millimetre,
  Centimetre,
  Metre,
  Kilometre,
  Microinch,
  Mil,
  Yard,
  Angstrom,
  Nanometre,
  Micrometre,
  Decimetre,
};

/// Millimetres in a unit; Auto counts as a millimetre.
double millimetresOf(DrawingUnit unit);
/// The unit with this word ("mm", "inch", …) of the list below; nothing else is one.
bool findDrawingUnit(std::string_view word, DrawingUnit& unit);
/// The words, each with "|" between, for lists of choices.
std::string drawingUnitWords();

/// How a drawing's own word for its unit is taken.
struct UnitChoice {
  double millimetres = 1.0;  ///< in a unit of the drawing
  bool isAssumed = false;    ///< the drawing names none
  bool isDoubted = false;    ///< it names one that makes no sense; millimetres are taken instead
  double named = 0.0;        ///< then: millimetres in the unit that it names
};

/// Millimetres in the unit that $INSUNITS names; none when it names none.
std::optional<double> unitNamed(double insUnits);
/// The word of a unit with so many millimetres; "" for one that is not in the list.
std::string_view wordOfUnit(double millimetres);

/// True when the size of the drawing decides how its unit is taken.
bool needsSize(double insUnits);
/// The unit by the drawing's $INSUNITS; `bounds` in units of the drawing, where needsSize().
UnitChoice unitOf(double insUnits, const geometry::Box& bounds);

}  // namespace quillon::convert

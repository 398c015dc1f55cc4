#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "texts/string_table.h"
#include "workbench/reading.h"

namespace quillon::workbench {

/// What a hint offers to do.
enum class Offer : std::uint8_t {
  TakeUnit,     ///< the drawing's own unit
  DrawAsLines,  ///< closed polylines as lines instead of filled
  UseExact,     ///< the rules that show the drawing as a CAD program does
  ShowPlaces,   ///< where something is wrong
  MoveIntoArea,
  JoinEnds,  ///< open ends that are nearly together
};

/// One line about a result, with what can be done about it.
struct Hint {
  Offer offer;
  std::string text;                     ///< UTF-8
  std::string button;                   ///< of the offer
  std::vector<geometry::Point> places;  ///< for ShowPlaces, in the scene
};

/// What stands out in a result, most important first. `drawing` is null until it has been read.
std::vector<Hint> hintsOf(const Reading& result, const Reading* drawing, const texts::Texts& texts);

/// What the drawing says of its unit, in one line; "" while it is not known.
std::string unitText(const Reading& result, const Reading* drawing, const texts::Texts& texts);
/// True when it names a unit other than the one it is taken in, and taking it makes sense.
bool namesAnotherUnit(const Reading& result, const Reading* drawing);

/// The settings with an offer taken. Unchanged for offers that change none.
settings::Settings taken(Offer offer, const settings::Settings& settings, const Reading& result,
                         const Reading* drawing);

}  // namespace quillon::workbench

#pragma once

#include <string>

#include "geometry/box.h"
#include "preview/differences.h"
#include "texts/string_table.h"
#include "workbench/reading.h"

namespace quillon::workbench {

/// A length in millimetres as people write it: one decimal at least, four at most.
std::string millimetreText(double millimetres);
/// The same length in mil, with one decimal at most.
std::string milText(double millimetres);

/// "100.0 x 80.0 mm (3.937 x 3.150 in)"; "" for an empty box. Millimetres.
std::string sizeText(const geometry::Box& box);

/// "12.5 / -3.0 mm (492.1 / -118.1 mil)"
std::string placeText(geometry::Point place);

/// A distance between two points, and how far it goes along each axis.
std::string distanceText(geometry::Point from, geometry::Point to, const texts::Texts& texts);

/// What is to be said in place of a picture, or beside one that lacks something; "" for nothing.
/// `differences` may be null.
std::string pictureNote(const Reading& result, const preview::Differences* differences,
                        const texts::Texts& texts);

/// What a picture shows, for those who do not see it: size, how much is on which layer, and what
/// is lost. A few lines.
std::string pictureText(const Reading& result, const texts::Texts& texts);

}  // namespace quillon::workbench

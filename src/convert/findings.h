#pragma once

#include <string>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

// What the exact rules have found out, in words. Empty for a conversion by other rules.

/// What to be warned of: a unit that makes no sense, and a line for each rule by which something
/// was not drawn.
std::vector<std::string> notDrawnLines(const ConversionResult& result, const texts::Texts& texts);

/// A few lines more: size and unit, a line for each rule that hid, changed or cleaned something,
/// the nearest open ends of outlines.
std::vector<std::string> findingLines(const ConversionResult& result, const texts::Texts& texts);

/// For the report: both of these, but a line for each rule, kind and layer, and all open ends.
std::vector<std::string> allFindingLines(const ConversionResult& result, const texts::Texts& texts);

/// True when nothing was left out, hidden or simplified.
bool nothingLost(const ExactFindings& findings);

}  // namespace quillon::convert

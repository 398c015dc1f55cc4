#pragma once

#include <string>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

// What the exact rules have found out, in words. Empty for a conversion by other rules.

/// A few lines: size and unit, a line for each rule that left something out or changed it, the
/// nearest open ends of outlines.
std::vector<std::string> findingLines(const ConversionResult& result, const texts::Texts& texts);

/// For the report: as above, but a line for each rule, kind and layer, and all open ends.
std::vector<std::string> allFindingLines(const ConversionResult& result, const texts::Texts& texts);

/// True when nothing was left out, hidden or simplified.
bool nothingLost(const ExactFindings& findings);

}  // namespace quillon::convert

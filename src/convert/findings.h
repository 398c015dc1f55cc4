#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

// What the exact rules have found out, in words; empty for a conversion by other rules, but for the
// last function.

/// What to be warned of: a unit that makes no sense, and a line for each rule by which something
/// was not drawn.
std::vector<std::string> notDrawnLines(const ConversionResult& result, const texts::Texts& texts);

/// A few lines more: size and unit, a line for each rule that hid, changed or cleaned something,
/// the nearest open ends of outlines.
std::vector<std::string> findingLines(const ConversionResult& result, const texts::Texts& texts);

/// For the report: both of these, but a line for each rule, kind and layer, and all open ends.
std::vector<std::string> allFindingLines(const ConversionResult& result, const texts::Texts& texts);

/// What a rule did, in words.
std::string lossText(rules::LossRule rule, const texts::Texts& texts);

/// What it was done to: the kind, and the name of what is missing where it has one.
std::string kindText(const NamedLoss& loss);

/// How much was left out, hidden or simplified.
std::uint64_t lossCount(const std::vector<NamedLoss>& losses);

/// True when nothing was left out, hidden or simplified.
bool nothingLost(const std::vector<NamedLoss>& losses);

/// For a conversion by the classic rules: a line for each rule by which they show something
/// otherwise than the exact ones, and the hint that those would keep it, with the option for them
/// (as it is spelt on a command line; "" where there is none). Kinds that a warning names as not
/// recognised are left out where the exact rules draw all of them.
std::vector<std::string> classicLossLines(const ConversionResult& result, const texts::Texts& texts,
                                          std::string_view option);

}  // namespace quillon::convert

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::headless {

/// Requires the whole text to be a finite number, in the form used in drawings; "" if it is one.
std::string checkNumber(const std::string& text);

/// The same, for a number other than 0.
std::string checkScale(const std::string& text);

/// Requires the number of an EAGLE layer, which a name may follow. A negative number would make
/// EAGLE delete layers.
std::string checkLayer(const std::string& text);

/// A number of bytes; K, M and G multiply by powers of 1,024. Nothing for an invalid text.
std::optional<std::uint64_t> sizeOf(std::string_view text);

/// Requires a text that sizeOf() understands.
std::string checkSize(const std::string& text);

/// A whole number in decimal digits, which may start with zeroes. Nothing for another text, or for
/// more than 64 bits.
std::optional<std::uint64_t> wholeNumberOf(std::string_view text);

/// Requires a positive whole number of something.
std::string checkCount(const std::string& text, const std::string& things);

/// Requires a whole number from 1 to `most`.
std::string checkUpTo(const std::string& text, unsigned most);

}  // namespace quillon::headless

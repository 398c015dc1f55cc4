#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon::convert {

/// What the first bytes of a file reveal about it.
enum class InputKind : std::uint8_t { Text, Empty, BinaryDxf, Dwg, NoText };

/// Number of bytes that checkInput examines.
inline constexpr std::size_t kCheckedBytes = 4096;

/// `head` holds the first kCheckedBytes of the file, or all of a shorter one. A file with a NUL
/// byte or without a line end in them is not text.
InputKind checkInput(std::string_view head);

}  // namespace quillon::convert

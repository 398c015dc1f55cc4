#pragma once

#include <cstddef>
#include <string_view>

namespace quillon::base {

/// Number of bytes that equal `wanted`; looks at many at once.
std::size_t countByte(std::string_view bytes, char wanted);

/// True when some `wanted` after the first byte is not directly preceded by `before`.
bool hasWithoutBefore(std::string_view bytes, char wanted, char before);

/// Offset of the first occurrence of `text` (not empty), or npos.
std::size_t findText(std::string_view bytes, std::string_view text);

}  // namespace quillon::base

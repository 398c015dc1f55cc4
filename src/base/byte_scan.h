#pragma once

#include <cstddef>
#include <string_view>

namespace quillon::base {

/// Number of bytes that equal `wanted`; written for the compiler's vector instructions.
std::size_t countByte(std::string_view bytes, char wanted);

/// True when some `wanted` behind the first byte does not directly follow a `before`.
bool hasWithoutBefore(std::string_view bytes, char wanted, char before);

/// Offset of the first `text` (not empty) in the bytes, or npos.
std::size_t findText(std::string_view bytes, std::string_view text);

}  // namespace quillon::base

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon::base {

/// True when a UTF-8 text holds a control character.
bool hasControlCharacter(std::string_view utf8);

/// A UTF-8 text with its control characters, other than tabs, as escapes: no terminal obeys them.
std::string withoutControls(std::string_view utf8);

/// A text from a file for a message: UTF-8 in, control characters as escapes, cut once it
/// has `longest` bytes.
std::string quotable(std::string_view utf8, std::size_t longest = 200);

}  // namespace quillon::base

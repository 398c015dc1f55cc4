#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon::base {

/// True when a UTF-8 text contains a control character.
bool hasControlCharacter(std::string_view utf8);

/// A UTF-8 text with control characters other than tabs escaped, so that no terminal obeys them.
std::string withoutControls(std::string_view utf8);

/// A text from a file, made fit for a message: UTF-8, control characters escaped, cut off at
/// `longest` bytes.
std::string quotable(std::string_view utf8, std::size_t longest = 200);

}  // namespace quillon::base

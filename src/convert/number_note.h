#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::convert {

/// A text in place of a number that goes on after its number, or has none: the user may have meant
/// something else than it counts as. UTF-8.
struct NumberNote {
  std::string name;      ///< of the setting, item or field
  std::string text;      ///< as it was written
  std::string countsAs;  ///< the number that is used
};

/// The note about a text that stands for a number, if it needs one.
std::optional<NumberNote> noteOn(std::string_view name, std::string_view text);

}  // namespace quillon::convert

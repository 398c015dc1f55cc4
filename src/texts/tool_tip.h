#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::texts {

/// A string-table entry that explains a control.
struct ToolTip {
  std::string control;       ///< name of the control or control array
  std::optional<int> index;  ///< of the element in a control array
  std::string text;          ///< lines separated by CR LF
};

/// Splits an entry: the control's name, "|", and the text, in which "~" means a line break. A name
/// that ends in "_" and a number refers to an element of a control array. Nothing for an entry
/// without "|".
std::optional<ToolTip> parseToolTip(std::string_view entry);

}  // namespace quillon::texts

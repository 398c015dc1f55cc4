#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::texts {

/// An entry of the string table that explains a control.
struct ToolTip {
  std::string control;       ///< name of the control, or of the array of controls
  std::optional<int> index;  ///< of the element of a control array
  std::string text;          ///< lines separated by CR LF
};

/// Takes an entry apart: the control's name, "|", and the text, in which "~" stands for a line
/// break. A name that ends in "_" and a number names an element of a control array. Nothing for an
/// entry without "|".
std::optional<ToolTip> parseToolTip(std::string_view entry);

}  // namespace quillon::texts

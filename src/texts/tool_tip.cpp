#include "texts/tool_tip.h"

#include <charconv>

namespace quillon::texts {
namespace {

/// The number after the last "_" of a name.
std::optional<int> elementIndex(std::string_view digits) {
  if (digits.empty() || digits.front() == '-') return {};
  int index = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, index);
  if (error != std::errc() || stop != end) return {};
  return index;
}

}  // namespace

std::optional<ToolTip> parseToolTip(std::string_view entry) {
  const std::size_t bar = entry.find('|');
  if (bar == std::string_view::npos) return {};
  ToolTip tip;
  std::string_view control = entry.substr(0, bar);
  const std::size_t underscore = control.rfind('_');
  if (underscore != std::string_view::npos) {
    tip.index = elementIndex(control.substr(underscore + 1));
    if (tip.index) control = control.substr(0, underscore);
  }
  tip.control = control;
  for (const char c : entry.substr(bar + 1)) {
    if (c == '~') {
      tip.text += "\r\n";
    } else {
      tip.text += c;
    }
  }
  return tip;
}

}  // namespace quillon::texts

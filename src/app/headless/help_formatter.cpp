#include "app/headless/help_formatter.h"

#include <string_view>
#include <utility>

namespace quillon::headless {
namespace {

constexpr std::size_t kDescriptionColumn = 32;
constexpr std::size_t kLastColumn = 100;

/// The text in lines from the column of descriptions on; the first one continues a line.
std::string wrapped(std::string_view text) {
  constexpr std::size_t kWidth = kLastColumn - kDescriptionColumn;
  std::string lines;
  while (text.size() > kWidth) {
    const std::size_t blank = text.rfind(' ', kWidth);
    if (blank == std::string_view::npos) break;
    lines.append(text.substr(0, blank)).append("\n").append(kDescriptionColumn, ' ');
    text.remove_prefix(blank + 1);
  }
  return lines.append(text).append("\n");
}

}  // namespace

HelpFormatter::HelpFormatter() { column_width(kDescriptionColumn); }

std::string HelpFormatter::make_usage(const CLI::App* /*app*/, std::string name) const {
  return "Usage: " + std::move(name) + " [OPTIONS] DRAWING.dxf...\n";
}

std::string HelpFormatter::make_positionals(const CLI::App* app) const {
  std::string text;
  for (const CLI::Option* const option :
       app->get_options([](const CLI::Option* one) { return one->get_positional(); })) {
    text += make_option(option, true);
  }
  return "\n" + text + "\n";
}

std::string HelpFormatter::make_group(std::string group, bool isPositional,
                                      std::vector<const CLI::Option*> options) const {
  std::string text = std::move(group) + ":\n";
  for (const CLI::Option* const option : options) text += make_option(option, isPositional);
  return text;
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  std::string line = "  ";
  // An option that only has a long name is indented, so that all long names are below each other.
  if (!isPositional && option->get_snames().empty()) line += "    ";
  if (isPositional) {
    line += option->get_type_name();
  } else {
    std::string names = make_option_name(option, false);
    const std::size_t comma = names.find(',');
    if (comma != std::string::npos) names.insert(comma + 1, " ");
    line += names;
    if (option->get_type_size() != 0) line += " " + option->get_type_name();
  }
  if (line.size() + 2 > kDescriptionColumn) {
    line += "\n";
    line.append(kDescriptionColumn, ' ');
  } else {
    line.resize(kDescriptionColumn, ' ');
  }
  return line + wrapped(option->get_description());
}

}  // namespace quillon::headless

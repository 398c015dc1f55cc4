#include "convert/command_line.h"

#include <algorithm>
#include <array>

#include "base/encoding.h"
#include "base/number_text.h"
#include "convert/job.h"
#include "files/paths.h"

namespace quillon::convert {
namespace {

std::int16_t integerOf(std::string_view value) {
  bool fits = false;
  return base::roundedInteger16(base::numberValue(value), fits);
}

bool isT(std::string_view value) { return value == "t"; }

/// There is no value for a board, and any but "s" and "y" selects a package; kept so that existing
/// command lines work.
std::int16_t targetKindOf(std::string_view value) {
  if (value == "s") return kSchematic;
  if (value == "y") return kSymbol;
  return kPackage;
}

/// Any but "4" and "6" selects 3.5; kept so that existing command lines work.
std::int16_t versionOf(std::string_view value) {
  const int version = value == "6" ? kEagle6 : value == "4" ? kEagle4 : kEagle3;
  return static_cast<std::int16_t>(version);
}

struct OptionRow {
  std::string_view key;
  CommandLineOption option;
  void (*store)(CommandLine& line, std::string_view value);
};

using Option = CommandLineOption;

constexpr std::array<OptionRow, 19> kOptions = {{
    {"x:", Option::DxfFile,
     [](CommandLine& line, std::string_view v) {
       line.dxfFile = files::pathArgument(std::string(v));
     }},
    {"s:", Option::ScriptFile,
     [](CommandLine& line, std::string_view v) {
       line.scriptFile = files::pathArgument(std::string(v));
     }},
    {"b:", Option::DrawingName,
     [](CommandLine& line, std::string_view v) { line.drawingName = v; }},
    {"o:", Option::TargetKind,
     [](CommandLine& line, std::string_view v) { line.targetKind = targetKindOf(v); }},
    {"d:", Option::LayerFile,
     [](CommandLine& line, std::string_view v) {
       line.layerFile = files::pathArgument(std::string(v));
     }},
    {"l:", Option::Layer, [](CommandLine& line, std::string_view v) { line.layer = v; }},
    {"v:", Option::Version,
     [](CommandLine& line, std::string_view v) { line.version = versionOf(v); }},
    {"u:", Option::Unit, [](CommandLine& line, std::string_view v) { line.unit = v; }},
    {"f:", Option::Scale,
     [](CommandLine& line, std::string_view v) { line.scale = base::numberValue(v); }},
    {"t:", Option::Dotted, [](CommandLine& line, std::string_view v) { line.dotted = isT(v); }},
    {"e:", Option::Ellipses, [](CommandLine& line, std::string_view v) { line.ellipses = isT(v); }},
    {"p:", Option::Poly, [](CommandLine& line, std::string_view v) { line.poly = integerOf(v); }},
    {"k:", Option::Blocks,
     [](CommandLine& line, std::string_view v) { line.blocks = integerOf(v); }},
    {"r:", Option::Report, [](CommandLine& line, std::string_view v) { line.report = isT(v); }},
    {"ru", Option::Unattended, [](CommandLine& line, std::string_view) { line.autoRun = true; }},
    {"rx", Option::Unattended,
     [](CommandLine& line, std::string_view) { line.autoRunExit = true; }},
    // "a" does not append but overwrites without asking; kept so that existing command lines work.
    {"w:", Option::Overwrite,
     [](CommandLine& line, std::string_view v) { line.overwriteScript = v == "o" || v == "a"; }},
    {"g:", Option::Rules, [](CommandLine& line, std::string_view v) { line.rules = v; }},
    {"a:", Option::ArcToLine,
     [](CommandLine& line, std::string_view v) { line.arcToLine = isT(v); }},
}};

constexpr std::size_t kKeyLength = 2;

bool takesNumber(Option option) {
  return option == Option::Scale || option == Option::Poly || option == Option::Blocks;
}

/// The last item of an option counts.
void noteNumber(CommandLine& line, std::string_view key, std::string_view value) {
  const std::string name = "/" + std::string(key.substr(0, 1));
  std::erase_if(line.notes, [&name](const NumberNote& note) { return note.name == name; });
  if (std::optional<NumberNote> note = noteOn(name, value)) line.notes.push_back(*std::move(note));
}

void takeItem(CommandLine& line, std::string_view item) {
  for (const OptionRow& row : kOptions) {
    if (!item.starts_with(row.key)) continue;
    const std::string_view value = base::trimBlanks(item.substr(kKeyLength));
    row.store(line, value);
    if (takesNumber(row.option)) noteNumber(line, row.key, value);
    line.CmdLineGiven += 1U << (static_cast<unsigned>(row.option) - 1U);
    return;
  }
}

/// Splits the text at each "/", keeping blanks.
std::vector<std::string_view> splitItems(std::string_view text) {
  std::vector<std::string_view> items;
  while (!text.empty()) {
    const std::size_t slash = std::min(text.find('/'), text.size());
    items.push_back(text.substr(0, slash));
    text.remove_prefix(std::min(slash + 1, text.size()));
  }
  return items;
}

bool isPathItem(std::string_view item) {
  return item.starts_with("x:") || item.starts_with("s:") || item.starts_with("d:");
}

/// Whether an item is clearly an option and not part of a path that was split.
bool looksLikeOption(std::string_view item) {
  return item == "ru" || item == "rx" || (item.size() > 1 && item[1] == ':');
}

/// The first path that was written with "/", joined again with "\\".
std::string findSplitPath(const std::vector<std::string_view>& items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    std::string_view part = base::trimBlanks(items[i]);
    if (!isPathItem(part)) continue;
    std::string path = "/" + std::string(part);
    const std::size_t whole = path.size();
    // A blank precedes an item of its own.
    for (std::size_t next = i + 1; next < items.size() && !items[next - 1].ends_with(' '); ++next) {
      part = base::trimBlanks(items[next]);
      if (looksLikeOption(part)) break;
      path.append("\\").append(part);
    }
    if (path.find_first_not_of('\\', whole) != std::string::npos) return path;
  }
  return {};
}

}  // namespace

CommandLine parseCommandLine(std::string_view text) {
  CommandLine line;
  const std::string lower = base::lowerCase(text);
  const std::vector<std::string_view> items = splitItems(lower);
  for (const std::string_view item : items) takeItem(line, base::trimBlanks(item));
  line.splitPath = findSplitPath(items);
  return line;
}

std::string joinArguments(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) line += (line.empty() ? "" : " ") + argument;
  return line;
}

}  // namespace quillon::convert

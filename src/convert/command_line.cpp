#include "convert/command_line.h"

#include <algorithm>
#include <array>

#include "convert/job.h"
#include "convert/paths.h"
#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::convert {
namespace {

std::int16_t integerOf(std::string_view value) {
  bool fits = false;
  return dxf::roundedInteger16(dxf::numberValue(value), fits);
}

bool isT(std::string_view value) { return value == "t"; }

/// No value selects a board, and every other one a package, as intended.
std::int16_t targetKindOf(std::string_view value) {
  if (value == "s") return kSchematic;
  if (value == "y") return kSymbol;
  return kPackage;
}

struct OptionRow {
  std::string_view key;
  CommandLineOption option;
  void (*store)(CommandLine& line, std::string_view value);
};

using Option = CommandLineOption;

constexpr std::array<OptionRow, 18> kOptions = {{
    {"x:", Option::DxfFile,
     [](CommandLine& line, std::string_view v) { line.dxfFile = pathArgument(std::string(v)); }},
    {"s:", Option::ScriptFile,
     [](CommandLine& line, std::string_view v) { line.scriptFile = pathArgument(std::string(v)); }},
    {"b:", Option::DrawingName,
     [](CommandLine& line, std::string_view v) { line.drawingName = v; }},
    {"o:", Option::TargetKind,
     [](CommandLine& line, std::string_view v) { line.targetKind = targetKindOf(v); }},
    {"d:", Option::LayerFile,
     [](CommandLine& line, std::string_view v) { line.layerFile = pathArgument(std::string(v)); }},
    {"l:", Option::Layer, [](CommandLine& line, std::string_view v) { line.layer = v; }},
    {"v:", Option::Version,
     [](CommandLine& line, std::string_view v) { line.version = v == "4" ? 1 : 0; }},
    {"u:", Option::Unit, [](CommandLine& line, std::string_view v) { line.unit = v; }},
    {"f:", Option::Scale,
     [](CommandLine& line, std::string_view v) { line.scale = dxf::numberValue(v); }},
    {"t:", Option::Dotted, [](CommandLine& line, std::string_view v) { line.dotted = isT(v); }},
    {"e:", Option::Ellipses, [](CommandLine& line, std::string_view v) { line.ellipses = isT(v); }},
    {"p:", Option::Poly, [](CommandLine& line, std::string_view v) { line.poly = integerOf(v); }},
    {"k:", Option::Blocks,
     [](CommandLine& line, std::string_view v) { line.blocks = integerOf(v); }},
    {"r:", Option::Report, [](CommandLine& line, std::string_view v) { line.report = isT(v); }},
    {"ru", Option::Unattended, [](CommandLine& line, std::string_view) { line.autoRun = true; }},
    {"rx", Option::Unattended,
     [](CommandLine& line, std::string_view) { line.autoRunExit = true; }},
    // "a" does not append: the script is rewritten without a question, as intended.
    {"w:", Option::Overwrite,
     [](CommandLine& line, std::string_view v) { line.overwriteScript = v == "o" || v == "a"; }},
    {"a:", Option::ArcToLine,
     [](CommandLine& line, std::string_view v) { line.arcToLine = isT(v); }},
}};

constexpr std::size_t kKeyLength = 2;

void takeItem(CommandLine& line, std::string_view item) {
  for (const OptionRow& row : kOptions) {
    if (!item.starts_with(row.key)) continue;
    row.store(line, dxf::trimBlanks(item.substr(kKeyLength)));
    line.CmdLineGiven += 1U << (static_cast<unsigned>(row.option) - 1U);
    return;
  }
}

}  // namespace

CommandLine parseCommandLine(std::string_view text) {
  CommandLine line;
  const std::string lower = dxf::lowerCase(text);
  std::string_view rest = lower;
  while (!rest.empty()) {
    const std::size_t slash = std::min(rest.find('/'), rest.size());
    takeItem(line, dxf::trimBlanks(rest.substr(0, slash)));
    rest.remove_prefix(std::min(slash + 1, rest.size()));
  }
  return line;
}

std::string joinArguments(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) line += (line.empty() ? "" : " ") + argument;
  return line;
}

}  // namespace quillon::convert

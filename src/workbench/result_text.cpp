#include "workbench/result_text.h"

#include "base/quotable.h"
#include "convert/findings.h"
#include "convert/summary.h"

namespace quillon::workbench {
namespace {

using texts::TextId;

void append(std::vector<std::string>& lines, std::vector<std::string> more) {
  for (std::string& line : more) lines.push_back(std::move(line));
}

}  // namespace

std::string resultPath(const std::string& path) {
  constexpr std::size_t kLongest = 4096;
  return base::quotable(path, kLongest);
}

std::string scriptCommand(const convert::ConversionResult& result) {
  const std::string argument = convert::scriptArgument(result);
  return argument.empty() ? std::string() : "SCRIPT '" + argument + "'";
}

std::vector<std::string> resultLines(const convert::ConversionResult& result,
                                     const std::string& command, const texts::Texts& texts) {
  std::vector<std::string> lines;
  lines.push_back(texts(TextId::ResultEntities,
                        {std::to_string(convert::entityCount(result)), resultPath(result.dxfFile),
                         std::to_string(result.fileLinesRead)}));
  lines.push_back(texts(TextId::ResultLines,
                        {std::to_string(result.commandCount), resultPath(result.scriptFile)}));
  const std::string unknown = convert::unknownKindsText(result);
  if (!unknown.empty()) lines.push_back(texts(TextId::UnknownLeftOut, {unknown}));
  for (std::string line :
       {convert::hiddenText(result, texts), convert::damageText(result, texts)}) {
    if (!line.empty()) lines.push_back(std::move(line));
  }
  append(lines, convert::notDrawnLines(result, texts));
  append(lines, convert::findingLines(result, texts));
  append(lines, convert::classicLossLines(result, texts, {}));
  if (result.outcome == convert::Outcome::Cancelled) {
    lines.emplace_back(texts(TextId::ResultCancelled));
  }
  if (result.rangeWarning) lines.emplace_back(texts(TextId::ResultOutsideRange));
  if (!command.empty()) lines.push_back(texts(TextId::ResultCommand, {command}));
  return lines;
}

}  // namespace quillon::workbench

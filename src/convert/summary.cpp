#include "convert/summary.h"

#include <numeric>

#include "base/quotable.h"
#include "convert/findings.h"
#include "convert/messages.h"
#include "files/paths.h"

namespace quillon::convert {

namespace {

using texts::TextId;

std::uint64_t sum(const rules::EntityCounts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
}

}  // namespace

std::uint64_t entityCount(const ConversionResult& result) {
  constexpr auto kVertex = static_cast<std::size_t>(dxf::EntityKind::Vertex);
  constexpr auto kSeqend = static_cast<std::size_t>(dxf::EntityKind::Seqend);
  return sum(result.counts) - result.counts[kVertex] - result.counts[kSeqend] - sum(result.leftOut);
}

std::string hiddenText(const ConversionResult& result, const texts::Texts& texts) {
  const std::uint64_t onLayers999 = sum(result.leftOut);
  return onLayers999 == 0 ? std::string()
                          : texts(TextId::UnconvertedLeftOut, {std::to_string(onLayers999)});
}

std::string damageText(const ConversionResult& result, const texts::Texts& texts) {
  if (result.dropped.count == 0) return {};
  return texts(TextId::DamagedLeftOut,
               {std::to_string(result.dropped.count), std::to_string(result.dropped.firstLine)});
}

std::vector<Message> lossWarnings(const ConversionResult& result, const texts::Texts& texts) {
  std::vector<Message> warnings;
  const auto add = [&](const std::string& text) {
    const std::string detail = base::quotable(result.dxfFile) + ": " + text;
    warnings.push_back(
        {MessageKind::Warning, std::string(texts(TextId::WarningTitle)), text, detail});
  };
  const std::string damage = damageText(result, texts);
  if (!damage.empty()) add(damage);
  const std::string unknown = unknownKindsText(result);
  if (!unknown.empty()) add(texts(TextId::UnknownLeftOut, {unknown}));
  for (const std::string& line : notDrawnLines(result, texts)) add(line);
  return warnings;
}

bool nothingConverted(const ConversionResult& result) {
  const bool any =
      sum(result.counts) > 0 || result.dropped.count > 0 || !result.unknownKinds.empty();
  return any && entityCount(result) == 0;
}

std::string unknownKindsText(const ConversionResult& result) {
  constexpr std::size_t kMostKindsNamed = 10;
  std::string text;
  std::size_t kinds = 0;
  for (const auto& [name, count] : result.unknownKinds) {
    if (++kinds > kMostKindsNamed) return text + ", …";
    if (!text.empty()) text += ", ";
    text.append(base::quotable(name)).append(" ").append(std::to_string(count));
  }
  return text;
}

std::string scriptArgument(const ConversionResult& result) {
  const std::string path = files::fromPath(files::wholePath(files::toPath(result.scriptFile)));
  const bool plain = path.find('\'') == std::string::npos && !base::hasControlCharacter(path);
  return plain ? path : std::string();
}

}  // namespace quillon::convert

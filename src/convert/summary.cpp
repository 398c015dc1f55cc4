#include "convert/summary.h"

#include <filesystem>
#include <numeric>
#include <system_error>

#include "convert/messages.h"
#include "convert/paths.h"

namespace quillon::convert {

namespace {

std::uint64_t sum(const rules::EntityCounts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
}

}  // namespace

std::uint64_t entityCount(const ConversionResult& result) {
  constexpr auto kVertex = static_cast<std::size_t>(dxf::EntityKind::Vertex);
  constexpr auto kSeqend = static_cast<std::size_t>(dxf::EntityKind::Seqend);
  return sum(result.counts) - result.counts[kVertex] - result.counts[kSeqend] - sum(result.leftOut);
}

std::vector<std::string> leftOutTexts(const ConversionResult& result,
                                      const resources::Texts& texts) {
  std::vector<std::string> lines;
  const std::uint64_t onLayers999 = sum(result.leftOut);
  if (onLayers999 > 0) lines.push_back(texts(3148, {std::to_string(onLayers999)}));
  if (result.dropped.count > 0) {
    lines.push_back(texts(
        3149, {std::to_string(result.dropped.count), std::to_string(result.dropped.firstLine)}));
  }
  return lines;
}

std::string unknownKindsText(const ConversionResult& result) {
  constexpr std::size_t kMostKinds = 10;
  std::string text;
  std::size_t kinds = 0;
  for (const auto& [name, count] : result.unknownKinds) {
    if (++kinds > kMostKinds) return text + ", …";
    if (!text.empty()) text += ", ";
    text.append(quotable(name)).append(" ").append(std::to_string(count));
  }
  return text;
}

std::string scriptArgument(const ConversionResult& result) {
  std::error_code ignored;
  const std::filesystem::path full = std::filesystem::absolute(toPath(result.scriptFile), ignored);
  const std::string path = fromPath(full.lexically_normal());
  const bool plain = path.find('\'') == std::string::npos && !hasControlCharacter(path);
  return plain ? path : std::string();
}

}  // namespace quillon::convert

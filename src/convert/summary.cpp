#include "convert/summary.h"

#include <filesystem>
#include <numeric>
#include <system_error>

#include "convert/messages.h"
#include "convert/paths.h"

namespace quillon::convert {

std::uint64_t entityCount(const ConversionResult& result) {
  constexpr auto kVertex = static_cast<std::size_t>(dxf::EntityKind::Vertex);
  constexpr auto kSeqend = static_cast<std::size_t>(dxf::EntityKind::Seqend);
  const std::uint64_t all =
      std::accumulate(result.counts.begin(), result.counts.end(), std::uint64_t{0});
  return all - result.counts[kVertex] - result.counts[kSeqend];
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

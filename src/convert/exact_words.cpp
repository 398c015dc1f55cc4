#include "convert/exact_words.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "base/number_text.h"

namespace quillon::convert {
namespace {

constexpr auto kPointWords = std::to_array<std::string_view>({"glyph", "dot", "none"});
constexpr std::string_view kHolePrefix = "hole:";

/// The number that a whole text is.
std::optional<double> numberIn(std::string_view text) {
  if (!base::isNumber(text)) return std::nullopt;
  return base::numberValue(text);
}

}  // namespace

std::string pointsText(const exact::Options& options) {
  if (options.points != exact::PointStyle::Hole)
    return std::string(kPointWords[static_cast<std::size_t>(options.points)]);
  return std::string(kHolePrefix) + base::numberText(options.pointDrill);
}

bool setPoints(exact::Options& options, std::string_view text) {
  const auto found = std::find(kPointWords.begin(), kPointWords.end(), text);
  if (found != kPointWords.end()) {
    options.points = static_cast<exact::PointStyle>(found - kPointWords.begin());
    return true;
  }
  if (!text.starts_with(kHolePrefix)) return false;
  const std::optional<double> drill = numberIn(text.substr(kHolePrefix.size()));
  if (!drill || *drill <= 0.0 || !kWidthRange.has(*drill)) return false;
  options.points = exact::PointStyle::Hole;
  options.pointDrill = *drill;
  return true;
}

std::string holeLayersText(const exact::Options& options) {
  std::string text;
  for (const std::string& layer : options.holeLayers) {
    text.append(text.empty() ? "" : ",").append(layer);
  }
  return text;
}

void setHoleLayers(exact::Options& options, std::string_view text) {
  options.holeLayers.clear();
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t stop = std::min(text.find(',', start), text.size());
    const std::string_view layer = base::trimBlanks(text.substr(start, stop - start));
    if (!layer.empty()) options.holeLayers.emplace_back(layer);
    start = stop + 1;
  }
}

std::string holeDiametersText(const exact::Options& options) {
  return base::numberText(options.holeLeast) + ".." + base::numberText(options.holeMost);
}

bool setHoleDiameters(exact::Options& options, std::string_view text) {
  const std::size_t dots = text.find("..");
  if (dots == std::string_view::npos) return false;
  const std::optional<double> least = numberIn(text.substr(0, dots));
  const std::optional<double> most = numberIn(text.substr(dots + 2));
  if (!least || !most || *least > *most || !kWidthRange.has(*least) || !kWidthRange.has(*most))
    return false;
  options.holeLeast = *least;
  options.holeMost = *most;
  return true;
}

}  // namespace quillon::convert

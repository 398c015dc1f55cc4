#include <cctype>

#include "app/completion/completion.h"
#include "convert/drawing_unit.h"

namespace quillon::completion {
namespace {

/// The words between bars. A word that a value follows, such as "hole:D", ends in its colon.
std::vector<std::string> splitWords(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    const std::size_t bar = text.find('|');
    std::string_view word = text.substr(0, bar);
    const std::size_t colon = word.find(':');
    if (colon != std::string_view::npos) word = word.substr(0, colon + 1);
    words.emplace_back(word);
    text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
  }
  return words;
}

bool isCapital(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }

/// The extension of a name such as "FILE.lay", all capitals before the point; "" for others.
std::string extensionOf(std::string_view name) {
  const std::size_t point = name.find('.');
  if (point == std::string_view::npos || point == 0 || point + 1 == name.size()) return {};
  for (const char c : name.substr(0, point)) {
    if (!isCapital(c)) return {};
  }
  for (const char c : name.substr(point + 1)) {
    if (std::islower(static_cast<unsigned char>(c)) == 0) return {};
  }
  return std::string(name.substr(point + 1));
}

}  // namespace

Offer offerFor(const headless::ListedOption& option) {
  Offer offer;
  // Three dots say that there may be several.
  constexpr std::string_view kSeveral = "...";
  std::string_view name = option.value;
  if (name.ends_with(kSeveral)) name.remove_suffix(kSeveral.size());
  if (name.find('|') != std::string_view::npos) {
    offer.words = splitWords(name);
  } else if (name == "UNIT") {
    offer.words = splitWords(convert::drawingUnitWords());
  } else {
    offer.extension = extensionOf(name);
    offer.files = name == "FILE" || !offer.extension.empty();
  }
  return offer;
}

}  // namespace quillon::completion

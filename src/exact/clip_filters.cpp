#include "exact/clip_filters.h"

#include <algorithm>
#include <vector>

#include "base/encoding.h"
#include "base/number_text.h"

namespace quillon::exact {
namespace {

/// Handles are hexadecimal numbers in letters of either case.
std::string handleOf(std::string_view text) {
  return base::upperCase(base::trimBlanks(text), base::Encoding::Windows1252);
}

}  // namespace

void ClipFilters::note(std::string_view dictionary, const LossList::Event& insertion) {
  const auto [found, isNew] = insertions_.try_emplace(handleOf(dictionary));
  if (isNew) found->second.first = losses_.placed(insertion);
  ++found->second.count;
}

void ClipFilters::takeGroup(int code, std::string_view value) {
  constexpr int kSoftOwned = 350;
  constexpr int kHardOwned = 360;
  if (code == 0) {
    isDictionary_ = base::trimBlanks(value) == "DICTIONARY";
    handle_.clear();
    entry_.clear();
  }
  if (!isDictionary_) return;
  if (code == 5) handle_ = handleOf(value);
  if (code == 3) entry_ = base::trimBlanks(value);
  if (code != kSoftOwned && code != kHardOwned) return;
  if (entry_ == "ACAD_FILTER") filters_[handle_] = handleOf(value);
  if (entry_ == "SPATIAL") clipping_.insert(handle_);
}

void ClipFilters::endOfObjects() {
  std::vector<Insertions> clipped;
  for (const auto& [dictionary, insertions] : insertions_) {
    const auto filter = filters_.find(dictionary);
    if (filter != filters_.end() && clipping_.contains(filter->second)) {
      clipped.push_back(insertions);
    }
  }
  insertions_.clear();
  // In the order of the drawing.
  std::stable_sort(clipped.begin(), clipped.end(), [](const Insertions& a, const Insertions& b) {
    return a.first.line < b.first.line;
  });
  for (const Insertions& insertions : clipped) {
    losses_.addPlaced(insertions.first, insertions.count);
  }
}

}  // namespace quillon::exact

#include "rules/losses.h"

#include <algorithm>
#include <array>

namespace quillon::rules {
namespace {

struct Row {
  LossGroup group;
  std::string_view word;
};
constexpr auto kRows = std::to_array<Row>({
#define LOSS(name, group, word) {LossGroup::group, word},
#include "rules/loss_rules.def"
#undef LOSS
});

const Row& rowOf(LossRule rule) { return kRows[static_cast<std::size_t>(rule)]; }

}  // namespace

LossGroup groupOf(LossRule rule) { return rowOf(rule).group; }

std::string_view wordOf(LossRule rule) { return rowOf(rule).word; }

void LossList::add(const Event& event, std::uint64_t count) { addPlaced(placed(event), count); }

std::string_view LossList::keptName(std::string_view name) {
  if (name.empty()) return {};
  const auto found = names_.find(name);
  if (found != names_.end()) return *found;
  return names_.size() < kMostNames ? *names_.emplace(name).first : std::string_view();
}

std::size_t LossList::indexOf(const Event& event) {
  const std::string_view name = keptName(event.name);
  const auto [found, isNew] =
      index_.try_emplace(Key(event.rule, event.kind, event.layer, name), losses_.size());
  if (isNew) {
    losses_.push_back({event.rule, event.kind, event.layer, name, 0, event.line, event.at, 0.0});
  }
  return found->second;
}

std::size_t LossList::quickIndexOf(const Event& event) {
  if (!event.name.empty()) return indexOf(event);
  const Recent* const recent = recentOf(event.rule, event.kind, event.layer);
  if (recent != nullptr) return recent->index;
  const std::size_t index = indexOf(event);
  keepRecent({event.kind, event.layer, event.rule, index});
  return index;
}

void LossList::addPlaced(const Event& event, std::uint64_t count) {
  Loss& loss = losses_[quickIndexOf(event)];
  loss.count += count;
  loss.most = std::max(loss.most, event.measure);
}

bool LossList::findAgain(LossRule rule, std::string_view kind, std::string_view layer,
                         std::uint64_t count) {
  const auto found = index_.find(Key(rule, kind, layer, {}));
  if (found == index_.end()) return false;
  keepRecent({kind, layer, rule, found->second});
  losses_[found->second].count += count;
  return true;
}

void LossList::keepRecent(const Recent& recent) {
  constexpr std::size_t kPlacesEach = 8;  // few losses are to come in the way of others
  unsigned bits = recentBits_;
  while (bits < kMostRecentBits && losses_.size() * kPlacesEach > std::size_t{1} << bits) ++bits;
  if (recent_.empty() || bits > recentBits_) {
    recentBits_ = bits;
    recent_.assign(std::size_t{1} << bits, {});
  }
  recent_[placeOf(recent.rule, recent.kind, recent.layer)] = recent;
}

std::uint64_t LossList::countOf(LossRule rule) const {
  std::uint64_t count = 0;
  for (const Loss& loss : losses_) count += loss.rule == rule ? loss.count : 0;
  return count;
}

}  // namespace quillon::rules

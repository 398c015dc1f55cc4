#include "exact/losses.h"

#include <algorithm>
#include <array>

namespace quillon::exact {
namespace {

struct Row {
  LossGroup group;
  std::string_view word;
};
constexpr auto kRows = std::to_array<Row>({
#define LOSS(name, group, word) {LossGroup::group, word},
#include "exact/loss_rules.def"
#undef LOSS
});

const Row& rowOf(LossRule rule) { return kRows[static_cast<std::size_t>(rule)]; }

}  // namespace

LossGroup groupOf(LossRule rule) { return rowOf(rule).group; }

std::string_view wordOf(LossRule rule) { return rowOf(rule).word; }

void LossList::add(const Event& event, std::uint64_t count) {
  const auto place = reinterpret_cast<std::uintptr_t>(event.layer.data());
  std::size_t& recent =
      recent_[(place / 8 + 31 * static_cast<std::size_t>(event.rule)) % recent_.size()];
  if (!isOf(recent, event)) {
    const auto [found, isNew] =
        index_.try_emplace(Key(event.rule, event.kind, event.layer), losses_.size());
    if (isNew) {
      losses_.push_back({event.rule, event.kind, event.layer, 0, event.line, event.at, 0.0});
    }
    recent = found->second;
  }
  Loss& loss = losses_[recent];
  loss.count += count;
  loss.most = std::max(loss.most, event.measure);
}

/// Names are kept once each, so that their places tell most of them.
bool LossList::isOf(std::size_t index, const Event& event) const {
  if (index >= losses_.size()) return false;
  const Loss& loss = losses_[index];
  const auto isSame = [](std::string_view a, std::string_view b) {
    return a.data() == b.data() && a.size() == b.size();
  };
  return loss.rule == event.rule && isSame(loss.kind, event.kind) &&
         isSame(loss.layer, event.layer);
}

std::uint64_t LossList::countOf(LossRule rule) const {
  std::uint64_t count = 0;
  for (const Loss& loss : losses_) count += loss.rule == rule ? loss.count : 0;
  return count;
}

}  // namespace quillon::exact

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "geometry/affine.h"
#include "geometry/point.h"

namespace quillon::rules {

enum class LossGroup : std::uint8_t {
  NotDrawn,
  Hidden,   ///< not drawn, as the drawing hides it
  Surplus,  ///< drawn, though the drawing hides it
  Simplified,
  Cleaned,
};

/// The rules by which something of the drawing is left out or changed.
enum class LossRule : std::uint8_t {
#define LOSS(name, group, word) name,
#include "rules/loss_rules.def"
#undef LOSS
};

LossGroup groupOf(LossRule rule);
/// The rule's name in JSON.
std::string_view wordOf(LossRule rule);

/// What one rule did to the entities of one kind on one DXF layer.
struct Loss {
  LossRule rule;
  std::string_view kind;   ///< DXF name; lives as long as the drawing
  std::string_view layer;  ///< upper-cased; likewise
  std::string_view name;   ///< of what is missing, as it was added; "" where that has none
  std::uint64_t count = 0;
  std::uint64_t line = 0;  ///< of the first one, in the file
  geometry::Point at{};    ///< of the first one, in units of the script
  double most = 0.0;       ///< where the rule has a measure: the largest one
};

/// Everything that a conversion does not show as it is, in the order of first occurrence.
class LossList {
 public:
  LossList() = default;
  LossList(LossList&&) = default;
  LossList& operator=(LossList&&) = default;
  LossList(const LossList&) = delete;  // whose names would be the other one's
  LossList& operator=(const LossList&) = delete;

  struct Event {
    LossRule rule;
    std::string_view kind;
    std::string_view layer;
    std::uint64_t line = 0;
    geometry::Point at{};
    double measure = 0.0;
    std::string_view name{};  ///< of what is missing, e.g. a block; upper-cased or a path
  };
  /// Names that are told apart; what has other ones is counted without a name.
  static constexpr std::size_t kMostNames = 100;
  void add(const Event& event, std::uint64_t count = 1);
  /// An event with its place in the script, as it is now, to be added later.
  Event placed(Event event) const {
    event.at = place_(event.at);
    return event;
  }
  void addPlaced(const Event& event, std::uint64_t count);
  /// Where the places of events to come are seen: from their coordinates to the script's.
  void setPlace(const geometry::Affine& place) { place_ = place; }
  /// Counts so many more of what has been added before without a name; false when there is none of
  /// it. Quick where the names are the same characters as before, not merely equal ones.
  bool addAgain(LossRule rule, std::string_view kind, std::string_view layer,
                std::uint64_t count = 1) {
    const Recent* const recent = recentOf(rule, kind, layer);
    if (recent == nullptr) return findAgain(rule, kind, layer, count);
    losses_[recent->index].count += count;
    return true;
  }

  const std::vector<Loss>& all() const { return losses_; }
  std::uint64_t countOf(LossRule rule) const;

 private:
  using Key = std::tuple<LossRule, std::string_view, std::string_view, std::string_view>;
  std::size_t indexOf(const Event& event);
  std::size_t quickIndexOf(const Event& event);
  /// The same name, which stays.
  std::string_view keptName(std::string_view name);

  geometry::Affine place_;
  std::vector<Loss> losses_;
  std::map<Key, std::size_t> index_;
  std::set<std::string, std::less<>> names_;

  /// Where a loss is that was met lately.
  struct Recent {
    std::string_view kind;
    std::string_view layer;
    LossRule rule{};
    std::size_t index = std::numeric_limits<std::size_t>::max();
  };
  static constexpr unsigned kFewestRecentBits = 6;
  static constexpr unsigned kMostRecentBits = 11;
  static bool isSameText(std::string_view a, std::string_view b) {
    return a.data() == b.data() && a.size() == b.size();
  }
  /// The loss, if it was met lately; else null.
  const Recent* recentOf(LossRule rule, std::string_view kind, std::string_view layer) const {
    if (recent_.empty()) return nullptr;
    const Recent& recent = recent_[placeOf(rule, kind, layer)];
    const bool isSame = recent.index < losses_.size() && recent.rule == rule &&
                        isSameText(recent.kind, kind) && isSameText(recent.layer, layer);
    return isSame ? &recent : nullptr;
  }
  std::size_t placeOf(LossRule rule, std::string_view kind, std::string_view layer) const {
    const auto bits = [](std::string_view text) {
      return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(text.data()));
    };
    constexpr std::uint64_t kMixing = 0x9E3779B97F4A7C15;
    const std::uint64_t mixed =
        (bits(layer) * 31 + bits(kind) * 7 + static_cast<std::uint64_t>(rule)) * kMixing;
    return static_cast<std::size_t>(mixed >> (64 - recentBits_));
  }
  bool findAgain(LossRule rule, std::string_view kind, std::string_view layer, std::uint64_t count);
  void keepRecent(const Recent& recent);

  /// Grows with the losses: most drawings have a few or none, and are small themselves.
  std::vector<Recent> recent_;
  unsigned recentBits_ = kFewestRecentBits;
};

}  // namespace quillon::rules

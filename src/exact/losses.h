#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <vector>

#include "geometry/point.h"

namespace quillon::exact {

enum class LossGroup : std::uint8_t { NotDrawn, Hidden, Simplified, Cleaned };

/// The rules by which something of the drawing is left out or changed.
enum class LossRule : std::uint8_t {
#define LOSS(name, group, word) name,
#include "exact/loss_rules.def"
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
  std::uint64_t count = 0;
  std::uint64_t line = 0;  ///< of the first one, in the file
  geometry::Point at{};    ///< of the first one, in units of the script
  double most = 0.0;       ///< where the rule has a measure: the largest one
};

/// Everything that a conversion does not show as it is, in the order of first occurrence.
class LossList {
 public:
  struct Event {
    LossRule rule;
    std::string_view kind;
    std::string_view layer;
    std::uint64_t line = 0;
    geometry::Point at{};
    double measure = 0.0;
  };
  void add(const Event& event, std::uint64_t count = 1);

  const std::vector<Loss>& all() const { return losses_; }
  std::uint64_t countOf(LossRule rule) const;

 private:
  bool isOf(std::size_t index, const Event& event) const;

  using Key = std::tuple<LossRule, std::string_view, std::string_view>;
  std::vector<Loss> losses_;
  std::map<Key, std::size_t> index_;
  /// Where losses that came lately are; most come again and again.
  std::array<std::size_t, 64> recent_{};
};

}  // namespace quillon::exact

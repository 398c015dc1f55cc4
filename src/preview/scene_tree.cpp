#include "preview/scene_tree.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "geometry/spread_bits.h"

namespace quillon::preview {
namespace {

using geometry::Box;

/// How many things are looked at between two questions whether to stop.
constexpr std::size_t kThingsUnasked = 1U << 16U;

struct Keyed {
  std::uint64_t key;
  std::uint32_t thing;
};

/// Keys that sort boxes by their size, and those of one size along a line that winds through the
/// plane and keeps neighbours together.
class Keys {
 public:
  explicit Keys(const Box& all)
      : low_(all.low),
        side_(std::max({all.high.x - all.low.x, all.high.y - all.low.y, kLeastSide})),
        scale_(kCells / side_) {}

  std::uint64_t operator()(const Box& box) const {
    const std::uint64_t x = cell((0.5 * box.low.x + 0.5 * box.high.x) - low_.x);
    const std::uint64_t y = cell((0.5 * box.low.y + 0.5 * box.high.y) - low_.y);
    return sizeClass(box) << 56U | geometry::spreadBits(y) << 1U | geometry::spreadBits(x);
  }

 private:
  static constexpr double kCells = (1U << 28U) - 1.0;
  /// Divides the cells without an overflow, where everything is in one point.
  static constexpr double kLeastSide = 1e-290;

  std::uint64_t cell(double distance) const {
    return static_cast<std::uint64_t>(std::clamp(distance * scale_, 0.0, kCells));
  }

  /// 0 for things as large as everything, and one more for each quarter of that.
  std::uint64_t sizeClass(const Box& box) const {
    constexpr int kSmallest = 12;
    const double size = std::max(box.high.x - box.low.x, box.high.y - box.low.y);
    if (!(size > 0.0)) return kSmallest;
    const int halvings = std::ilogb(side_ / size);
    return static_cast<std::uint64_t>(std::clamp(halvings / 2, 0, kSmallest));
  }

  geometry::Point low_;
  double side_;
  double scale_;
};

}  // namespace

std::vector<std::uint32_t> SceneTree::build(std::size_t count,
                                            const std::function<Box(std::size_t)>& boxOf,
                                            const geometry::StopCheck& stop) {
  count_ = 0;
  levels_.clear();
  bounds_ = {};
  for (std::size_t i = 0; i < count; ++i) {
    if (i % kThingsUnasked == 0 && stop()) return {};
    bounds_.add(boxOf(i));
  }
  const Keys keyOf(bounds_);
  std::vector<Keyed> keyed(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i % kThingsUnasked == 0 && stop()) return {};
    keyed[i] = {keyOf(boxOf(i)), static_cast<std::uint32_t>(i)};
  }
  std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
    return a.key != b.key ? a.key < b.key : a.thing < b.thing;
  });
  if (stop()) return {};
  std::vector<std::uint32_t> order(count);
  for (std::size_t i = 0; i < count; ++i) order[i] = keyed[i].thing;

  count_ = count;
  const auto addLevel = [this](std::size_t things, const auto& box) {
    std::vector<Box> level((things + kFanOut - 1) / kFanOut);
    for (std::size_t i = 0; i < things; ++i) level[i / kFanOut].add(box(i));
    levels_.push_back(std::move(level));
  };
  if (count > 0) addLevel(count, [&](std::size_t i) { return boxOf(order[i]); });
  while (!levels_.empty() && levels_.back().size() > kFanOut) {
    const std::vector<Box>& below = levels_.back();
    addLevel(below.size(), [data = below.data()](std::size_t i) { return data[i]; });
  }
  return order;
}

std::size_t SceneTree::bytes() const {
  std::size_t bytes = 0;
  for (const std::vector<Box>& level : levels_) bytes += level.capacity() * sizeof(Box);
  return bytes;
}

}  // namespace quillon::preview

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "support/dxf_builder.h"
#include "support/read_drawing.h"
#include "support/timing.h"

namespace quillon::dxf {
namespace {

using testing::joinLines;
using testing::leastSeconds;
using testing::ReadDrawing;
using Names = std::vector<std::string>;

/// Names that all collide under the standard library's usual hash, which processes eight bytes at a
/// time.
class CollidingNames {
 public:
  Names make(std::size_t bits) {
    const auto [one, other] = pairs();
    Names names;
    for (std::size_t number = 0; number < std::size_t{1} << bits; ++number) {
      std::string& name = names.emplace_back();
      for (std::size_t bit = 0; bit < bits; ++bit) name += (number >> bit & 1U) != 0 ? other : one;
    }
    return names;
  }

 private:
  static constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995U;

  static std::uint64_t inverse(std::uint64_t odd) {
    std::uint64_t x = odd;
    for (int i = 0; i < 6; ++i) x *= 2 - odd * x;
    return x;
  }
  static std::uint64_t mixed(std::uint64_t word) {
    word *= kFactor;
    return (word ^ word >> 47) * kFactor;
  }
  static std::uint64_t unmixed(std::uint64_t word) {
    word *= inverse(kFactor);
    return (word ^ word >> 47) * inverse(kFactor);
  }
  /// Whether all bytes are valid in a name and unaffected by upper-casing.
  static bool fits(std::uint64_t word) {
    for (int i = 0; i < 8; ++i, word >>= 8) {
      const unsigned byte = word & 0xFF;
      const bool changes = byte == 0x9A || byte == 0x9C || byte == 0x9E;
      const bool plain = (byte > 0x20 && byte <= 0x60) || (byte >= 0x80 && byte < 0xE0);
      if (!plain || changes) return false;
    }
    return true;
  }
  /// Two texts of two words each. After mixing, their first words differ in the highest bit; their
  /// second words cancel that out.
  std::pair<std::string, std::string> pairs() {
    std::string one;
    std::string other;
    while (one.size() < 16) {
      const std::uint64_t word = std::uint64_t{random_()} << 32 | random_();
      const std::uint64_t twin = unmixed(mixed(word) ^ std::uint64_t{1} << 63);
      if (!fits(word) || !fits(twin)) continue;
      append(one, word);
      append(other, twin);
    }
    return {one, other};
  }
  static void append(std::string& text, std::uint64_t word) {
    for (int i = 0; i < 8; ++i, word >>= 8) text += static_cast<char>(word & 0xFF);
  }

  std::mt19937 random_{9};
};

/// A drawing with a point on each of these layers, each of which has an entry in the layer table.
std::string drawingWithLayers(const Names& names) {
  std::string text = joinLines({"0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER"});
  for (const std::string& name : names) text += "0\nLAYER\n2\n" + name + "\n70\n0\n";
  text += joinLines({"0", "ENDTAB", "0", "ENDSEC", "0", "SECTION", "2", "ENTITIES"});
  for (const std::string& name : names) text += "0\nPOINT\n8\n" + name + "\n";
  return text + joinLines({"0", "ENDSEC", "0", "EOF"});
}

TEST(HashFlooding, CraftedLayerNamesCostNoMoreThanOthers) {
  constexpr std::size_t kBits = 13;
  const Names chosen = CollidingNames().make(kBits);
#ifdef __GLIBCXX__
  EXPECT_EQ(std::hash<std::string>()(chosen.front()), std::hash<std::string>()(chosen.back()));
#endif
  Names ordinary = chosen;
  for (std::size_t i = 0; i < ordinary.size(); ++i) {
    const std::string number = std::to_string(i);
    ordinary[i].replace(0, number.size(), number);
  }
  const auto secondsFor = [](const Names& names) {
    const std::string text = drawingWithLayers(names);
    return leastSeconds([&] {
      const ReadDrawing read(text);
      EXPECT_EQ(read.entities().size(), names.size());
      EXPECT_EQ(read.drawing.layerIndex.size(), names.size());
    });
  };
  const double usual = secondsFor(ordinary);
  const double hostile = secondsFor(chosen);
  EXPECT_LT(hostile / usual, 5.0) << usual << " s, " << hostile << " s";
}

}  // namespace
}  // namespace quillon::dxf

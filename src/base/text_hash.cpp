#include "base/text_hash.h"

#include <bit>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <exception>
#include <random>

namespace quillon::base {
namespace {

/// Loads eight bytes, the first one lowest.
std::uint64_t loadWord(const char* p) {
  std::uint64_t word = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&word, p, sizeof word);
  } else {
    for (unsigned i = 0; i < 8; ++i) {
      word |= std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
    }
  }
  return word;
}

/// The remaining bytes, fewer than eight, with the length of the whole text in the top byte.
std::uint64_t loadTail(const char* p, std::size_t length) {
  std::uint64_t word = std::uint64_t{length} << 56;
  for (std::size_t i = 0; i < length % 8; ++i) {
    word |= std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
  }
  return word;
}

class SipState {
 public:
  explicit SipState(const HashKey& key)
      : v0_(key.low ^ 0x736F6D6570736575U),
        v1_(key.high ^ 0x646F72616E646F6DU),
        v2_(key.low ^ 0x6C7967656E657261U),
        v3_(key.high ^ 0x7465646279746573U) {}

  template <int kRounds>
  void add(std::uint64_t word) {
    v3_ ^= word;
    for (int i = 0; i < kRounds; ++i) round();
    v0_ ^= word;
  }

  template <int kRounds>
  std::uint64_t finish() {
    v2_ ^= 0xFF;
    for (int i = 0; i < kRounds; ++i) round();
    return v0_ ^ v1_ ^ v2_ ^ v3_;
  }

 private:
  void round() {
    v0_ += v1_;
    v2_ += v3_;
    v1_ = std::rotl(v1_, 13) ^ v0_;
    v3_ = std::rotl(v3_, 16) ^ v2_;
    v0_ = std::rotl(v0_, 32);
    v2_ += v1_;
    v0_ += v3_;
    v1_ = std::rotl(v1_, 17) ^ v2_;
    v3_ = std::rotl(v3_, 21) ^ v0_;
    v2_ = std::rotl(v2_, 32);
  }

  std::uint64_t v0_;
  std::uint64_t v1_;
  std::uint64_t v2_;
  std::uint64_t v3_;
};

template <int kWordRounds, int kLastRounds>
std::uint64_t sipHash(std::string_view text, const HashKey& key) {
  SipState state(key);
  const char* p = text.data();
  for (std::size_t left = text.size(); left >= 8; left -= 8, p += 8) {
    state.add<kWordRounds>(loadWord(p));
  }
  state.add<kWordRounds>(loadTail(p, text.size()));
  return state.finish<kLastRounds>();
}

HashKey drawKey() {
  // Where the system has no random numbers, the clock and an address have to do.
  HashKey key;
  key.low = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  key.high = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&key));
  try {
    std::random_device random;
    key.low ^= std::uint64_t{random()} << 32 | random();
    key.high ^= std::uint64_t{random()} << 32 | random();
  } catch (const std::exception&) {
    return key;
  }
  return key;
}

}  // namespace

const HashKey& processHashKey() {
  static const HashKey key = drawKey();
  return key;
}

std::uint64_t sipHash13(std::string_view text, const HashKey& key) {
  return sipHash<1, 3>(text, key);
}

std::uint64_t sipHash24(std::string_view text, const HashKey& key) {
  return sipHash<2, 4>(text, key);
}

}  // namespace quillon::base

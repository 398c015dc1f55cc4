#include "base/byte_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillon::base {

#ifdef __SSE2__

std::size_t countByte(std::string_view bytes, char wanted) {
  constexpr std::size_t kLanes = 16;
  constexpr std::size_t kRounds = 255;
  const __m128i all = _mm_set1_epi8(wanted);
  const auto matches = [&](std::size_t from) {
    const auto* const block = reinterpret_cast<const __m128i*>(bytes.data() + from);
    return _mm_cmpeq_epi8(_mm_loadu_si128(block), all);
  };
  std::size_t count = 0;
  std::size_t i = 0;
  while (bytes.size() - i >= kLanes) {
    // One-byte counters are summed up before they can overflow.
    std::size_t rounds = std::min((bytes.size() - i) / kLanes, kRounds);
    __m128i lanes = _mm_setzero_si128();
    for (; rounds >= 4; rounds -= 4, i += 4 * kLanes) {
      const __m128i two = _mm_add_epi8(matches(i), matches(i + kLanes));
      const __m128i others = _mm_add_epi8(matches(i + 2 * kLanes), matches(i + 3 * kLanes));
      lanes = _mm_sub_epi8(lanes, _mm_add_epi8(two, others));
    }
    for (; rounds > 0; --rounds, i += kLanes) {
      lanes = _mm_sub_epi8(lanes, matches(i));
    }
    const __m128i sums = _mm_sad_epu8(lanes, _mm_setzero_si128());
    count += static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) +
             static_cast<std::size_t>(_mm_extract_epi16(sums, 4));
  }
  if (i > 0 && i < bytes.size()) {
    // The last block once more, without what has been counted.
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(matches(bytes.size() - kLanes)));
    return count + static_cast<std::size_t>(std::popcount(bits >> (i + kLanes - bytes.size())));
  }
  for (; i < bytes.size(); ++i) count += static_cast<std::size_t>(bytes[i] == wanted);
  return count;
}

#else

std::size_t countByte(std::string_view bytes, char wanted) {
  // One-byte counters keep a whole vector busy; they are summed up before they can overflow.
  constexpr std::size_t kLanes = 64;
  constexpr std::size_t kRounds = 255;
  std::size_t count = 0;
  std::size_t i = 0;
  while (bytes.size() - i >= kLanes) {
    const std::size_t rounds = std::min((bytes.size() - i) / kLanes, kRounds);
    std::array<std::uint8_t, kLanes> lanes{};
    for (std::size_t round = 0; round < rounds; ++round, i += kLanes) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        lanes[lane] = static_cast<std::uint8_t>(lanes[lane] + (bytes[i + lane] == wanted));
      }
    }
    for (const std::uint8_t lane : lanes) count += lane;
  }
  for (; i < bytes.size(); ++i) count += static_cast<std::size_t>(bytes[i] == wanted);
  return count;
}

#endif

bool hasWithoutBefore(std::string_view bytes, char wanted, char before) {
  constexpr std::size_t kBlock = 4096;
  const char* const p = bytes.data();
  // In a drawing, the other character of a line end is nowhere or in each line.
  std::size_t i = bytes.find(wanted, 1);
  if (i == std::string_view::npos) return false;
#ifdef __SSE2__
  const __m128i allWanted = _mm_set1_epi8(wanted);
  const __m128i allBefore = _mm_set1_epi8(before);
  const auto wrong = [=](const char* at) {
    const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i previous = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at - 1));
    return _mm_andnot_si128(_mm_cmpeq_epi8(previous, allBefore), _mm_cmpeq_epi8(here, allWanted));
  };
  for (; bytes.size() - i >= 64; i += 64) {
    const __m128i first = _mm_or_si128(wrong(p + i), wrong(p + i + 16));
    const __m128i second = _mm_or_si128(wrong(p + i + 32), wrong(p + i + 48));
    if (_mm_movemask_epi8(_mm_or_si128(first, second)) != 0) return true;
  }
#endif
  for (; i < bytes.size(); i += kBlock) {
    const std::size_t stop = std::min(bytes.size(), i + kBlock);
    std::uint8_t found = 0;
    for (std::size_t j = i; j < stop; ++j) {
      found = static_cast<std::uint8_t>(found | ((p[j] == wanted) & (p[j - 1] != before)));
    }
    if (found != 0) return true;
  }
  return false;
}

#ifdef __SSE2__

namespace {

/// Finds the places where a text may start: its first and its last character together rule out most
/// others.
class TextStarts {
 public:
  static constexpr std::size_t kLanes = 16;

  TextStarts(std::string_view bytes, std::string_view text)
      : first_(bytes.data()),
        last_(bytes.data() + text.size() - 1),
        front_(_mm_set1_epi8(text.front())),
        back_(_mm_set1_epi8(text.back())) {}

  /// A mark in each of the next 16 bytes where it may start.
  __m128i at(std::size_t from) const {
    return _mm_and_si128(equal(first_ + from, front_), equal(last_ + from, back_));
  }

 private:
  static __m128i equal(const char* bytes, __m128i character) {
    const auto* const block = reinterpret_cast<const __m128i*>(bytes);
    return _mm_cmpeq_epi8(_mm_loadu_si128(block), character);
  }

  const char* first_;
  const char* last_;
  __m128i front_;
  __m128i back_;
};

unsigned bitsOf(__m128i marks) { return static_cast<unsigned>(_mm_movemask_epi8(marks)); }

}  // namespace

std::size_t findText(std::string_view bytes, std::string_view text) {
  constexpr std::size_t kLanes = TextStarts::kLanes;
  constexpr std::size_t kBlock = 4 * kLanes;
  if (bytes.size() < text.size()) return std::string_view::npos;
  const std::size_t starts = bytes.size() - text.size() + 1;
  const TextStarts marks(bytes, text);
  std::size_t i = 0;
  while (starts - i >= kLanes) {
    if (starts - i >= kBlock) {
      const __m128i low = _mm_or_si128(marks.at(i), marks.at(i + kLanes));
      const __m128i high = _mm_or_si128(marks.at(i + 2 * kLanes), marks.at(i + 3 * kLanes));
      if (bitsOf(_mm_or_si128(low, high)) == 0) {
        i += kBlock;
        continue;
      }
    }
    for (unsigned bits = bitsOf(marks.at(i)); bits != 0; bits &= bits - 1) {
      const std::size_t place = i + static_cast<std::size_t>(std::countr_zero(bits));
      if (bytes.compare(place, text.size(), text) == 0) return place;
    }
    i += kLanes;
  }
  return bytes.find(text, i);
}

#else

std::size_t findText(std::string_view bytes, std::string_view text) {
  // The first and the last character together rule out whole blocks.
  constexpr std::size_t kBlock = 2048;
  if (bytes.size() < text.size()) return std::string_view::npos;
  const std::size_t starts = bytes.size() - text.size() + 1;
  const char* const first = bytes.data();
  const char* const last = first + text.size() - 1;
  for (std::size_t i = 0; i < starts; i += kBlock) {
    const std::size_t stop = std::min(starts, i + kBlock);
    std::uint8_t candidates = 0;
    for (std::size_t j = i; j < stop; ++j) {
      const unsigned starting = first[j] == text.front() ? 1 : 0;
      const unsigned ending = last[j] == text.back() ? 1 : 0;
      candidates = static_cast<std::uint8_t>(candidates | (starting & ending));
    }
    if (candidates == 0) continue;
    const std::size_t found = bytes.substr(0, stop + text.size() - 1).find(text, i);
    if (found != std::string_view::npos) return found;
  }
  return std::string_view::npos;
}

#endif

}  // namespace quillon::base

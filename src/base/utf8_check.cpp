#include "base/utf8_check.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/byte_of.h"

namespace quillon::base {
namespace {

/// First non-ASCII byte of [p, end), checked eight bytes at a time.
const char* skipAscii(const char* p, const char* end) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  while (end - p >= 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    if ((word & kHighBits) != 0) break;
    p += 8;
  }
  while (p != end && byteOf(*p) < 0x80) ++p;
  return p;
}

/// Length in bytes of a character that starts with this byte.
std::size_t wantedLength(char first) {
  if (byteOf(first) >= 0xF0) return 4;
  if (byteOf(first) >= 0xE0) return 3;
  return byteOf(first) >= 0xC0 ? 2 : 1;
}

}  // namespace

std::size_t utf8SequenceLength(const char* p, const char* end) {
  const unsigned first = byteOf(*p);
  if (first < 0x80) return 1;
  const auto left = static_cast<std::size_t>(end - p);
  const auto isTail = [p](std::size_t i) { return (byteOf(p[i]) & 0xC0) == 0x80; };
  if (first >= 0xC2 && first <= 0xDF) return left > 1 && isTail(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    if (left < 3 || !isTail(1) || !isTail(2)) return 0;
    const unsigned second = byteOf(p[1]);
    const bool overlong = first == 0xE0 && second < 0xA0;
    const bool surrogate = first == 0xED && second >= 0xA0;
    return overlong || surrogate ? 0 : 3;
  }
  if (first >= 0xF0 && first <= 0xF4) {
    if (left < 4 || !isTail(1) || !isTail(2) || !isTail(3)) return 0;
    const unsigned second = byteOf(p[1]);
    const bool outside = (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90);
    return outside ? 0 : 4;
  }
  return 0;
}

void Utf8Check::add(std::string_view bytes) {
  while (valid_ && pending_ > 0 && !bytes.empty()) {
    start_[pending_++] = bytes.front();
    bytes.remove_prefix(1);
    if (pending_ < wantedLength(start_.front())) continue;
    valid_ = utf8SequenceLength(start_.data(), start_.data() + pending_) != 0;
    pending_ = 0;
  }
  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  while (valid_ && (p = skipAscii(p, end)) != end) {
    const std::size_t length = utf8SequenceLength(p, end);
    const auto left = static_cast<std::size_t>(end - p);
    if (length == 0 && left < wantedLength(*p)) {
      std::copy(p, end, start_.begin());
      pending_ = left;
      return;
    }
    valid_ = length != 0;
    p += length;
  }
}

}  // namespace quillon::base

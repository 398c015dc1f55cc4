#include "dxf/entity_store.h"

#include <bit>
#include <cstring>

#include "base/uninitialized.h"

namespace quillon::dxf {
namespace {

// An entity is a row of words: kind, filled slots and marks; its address in the text (two words);
// for kinds with a side record, its number and the length of the groups (two words); then each
// filled slot, as one word or, when it is far away or long, as kLongSlot and four words.
constexpr std::uint64_t kMostWords = 6 + 5 * kMaxSlots;
constexpr unsigned kKindBits = 8;
constexpr unsigned kMarksAt = kKindBits + kMaxSlots;
constexpr std::uint32_t kSlotMask = (1U << kMaxSlots) - 1;
constexpr unsigned kLengthBits = 12;
constexpr std::uint32_t kLengthMask = (1U << kLengthBits) - 1;
constexpr std::uint64_t kFarthest = (1U << (32 - kLengthBits)) - 1;
constexpr std::uint32_t kLongSlot = 0xFFFFFFFFU;
constexpr std::uint32_t kEndOfChunk = 0xFFFFFFFFU;

void putWide(std::uint32_t*& out, std::uint64_t value) {
  *out++ = static_cast<std::uint32_t>(value);
  *out++ = static_cast<std::uint32_t>(value >> 32);
}

std::uint64_t getWide(const std::uint32_t*& in) {
  const std::uint64_t low = *in++;
  return low | std::uint64_t{*in++} << 32;
}

constexpr std::size_t kAddressWords = 2;
static_assert(sizeof(const char*) <= kAddressWords * sizeof(std::uint32_t));

void putAddress(std::uint32_t*& out, const char* address) {
  std::memcpy(out, &address, sizeof(address));
  out += kAddressWords;
}

const char* getAddress(const std::uint32_t*& in) {
  const char* address = nullptr;
  std::memcpy(&address, in, sizeof(address));
  in += kAddressWords;
  return address;
}

}  // namespace

void EntityStore::append(EntityList& list, const DxfEntity& entity) {
  std::uint32_t* const start = reserve(kMostWords);
  if (list.count == 0) list.first = used_;
  ++list.count;
  std::uint32_t* out = start;
  *out++ = static_cast<std::uint32_t>(entity.kind) | entity.filled << kKindBits |
           entity.marks << kMarksAt;
  putAddress(out, entity.groups);
  if (hasSideRecord(entity.kind)) {
    *out++ = static_cast<std::uint32_t>(entity.sideIndex);
    putWide(out, static_cast<std::uint64_t>(entity.groupsEnd - entity.groups));
  }
  for (std::uint32_t rest = entity.filled; rest != 0; rest &= rest - 1) {
    const std::string_view value = entity.values[static_cast<std::size_t>(std::countr_zero(rest))];
    const auto distance = static_cast<std::uint64_t>(value.data() - entity.groups);
    if (distance < kFarthest && value.size() < kLengthMask) {
      *out++ = static_cast<std::uint32_t>(distance << kLengthBits | value.size());
    } else {
      *out++ = kLongSlot;
      putWide(out, distance);
      putWide(out, value.size());
    }
  }
  used_ += static_cast<std::size_t>(out - start);
}

std::uint32_t* EntityStore::reserve(std::size_t words) {
  const std::size_t inChunk = used_ % kChunkWords;
  const bool fits =
      !chunks_.empty() && used_ < chunks_.size() * kChunkWords && inChunk + words < kChunkWords;
  if (!fits) {
    if (used_ < chunks_.size() * kChunkWords) chunks_.back()[inChunk] = kEndOfChunk;
    used_ = chunks_.size() * kChunkWords;
    chunks_.push_back(base::uninitialized<std::uint32_t>(kChunkWords));
  }
  return chunks_.back().get() + used_ % kChunkWords;
}

bool EntityCursor::next(DxfEntity& entity) {
  if (left_ == 0) return false;
  --left_;
  const std::uint32_t* start = store_.at(place_);
  if (*start == kEndOfChunk) {
    place_ = (place_ / EntityStore::kChunkWords + 1) * EntityStore::kChunkWords;
    start = store_.at(place_);
  }
  const std::uint32_t* in = start;
  const std::uint32_t head = *in++;
  entity.kind = static_cast<EntityKind>(head & ((1U << kKindBits) - 1));
  entity.filled = head >> kKindBits & kSlotMask;
  entity.marks = head >> kMarksAt;
  entity.groups = getAddress(in);
  entity.sideIndex = 0;
  entity.split = {};
  if (hasSideRecord(entity.kind)) {
    entity.sideIndex = *in++;
    entity.groupsEnd = entity.groups + getWide(in);
  }
  for (std::uint32_t rest = entity.filled; rest != 0; rest &= rest - 1) {
    const std::uint32_t word = *in++;
    std::uint64_t distance = word >> kLengthBits;
    std::uint64_t length = word & kLengthMask;
    if (word == kLongSlot) {
      distance = getWide(in);
      length = getWide(in);
    }
    entity.values[static_cast<std::size_t>(std::countr_zero(rest))] = {
        entity.groups + distance, static_cast<std::size_t>(length)};
  }
  place_ += static_cast<std::size_t>(in - start);
  return true;
}

}  // namespace quillon::dxf

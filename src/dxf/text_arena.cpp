#include "dxf/text_arena.h"

#include <algorithm>

#include "base/uninitialized.h"

namespace quillon::dxf {

std::string_view TextArena::keep(std::string_view text, std::size_t margin, char fill) {
  char* const copy = reserve(text.size() + margin);
  std::copy(text.begin(), text.end(), copy);
  std::fill_n(copy + text.size(), margin, fill);
  return {copy, text.size()};
}

char* TextArena::beginText(std::size_t most) {
  char* const place = reserve(most);
  openEnd_ = place + most;
  return place;
}

void TextArena::endText(char* end) {
  // A long text has its own memory, of which the system hands out what is written.
  if (openEnd_ != free_) return;
  left_ += static_cast<std::size_t>(free_ - end);
  free_ = end;
}

char* TextArena::reserve(std::size_t size) {
  if (size > kChunk / 4) {
    // A long text gets its own memory, so that the current chunk stays in use.
    return chunks_.emplace_back(base::uninitialized<char>(size)).get();
  }
  if (size > left_) {
    free_ = chunks_.emplace_back(base::uninitialized<char>(kChunk)).get();
    left_ = kChunk;
  }
  char* const place = free_;
  free_ += size;
  left_ -= size;
  return place;
}

}  // namespace quillon::dxf

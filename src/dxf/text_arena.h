#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace quillon::dxf {

/// Keeps copies of texts, many of them in one piece of memory; views stay valid for its lifetime.
class TextArena {
 public:
  std::string_view keep(std::string_view text) { return keep(text, 0, '\0'); }
  /// `margin` bytes of `fill` follow the text.
  std::string_view keep(std::string_view text, std::size_t margin, char fill);

 private:
  static constexpr std::size_t kChunk = std::size_t{64} << 10;

  char* reserve(std::size_t size);

  std::vector<std::unique_ptr<char[]>> chunks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace quillon::dxf

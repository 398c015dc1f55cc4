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

  /// Room for a text that will have at most `most` bytes, and is complete with endText(), which
  /// gives back what is left behind its end unless something else was kept meanwhile.
  char* beginText(std::size_t most);
  void endText(char* end);

 private:
  static constexpr std::size_t kChunk = std::size_t{64} << 10;

  char* reserve(std::size_t size);

  std::vector<std::unique_ptr<char[]>> chunks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
  const char* openEnd_ = nullptr;  ///< of the room for the text that was begun last
};

}  // namespace quillon::dxf

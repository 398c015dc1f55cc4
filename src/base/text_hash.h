#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::base {

/// What a keyed hash depends on besides the text.
struct HashKey {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
};

/// The key of this process, drawn at random once.
const HashKey& processHashKey();

/// SipHash-1-3 of a text.
std::uint64_t sipHash13(std::string_view text, const HashKey& key);
/// SipHash-2-4: slower, but with published test vectors that check the code shared with 1-3.
std::uint64_t sipHash24(std::string_view text, const HashKey& key);

/// Hashes the keys of every table of texts from a drawing or another file, so that nobody can craft
/// texts that fall into one bucket. Nothing may depend on the resulting order.
class TextHash {
 public:
  using is_transparent = void;

  TextHash() : key_(processHashKey()) {}

  std::size_t operator()(std::string_view text) const {
    return static_cast<std::size_t>(sipHash13(text, key_));
  }

 private:
  HashKey key_;  // a copy, so that a look-up calls nothing
};

}  // namespace quillon::base

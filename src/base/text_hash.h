#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::base {

/// What a keyed hash depends on besides the text.
struct HashKey {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
};

/// The key of this process: random, drawn once.
const HashKey& processHashKey();

/// SipHash-1-3 of a text.
std::uint64_t sipHash13(std::string_view text, const HashKey& key);
/// SipHash-2-4, slower and with published values to check the common parts against.
std::uint64_t sipHash24(std::string_view text, const HashKey& key);

/// Hashes the keys of every table that holds texts of a drawing or of another file, so that nobody
/// can choose texts that fall into one bucket. Nothing may depend on the order that it gives.
class TextHash {
 public:
  using is_transparent = void;

  TextHash() : key_(processHashKey()) {}

  std::size_t operator()(std::string_view text) const {
    return static_cast<std::size_t>(sipHash13(text, key_));
  }

 private:
  HashKey key_;  // a copy, so that a look-up asks nobody
};

}  // namespace quillon::base

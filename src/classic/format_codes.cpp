#include "classic/format_codes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_hash.h"

namespace quillon::classic {
namespace {

/// True when every code has just its leading backslash: each is then removed where it is found, and
/// removing its other occurrences at once makes no difference.
bool haveOneBackslashEach(std::string_view text) {
  bool open = false;
  for (const char c : text.substr(0, text.rfind(';') + 1)) {
    if (c == '\\' && open) return false;
    if (c == '\\' || c == ';') open = c == '\\';
  }
  return true;
}

std::string stripSimpleCodes(std::string_view text) {
  std::string out;
  std::size_t from = 0;
  for (;;) {
    const std::size_t backslash = text.find('\\', from);
    const std::size_t semicolon =
        backslash == std::string_view::npos ? backslash : text.find(';', backslash);
    if (semicolon == std::string_view::npos) return out.append(text.substr(from));
    out.append(text.substr(from, backslash - from));
    from = semicolon + 1;
  }
}

/// Hashes of all suffixes of a text that grows and shrinks at its end: polynomials modulo a prime,
/// evaluated at a secret point.
class PieceHashes {
 public:
  PieceHashes() : base_(base::processHashKey().low % (kPrime - 256) + 256) {}

  void append(std::string_view text) {
    for (const char c : text) {
      sums_.push_back(reduce(multiply(sums_.back(), base_) + static_cast<unsigned char>(c) + 1));
      if (powers_.size() < sums_.size()) powers_.push_back(multiply(powers_.back(), base_));
    }
  }
  void shorten(std::size_t size) { sums_.resize(size + 1); }

  /// The hash of the suffix from `start` on.
  std::uint64_t from(std::size_t start) const {
    const std::uint64_t before = multiply(sums_[start], powers_[sums_.size() - 1 - start]);
    return reduce(sums_.back() + kPrime - before);
  }

 private:
  static constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61) - 1;

  static std::uint64_t reduce(std::uint64_t value) {
    value = (value & kPrime) + (value >> 61);
    return value >= kPrime ? value - kPrime : value;
  }
  /// The product via halves of 31 and 30 bits, so that nothing overflows.
  static std::uint64_t multiply(std::uint64_t a, std::uint64_t b) {
    constexpr std::uint64_t kLow31 = (std::uint64_t{1} << 31) - 1;
    constexpr std::uint64_t kLow30 = (std::uint64_t{1} << 30) - 1;
    const std::uint64_t middle = (a & kLow31) * (b >> 31) + (a >> 31) * (b & kLow31);
    return reduce((a >> 31) * (b >> 31) * 2 + (middle >> 30) + ((middle & kLow30) << 31) +
                  (a & kLow31) * (b & kLow31));
  }

  std::uint64_t base_;
  std::vector<std::uint64_t> sums_{0};
  std::vector<std::uint64_t> powers_{1};
};

/// Removes codes that contain backslashes in one pass over the text.
///
/// The rule is: take the first code, remove it throughout the text, repeat. Here, at each
/// semicolon, we find which of the codes removed so far would have been removed first; if none, the
/// text before the semicolon is the next code. The text before a removed code joins the text after
/// it, but only for codes removed later than that one; a seam records which.
class NestedCodes {
 public:
  explicit NestedCodes(rules::CancelPoll& cancelled) : cancelled_(cancelled) {}

  /// False when cancelled.
  bool strip(std::string& text) {
    const std::string_view in = text;
    std::size_t from = 0;
    for (std::size_t stop = in.find(';'); stop != std::string_view::npos;
         stop = in.find(';', from)) {
      if (cancelled_()) return false;
      append(in.substr(from, stop + 1 - from));
      from = stop + 1;
      if (!open_.empty()) closeCode();
    }
    out_.append(open_).append(in.substr(from));
    text = std::move(out_);
    return true;
  }

 private:
  struct Seam {
    std::size_t at;      ///< offset in open_ where two parts meet
    std::uint32_t code;  ///< number of the code removed here
  };
  struct Code {
    std::size_t start;  ///< in codeTexts_
    std::size_t length;
    std::vector<std::uint32_t> numbers;  ///< from 1, in order of removal
  };

  /// Text with no backslash before it is final.
  void append(std::string_view text) {
    if (open_.empty()) {
      const std::size_t backslash = std::min(text.find('\\'), text.size());
      out_.append(text.substr(0, backslash));
      text.remove_prefix(backslash);
    }
    open_.append(text);
    hashes_.append(text);
  }

  /// The open text ends with a semicolon: removes the code that matches first, or registers a new
  /// one.
  void closeCode() {
    std::uint32_t first = count_ + 1;
    std::size_t removed = open_.size();
    std::uint32_t above = 0;  // up to this number, codes met a text still in two parts
    std::size_t seam = seams_.size();
    for (const std::size_t length : lengths_) {
      if (length > open_.size()) break;
      const std::size_t start = open_.size() - length;
      while (seam > 0 && seams_[seam - 1].at > start) above = std::max(above, seams_[--seam].code);
      if (above + 1 >= first) break;
      if (open_[start] != '\\') continue;
      const std::uint32_t number = findNumber(start, above, first);
      if (number == 0) continue;
      first = number;
      removed = length;
    }
    if (first > count_) addCode();
    shorten(open_.size() - removed, first);
  }

  /// The smallest number, between two bounds, of the code that starts here; 0 for none.
  std::uint32_t findNumber(std::size_t start, std::uint32_t above, std::uint32_t below) const {
    const auto found = codesByHash_.find(hashes_.from(start));
    if (found == codesByHash_.end()) return 0;
    for (const std::size_t index : found->second) {
      const Code& code = codes_[index];
      const auto number = std::upper_bound(code.numbers.begin(), code.numbers.end(), above);
      if (number == code.numbers.end() || *number >= below || !isAt(code, start)) continue;
      return *number;
    }
    return 0;
  }

  bool isAt(const Code& code, std::size_t start) const {
    return open_.size() - start == code.length &&
           open_.compare(start, code.length, codeTexts_, code.start, code.length) == 0;
  }

  void addCode() {
    ++count_;
    std::vector<std::size_t>& sameHash = codesByHash_[hashes_.from(0)];
    for (const std::size_t index : sameHash) {
      if (!isAt(codes_[index], 0)) continue;
      codes_[index].numbers.push_back(count_);
      return;
    }
    sameHash.push_back(codes_.size());
    codes_.push_back({codeTexts_.size(), open_.size(), {count_}});
    codeTexts_.append(open_);
    const auto place = std::lower_bound(lengths_.begin(), lengths_.end(), open_.size());
    if (place == lengths_.end() || *place != open_.size()) lengths_.insert(place, open_.size());
  }

  void shorten(std::size_t size, std::uint32_t code) {
    open_.resize(size);
    hashes_.shorten(size);
    while (!seams_.empty() && seams_.back().at > size) seams_.pop_back();
    if (size == 0) {
      seams_.clear();
    } else if (!seams_.empty() && seams_.back().at == size) {
      seams_.back().code = std::max(seams_.back().code, code);
    } else {
      seams_.push_back({size, code});
    }
  }

  rules::CancelPoll& cancelled_;
  std::string out_;
  std::string open_;  ///< from the first backslash that may still start a code
  PieceHashes hashes_;
  std::vector<Seam> seams_;
  std::uint32_t count_ = 0;  ///< codes removed so far
  std::string codeTexts_;
  std::vector<Code> codes_;
  std::vector<std::size_t> lengths_;  ///< of all codes, ascending
  std::unordered_map<std::uint64_t, std::vector<std::size_t>> codesByHash_;
};

}  // namespace

bool stripFormatCodes(std::string& text, rules::CancelPoll& cancelled) {
  if (text.find('\\') == std::string::npos) return true;
  if (!haveOneBackslashEach(text)) return NestedCodes(cancelled).strip(text);
  text = stripSimpleCodes(text);
  return true;
}

}  // namespace quillon::classic

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "dxf/text_source.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillon::dxf {

/// A range of whole lines of a drawing.
struct LineRange {
  const char* begin = nullptr;
  const char* end = nullptr;
};

/// Splits a range of a drawing's text into lines. A margin of line ends must be readable after it.
/// At the end it keeps returning empty lines.
///
/// Line ends are found for 64 bytes at once and kept as bits, so that finding one line's end does
/// not have to wait for the previous one.
///
/// All of it is put in line, even where a file is compiled to be small: the linker keeps one copy
/// of a function, and it may be that file's.
class LineCursor {
 public:
  LineCursor(LineRange range, const LineEnds& ends)
      : position_(range.begin),
        end_(range.end),
        eol_(ends.eolChar),
        other_(ends.eolOther),
        block_(range.begin) {
    seek(range.begin);
  }

  bool atEnd() const { return position_ >= end_; }
  const char* position() const { return position_ < end_ ? position_ : end_; }
  char eol() const { return eol_; }

  /// Whether at least so many characters are left.
  bool hasLeft(std::size_t count) const { return position_ + count <= end_; }

  /// Continues at the start of another line of the range, or after the last one.
  void seek(const char* position) {
    position_ = position;
    block_ = position;
    lineEnds_ = atEnd() ? 0 : findLineEnds(position);
  }

  /// Where the next line starts, with what the line end before it left; not to be called at the
  /// end.
  [[gnu::always_inline]] const char* line() const { return position_; }
  /// Where the text of the next line starts; not to be called at the end.
  [[gnu::always_inline]] const char* text() const { return textAt(position_); }

  /// The next line, without consuming it; not to be called at the end.
  [[gnu::always_inline]] std::string_view peek() {
    while (lineEnds_ == 0) nextBlock();
    return upToLineEnd(text());
  }

  /// Consumes the line returned by peek().
  [[gnu::always_inline]] void take(std::string_view line) {
    skipLine(line.data() + line.size() + 1);
  }

  /// Consumes the next line, after which another starts at `next`.
  [[gnu::always_inline]] void skipLine(const char* next) {
    while (lineEnds_ == 0) nextBlock();
    lineEnds_ &= lineEnds_ - 1;
    position_ = next;
  }

  /// Consumes the next line, after which another starts at `next`, and that one too, which it
  /// returns. Only the bits tell where the lines after it are, so that those can be found while
  /// this one is still being loaded.
  [[gnu::always_inline]] std::string_view takeAfter(const char* next) {
    bool isBehind = lineEnds_ != 0;  // the end of the first line
    lineEnds_ &= lineEnds_ - 1;
    while (lineEnds_ == 0) {
      nextBlock();
      if (isBehind || lineEnds_ == 0) continue;
      isBehind = true;
      lineEnds_ &= lineEnds_ - 1;
    }
    const std::string_view line = upToLineEnd(textAt(next));
    lineEnds_ &= lineEnds_ - 1;
    position_ = line.data() + line.size() + 1;
    return line;
  }

  /// The next line without its line end, untrimmed.
  std::string_view next() {
    if (atEnd()) return {};
    const std::string_view line = peek();
    take(line);
    return line;
  }

 private:
  static constexpr std::size_t kBlock = 64;
  static_assert(TextSource::kMargin >= 2 * kBlock, "a block may start at the end of a text");

  [[gnu::always_inline]] const char* textAt(const char* line) const {
    return line + (*line == other_ ? 1 : 0);
  }

  /// A line of which the end is the first one known.
  [[gnu::always_inline]] std::string_view upToLineEnd(const char* start) const {
    const char* const stop = block_ + static_cast<unsigned>(std::countr_zero(lineEnds_));
    return {start, static_cast<std::size_t>(stop - start)};
  }

  [[gnu::always_inline]] void nextBlock() {
    block_ += kBlock;
    lineEnds_ = findLineEnds(block_);
  }

  /// The end of the range counts as one, and there are none behind it.
  [[gnu::always_inline]] std::uint64_t findLineEnds(const char* p) const {
    const std::uint64_t bits = findCharacters(p);
    const std::ptrdiff_t left = end_ - p;
    if (left >= static_cast<std::ptrdiff_t>(kBlock)) return bits;
    const std::uint64_t end = std::uint64_t{1} << left;
    return (bits & (end - 1)) | end;
  }

  [[gnu::always_inline]] std::uint64_t findCharacters(const char* p) const {
    std::uint64_t bits = 0;
#ifdef __SSE2__
    const __m128i pattern = _mm_set1_epi8(eol_);
    for (unsigned i = 0; i < kBlock; i += 16) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
      const auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, pattern)));
      bits |= std::uint64_t{hits} << i;
    }
#else
    for (unsigned i = 0; i < kBlock; ++i) bits |= std::uint64_t{p[i] == eol_} << i;
#endif
    return bits;
  }

  const char* position_;  ///< one past the end after a last line without a line end
  const char* end_;
  char eol_;
  char other_;
  const char* block_;
  std::uint64_t lineEnds_ = 0;  ///< of the 64 bytes at block_, those not yet consumed
};

}  // namespace quillon::dxf

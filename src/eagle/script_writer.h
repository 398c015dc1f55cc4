#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>

#include "base/byte_sink.h"
#include "eagle/drawing_area.h"
#include "eagle/number_format.h"
#include "geometry/box.h"

namespace quillon::eagle {

/// The bounding box of all points written so far; empty while minX > maxX.
struct Extents {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  bool empty() const { return minX > maxX; }
};

/// How points start: with "(", or with "(R", which EAGLE 4 and later take as relative to the mark.
enum class PointForm : std::uint8_t { Plain, FromMark };

/// Builds the script: collects text and points in a buffer that is written in large blocks, counts
/// commands, and tracks the range of coordinates.
class ScriptWriter {
 public:
  ScriptWriter(base::ByteSink& sink, const Coordinates& coordinates,
               PointForm form = PointForm::FromMark);
  ScriptWriter(const ScriptWriter&) = delete;
  ScriptWriter& operator=(const ScriptWriter&) = delete;

  ScriptWriter& text(std::string_view text) {
    if (text.size() > room()) return longText(text);
    std::memcpy(cursor_, text.data(), text.size());
    cursor_ += text.size();
    return *this;
  }
  /// The number as formatNumber writes it. Throws RunTimeError for one that is not finite.
  ScriptWriter& number(double value) {
    return value == 0.0 ? text("0.0000000") : numberNotZero(value);
  }
  /// The point with the offsets added, as "(x y)". A coordinate out of range is still written and
  /// sets rangeFlag and rangeWarning; to test a point without writing it, use area().
  ScriptWriter& formatPoint(double x, double y) {
    makeRoom(kPointRoom);
    cursor_ = putPoint(cursor_, x, y);
    return *this;
  }
  /// What most commands end with: points as formatPoint writes them, with blanks between them, and
  /// the end of the command, which is counted.
  template <typename... Points>
  void lastPoints(const Points&... points) {
    constexpr std::string_view kEnd = ";\r\n";
    makeRoom(sizeof...(points) * kPointRoom + kEnd.size());
    (putBeforeBlank(points), ...);
    --cursor_;
    std::memcpy(cursor_, kEnd.data(), kEnd.size());
    cursor_ += kEnd.size();
    finishCommand(1);
  }
  /// The point of a part whose content covers this rectangle of the drawing, which counts for the
  /// range and the extents instead of the point; before the offsets.
  ScriptWriter& pointOfPart(geometry::Point at, const geometry::Box& covers);
  /// Until endPart, points are those of a library part: the offsets are not added, and they are not
  /// among the extents.
  void beginPart();
  void endPart();
  /// Ends a line.
  ScriptWriter& endLine() { return text("\r\n"); }
  /// A complete line, counted as one command.
  void line(std::string_view text);

  /// "Layer  16 ;": a blank (or "-") before the number and a blank after it; kept so that scripts
  /// stay the same. Not counted.
  void writeLayer(int layer) {
    if (layerLine_.length == 0 || layer != layerOfLine_) makeLayerLine(layer);
    copy(layerLine_.text.data(), layerLine_.length);
  }

  /// Adds `lines` to the command count and ends the command; a range comment follows when one of
  /// its coordinates was out of range.
  void finishCommand(std::uint32_t lines) {
    count(lines);
    noteRange();
  }
  /// Adds to the command count only.
  void count(std::uint32_t lines) { commandCount_ += lines; }
  /// Writes the range comment when rangeFlag is set, and clears the flag.
  void noteRange() {
    if (rangeFlag_) writeRangeNote();
  }

  std::uint64_t commandCount() const { return commandCount_; }
  bool rangeWarning() const { return rangeWarning_; }
  const Extents& extents() const { return extents_; }
  const DrawingArea& area() const { return area_; }

  /// Passes everything to the sink.
  void flush();

 private:
  /// What most scripts fit in, and what is worth it for the others: each call of the system costs
  /// more than its own time.
  static constexpr std::size_t kFirstBuffer = std::size_t{64} << 10;
  static constexpr std::size_t kNextBuffer = std::size_t{512} << 10;
  static constexpr std::size_t kShortText = 32;

  /// Room for a point, with what surrounds its numbers.
  static constexpr std::size_t kPointRoom = 2 * kNumberRoom + 4;

  /// The point written last, offset included, with its text in the buffer. Mostly the next point
  /// has one of its coordinates in common, or both. They do not stand side by side: compilers would
  /// put them together through memory, and a processor waits there.
  struct WrittenPoint {
    double x = std::numeric_limits<double>::quiet_NaN();
    const char* text = nullptr;
    double y = std::numeric_limits<double>::quiet_NaN();
    std::size_t xLength = 0;  ///< up to and with the blank
    std::size_t length = 0;
    bool isUsual = false;  ///< inside the area, and not long
  };

  std::size_t room() const { return static_cast<std::size_t>(end_ - cursor_); }
  void makeRoom(std::size_t size) {
    if (room() < size) nextBuffer();
  }
  void nextBuffer();
  ScriptWriter& longText(std::string_view text);
  ScriptWriter& numberNotZero(double value);
  void writeRangeNote();
  void makeLayerLine(int layer);
  void putBeforeBlank(geometry::Point point) {
    cursor_ = putPoint(cursor_, point.x, point.y);
    *cursor_++ = ' ';
  }
  char* putPoint(char* out, double x, double y);
  char* putOtherPoint(char* out, double x, double y);
  char* open(char* out) const {
    out[0] = '(';
    out[1] = 'R';
    return out + opening_;
  }
  void notePoint(const WrittenPoint& point) {
    if (extends_) extend(point.x, point.y);
    last_ = point;
  }
  void noteOutside(double x, double y);
  void forgetPoint() { last_ = {}; }
  /// Writes a text that is rarely longer than kShortText by a copy of that size, whatever its
  /// length; what follows overwrites the rest. So many characters must be readable.
  void copy(const char* from, std::size_t length) {
    if (length > kShortText || room() < kShortText) {
      text({from, length});
      return;
    }
    std::memcpy(cursor_, from, kShortText);
    cursor_ += length;
  }
  void extend(double x, double y) {
    if (x < extents_.minX) extents_.minX = x;
    if (x > extents_.maxX) extents_.maxX = x;
    if (y < extents_.minY) extents_.minY = y;
    if (y > extents_.maxY) extents_.maxY = y;
  }

  base::ByteSink& sink_;
  DrawingArea area_;
  std::unique_ptr<char[]> buffer_;
  char* cursor_;
  char* end_;
  std::uint64_t commandCount_ = 0;
  bool rangeFlag_ = false;
  bool rangeWarning_ = false;
  Extents extents_;
  bool inPart_ = false;
  bool extends_ = true;  ///< points count for the extents
  WrittenPoint last_;
  std::size_t opening_;    ///< how many characters stand before a point
  geometry::Point shift_;  ///< added to points; never -0.0, so that no -0.0 comes out
  double limit_;           ///< of the area, but finite
  double usual_;           ///< magnitude up to which a coordinate is inside and usual
  struct {
    std::size_t length = 0;
    std::array<char, kShortText> text{};
  } layerLine_;  ///< the last layer line written
  int layerOfLine_ = 0;
};

}  // namespace quillon::eagle

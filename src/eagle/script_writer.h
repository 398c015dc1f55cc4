#pragma once

#include <array>
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
  ScriptWriter& formatPoint(double x, double y);
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

  /// The coordinate written last, offset included, with what surrounds it: "(R1.5 " or "-2.0)", in
  /// the buffer. Mostly the next point has one of its coordinates in common, or both.
  struct WrittenCoordinate {
    double value = std::numeric_limits<double>::quiet_NaN();
    const char* text = nullptr;
    std::size_t length = 0;
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
  void putX(double x);
  void putY(double y);
  inline void putAgain(const char* text, std::size_t length);
  void noteOutside(geometry::Point at);
  void forgetPoint();
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
  void extend(geometry::Point to);

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
  WrittenCoordinate x_;
  WrittenCoordinate y_;
  std::size_t opening_;  ///< how many characters stand before a point
  double limit_;         ///< of the area, but finite
  struct {
    std::size_t length = 0;
    std::array<char, kShortText> text{};
  } layerLine_;  ///< the last layer line written
  int layerOfLine_ = 0;
};

}  // namespace quillon::eagle

#include "eagle/script_writer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "base/run_time_error.h"
#include "base/uninitialized.h"

namespace quillon::eagle {
namespace {

[[noreturn]] void failNotFinite() { throw base::RunTimeError(base::Fault::BadNumber, {}); }

}  // namespace

ScriptWriter::ScriptWriter(base::ByteSink& sink, const Coordinates& coordinates, PointForm form)
    : sink_(sink),
      area_(coordinates),
      buffer_(base::uninitialized<char>(kFirstBuffer)),
      cursor_(buffer_.get()),
      end_(buffer_.get() + kFirstBuffer),
      opening_(form == PointForm::FromMark ? 2 : 1),
      limit_(std::min(area_.limit(), std::numeric_limits<double>::max())) {}

ScriptWriter& ScriptWriter::numberNotZero(double value) {
  if (!std::isfinite(value)) failNotFinite();
  makeRoom(kNumberRoom);
  cursor_ = formatNumber(value, cursor_);
  return *this;
}

/// Where there is room for a number: by pieces, which take no longer than finding out how many are
/// needed. What follows overwrites what is too much.
void ScriptWriter::putAgain(const char* text, std::size_t length) {
  constexpr std::size_t kPiece = 16;
  constexpr std::size_t kPieces = 3;
  static_assert(kPiece * kPieces <= kNumberRoom);
  char* const out = cursor_;
  cursor_ += length;
  if (length > kPiece * kPieces) {
    std::memcpy(out, text, length);
    return;
  }
  // A piece may reach into its own copy, but the text ends before that.
  for (std::size_t i = 0; i < kPieces; ++i) {
    std::memmove(out + i * kPiece, text + i * kPiece, kPiece);
  }
}

ScriptWriter& ScriptWriter::formatPoint(double x, double y) {
  const geometry::Point at = inPart_ ? geometry::Point{x, y} : area_.offset(x, y);
  const bool isInside = std::fabs(at.x) <= limit_ && std::fabs(at.y) <= limit_;
  if (!isInside) noteOutside(at);
  makeRoom(kPointRoom);
  // A wire often starts where the previous one ended.
  if (at.x == x_.value) {
    if (at.y == y_.value && x_.text + x_.length == y_.text) {
      putAgain(x_.text, x_.length + y_.length);
      return *this;
    }
    putAgain(x_.text, x_.length);
  } else {
    putX(at.x);
  }
  if (at.y == y_.value) {
    putAgain(y_.text, y_.length);
  } else {
    putY(at.y);
  }
  return *this;
}

void ScriptWriter::noteOutside(geometry::Point at) {
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) failNotFinite();
  rangeWarning_ = rangeFlag_ = true;
}

void ScriptWriter::putX(double x) {
  if (extends_) {
    if (x < extents_.minX) extents_.minX = x;
    if (x > extents_.maxX) extents_.maxX = x;
  }
  char* const start = cursor_;
  start[0] = '(';
  start[1] = 'R';
  char* out = formatNumber(x, start + opening_);
  *out++ = ' ';
  x_ = {x, start, static_cast<std::size_t>(out - start)};
  cursor_ = out;
}

void ScriptWriter::putY(double y) {
  if (extends_) {
    if (y < extents_.minY) extents_.minY = y;
    if (y > extents_.maxY) extents_.maxY = y;
  }
  char* const start = cursor_;
  char* out = formatNumber(y, start);
  *out++ = ')';
  y_ = {y, start, static_cast<std::size_t>(out - start)};
  cursor_ = out;
}

void ScriptWriter::forgetPoint() { x_.value = y_.value = std::numeric_limits<double>::quiet_NaN(); }

void ScriptWriter::extend(geometry::Point to) {
  if (to.x < extents_.minX) extents_.minX = to.x;
  if (to.x > extents_.maxX) extents_.maxX = to.x;
  if (to.y < extents_.minY) extents_.minY = to.y;
  if (to.y > extents_.maxY) extents_.maxY = to.y;
}

ScriptWriter& ScriptWriter::pointOfPart(geometry::Point at, const geometry::Box& covers) {
  extends_ = false;
  forgetPoint();
  formatPoint(at.x, at.y);
  forgetPoint();
  extends_ = true;
  for (const geometry::Point corner : {covers.low, covers.high}) {
    extend(area_.offset(corner.x, corner.y));
    if (area_.isOutside(corner.x, corner.y)) rangeWarning_ = rangeFlag_ = true;
  }
  return *this;
}

void ScriptWriter::beginPart() {
  inPart_ = true;
  extends_ = false;
  forgetPoint();
}

void ScriptWriter::endPart() {
  if (!inPart_) return;
  inPart_ = false;
  extends_ = true;
  forgetPoint();
}

void ScriptWriter::line(std::string_view content) {
  text(content).endLine();
  count(1);
}

void ScriptWriter::makeLayerLine(int layer) {
  const std::string line = (layer < 0 ? "Layer " : "Layer  ") + std::to_string(layer) + " ;\r\n";
  layerLine_.length = line.copy(layerLine_.text.data(), layerLine_.text.size());
  layerOfLine_ = layer;
}

void ScriptWriter::writeRangeNote() {
  rangeFlag_ = false;
  line("# In the previous command some coordinates are out of range!");
}

void ScriptWriter::flush() {
  if (cursor_ == buffer_.get()) return;
  sink_.write({buffer_.get(), static_cast<std::size_t>(cursor_ - buffer_.get())});
  cursor_ = buffer_.get();
  forgetPoint();
}

void ScriptWriter::nextBuffer() {
  flush();
  if (end_ != buffer_.get() + kFirstBuffer) return;
  buffer_ = base::uninitialized<char>(kNextBuffer);
  cursor_ = buffer_.get();
  end_ = cursor_ + kNextBuffer;
}

ScriptWriter& ScriptWriter::longText(std::string_view content) {
  nextBuffer();
  if (content.size() > room()) {
    sink_.write(content);
  } else {
    std::memcpy(cursor_, content.data(), content.size());
    cursor_ += content.size();
  }
  return *this;
}

}  // namespace quillon::eagle

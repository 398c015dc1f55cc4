#include "eagle/script_writer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "base/run_time_error.h"
#include "base/uninitialized.h"
#include "eagle/decimal_digits.h"

namespace quillon::eagle {
namespace {

constexpr std::size_t kPiece = 16;
constexpr std::size_t kShortPoint = 3 * kPiece;
static_assert(kShortPoint <= kNumberRoom);

[[noreturn]] void failNotFinite() { throw base::RunTimeError(base::Fault::BadNumber, {}); }

/// Copies a text of up to kShortPoint characters that has been written before, where there is room
/// for a number: by pieces, which take no longer than finding out how many are needed. What follows
/// overwrites what is too much.
char* putShortAgain(char* out, const char* text, std::size_t length) {
  // A piece may reach into its own copy, but the text ends before that.
  for (std::size_t i = 0; i < kShortPoint; i += kPiece) {
    std::memmove(out + i, text + i, kPiece);
  }
  return out + length;
}

char* putAgain(char* out, const char* text, std::size_t length) {
  if (length <= kShortPoint) return putShortAgain(out, text, length);
  std::memcpy(out, text, length);
  return out + length;
}

}  // namespace

ScriptWriter::ScriptWriter(base::ByteSink& sink, const Coordinates& coordinates, PointForm form)
    : sink_(sink),
      area_(coordinates),
      buffer_(base::uninitialized<char>(kFirstBuffer)),
      cursor_(buffer_.get()),
      end_(buffer_.get() + kFirstBuffer),
      opening_(form == PointForm::FromMark ? 2 : 1),
      shift_(area_.offset(0.0, 0.0)),
      limit_(std::min(area_.limit(), std::numeric_limits<double>::max())),
      usual_(std::min(limit_, kMostUsual)) {}

ScriptWriter& ScriptWriter::numberNotZero(double value) {
  if (!std::isfinite(value)) failNotFinite();
  makeRoom(kNumberRoom);
  cursor_ = formatNumber(value, cursor_);
  return *this;
}

/// Writes what most points are and calls nothing for it, so that it needs no stack.
char* ScriptWriter::putPoint(char* out, double atX, double atY) {
  const double x = atX + shift_.x;
  const double y = atY + shift_.y;
  // A wire often starts where the previous one ended.
  const bool hasX = x == last_.x;
  if (hasX && y == last_.y && last_.isUsual) {
    return putShortAgain(out, last_.text, last_.length);
  }
  const double width = std::fabs(x);
  const double height = std::fabs(y);
  if (hasX || y == last_.y || !(width <= usual_ && height <= usual_)) {
    return putOtherPoint(out, x, y);
  }
  const RoundedNumber across = roundUsual(width);
  const RoundedNumber up = roundUsual(height);
  if (!across.isRounded || !up.isRounded) return putOtherPoint(out, x, y);
  char* const yText = putUsualNumber(across.scaled, std::signbit(x), open(out)) + 1;
  yText[-1] = ' ';
  char* const end = putUsualNumber(up.scaled, std::signbit(y), yText) + 1;
  end[-1] = ')';
  const auto xLength = static_cast<std::size_t>(yText - out);
  notePoint({x, out, y, xLength, static_cast<std::size_t>(end - out), true});
  return end;
}

/// Writes any point, whose offset has been added.
char* ScriptWriter::putOtherPoint(char* out, double x, double y) {
  const bool inside = std::fabs(x) <= limit_ && std::fabs(y) <= limit_;
  if (!inside) noteOutside(x, y);
  char* const start = out;
  if (x == last_.x) {
    out = putAgain(out, last_.text, last_.xLength);
  } else {
    out = formatNumber(x, open(out));
    *out++ = ' ';
  }
  const auto xLength = static_cast<std::size_t>(out - start);
  if (y == last_.y) {
    out = putAgain(out, last_.text + last_.xLength, last_.length - last_.xLength);
  } else {
    out = formatNumber(y, out);
    *out++ = ')';
  }
  const auto length = static_cast<std::size_t>(out - start);
  notePoint({x, start, y, xLength, length, inside && length <= kShortPoint});
  return out;
}

void ScriptWriter::noteOutside(double x, double y) {
  if (!std::isfinite(x) || !std::isfinite(y)) failNotFinite();
  rangeWarning_ = rangeFlag_ = true;
}

ScriptWriter& ScriptWriter::pointOfPart(geometry::Point at, const geometry::Box& covers) {
  extends_ = false;
  forgetPoint();
  formatPoint(at.x, at.y);
  forgetPoint();
  extends_ = true;
  for (const geometry::Point corner : {covers.low, covers.high}) {
    extend(corner.x + shift_.x, corner.y + shift_.y);
    if (area_.isOutside(corner.x, corner.y)) rangeWarning_ = rangeFlag_ = true;
  }
  return *this;
}

void ScriptWriter::beginPart() {
  inPart_ = true;
  shift_ = {};
  extends_ = false;
  forgetPoint();
}

void ScriptWriter::endPart() {
  if (!inPart_) return;
  inPart_ = false;
  shift_ = area_.offset(0.0, 0.0);
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

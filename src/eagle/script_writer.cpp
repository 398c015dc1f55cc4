#include "eagle/script_writer.h"

#include <cmath>
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
      buffer_(base::uninitialized<char>(kBufferSize)),
      cursor_(buffer_.get()),
      end_(buffer_.get() + kBufferSize),
      opening_(form == PointForm::FromMark ? 2 : 1) {
  x_.text[0] = '(';
  x_.text[1] = 'R';
}

ScriptWriter& ScriptWriter::numberNotZero(double value) {
  if (!std::isfinite(value)) failNotFinite();
  if (room() < kNumberRoom) flush();
  cursor_ = formatNumber(value, cursor_);
  return *this;
}

ScriptWriter& ScriptWriter::formatPoint(double x, double y) {
  const geometry::Point at = inPart_ ? geometry::Point{x, y} : area_.offset(x, y);
  // A wire often starts where the previous one ended.
  if (at.x != x_.value || at.y != y_.value) {
    if (!std::isfinite(at.x) || !std::isfinite(at.y)) failNotFinite();
    if (at.x != x_.value) noteX(at.x);
    if (at.y != y_.value) noteY(at.y);
  }
  if (x_.outOfRange || y_.outOfRange) rangeWarning_ = rangeFlag_ = true;
  copy(x_.text.data(), x_.length);
  copy(y_.text.data(), y_.length);
  return *this;
}

void ScriptWriter::noteX(double x) {
  x_.value = x;
  x_.outOfRange = std::fabs(x) > area_.limit();
  if (extends_) {
    if (x < extents_.minX) extents_.minX = x;
    if (x > extents_.maxX) extents_.maxX = x;
  }
  char* out = formatNumber(x, x_.text.data() + opening_);
  *out++ = ' ';
  x_.length = static_cast<std::size_t>(out - x_.text.data());
}

void ScriptWriter::noteY(double y) {
  y_.value = y;
  y_.outOfRange = std::fabs(y) > area_.limit();
  if (extends_) {
    if (y < extents_.minY) extents_.minY = y;
    if (y > extents_.maxY) extents_.maxY = y;
  }
  char* out = formatNumber(y, y_.text.data());
  *out++ = ')';
  y_.length = static_cast<std::size_t>(out - y_.text.data());
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

void ScriptWriter::writeLayer(int layer) {
  if (layerLine_.length == 0 || layer != layerOfLine_) {
    const std::string line = (layer < 0 ? "Layer " : "Layer  ") + std::to_string(layer) + " ;\r\n";
    layerLine_.length = line.copy(layerLine_.text.data(), layerLine_.text.size());
    layerOfLine_ = layer;
  }
  copy(layerLine_.text.data(), layerLine_.length);
}

void ScriptWriter::writeRangeNote() {
  rangeFlag_ = false;
  line("# In the previous command some coordinates are out of range!");
}

void ScriptWriter::flush() {
  if (cursor_ == buffer_.get()) return;
  sink_.write({buffer_.get(), static_cast<std::size_t>(cursor_ - buffer_.get())});
  cursor_ = buffer_.get();
}

ScriptWriter& ScriptWriter::longText(std::string_view content) {
  flush();
  if (content.size() > room()) {
    sink_.write(content);
  } else {
    std::memcpy(cursor_, content.data(), content.size());
    cursor_ += content.size();
  }
  return *this;
}

}  // namespace quillon::eagle

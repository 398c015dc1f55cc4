#include "eagle/script_writer.h"

#include <cmath>

#include "base/run_time_error.h"
#include "base/uninitialized.h"

namespace quillon::eagle {
namespace {

[[noreturn]] void failNotFinite() { throw base::RunTimeError(base::Fault::BadNumber, {}); }

}  // namespace

ScriptWriter::ScriptWriter(base::ByteSink& sink, const Coordinates& coordinates, PointForm form)
    : sink_(sink),
      area_(coordinates),
      form_(form),
      buffer_(base::uninitialized<char>(kBufferSize)),
      cursor_(buffer_.get()),
      end_(buffer_.get() + kBufferSize) {}

ScriptWriter& ScriptWriter::number(double value) {
  if (!std::isfinite(value)) failNotFinite();
  if (room() < kNumberRoom) flush();
  cursor_ = formatNumber(value, cursor_);
  return *this;
}

ScriptWriter& ScriptWriter::formatPoint(double x, double y) {
  const geometry::Point at = inPart_ ? geometry::Point{x, y} : area_.offset(x, y);
  // A wire often starts where the previous one ended.
  if (at.x != lastPoint_.x || at.y != lastPoint_.y) writeLastPoint(at.x, at.y);
  if (lastPoint_.outOfRange) rangeWarning_ = rangeFlag_ = true;
  return text({lastPoint_.text.data(), lastPoint_.length});
}

void ScriptWriter::writeLastPoint(double x, double y) {
  if (!std::isfinite(x) || !std::isfinite(y)) failNotFinite();
  lastPoint_.outOfRange = std::fabs(x) > area_.limit() || std::fabs(y) > area_.limit();
  lastPoint_.x = x;
  lastPoint_.y = y;
  if (extends_) extend({x, y});
  char* out = lastPoint_.text.data();
  *out++ = '(';
  if (form_ == PointForm::FromMark) *out++ = 'R';
  out = formatNumber(x, out);
  *out++ = ' ';
  out = formatNumber(y, out);
  *out++ = ')';
  lastPoint_.length = static_cast<std::size_t>(out - lastPoint_.text.data());
}

void ScriptWriter::extend(geometry::Point to) {
  if (to.x < extents_.minX) extents_.minX = to.x;
  if (to.x > extents_.maxX) extents_.maxX = to.x;
  if (to.y < extents_.minY) extents_.minY = to.y;
  if (to.y > extents_.maxY) extents_.maxY = to.y;
}

ScriptWriter& ScriptWriter::pointOfPart(geometry::Point at, const geometry::Box& covers) {
  extends_ = false;
  lastPoint_ = {};
  formatPoint(at.x, at.y);
  lastPoint_ = {};
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
  lastPoint_ = {};
}

void ScriptWriter::endPart() {
  if (!inPart_) return;
  inPart_ = false;
  extends_ = true;
  lastPoint_ = {};
}

void ScriptWriter::line(std::string_view content) {
  text(content).endLine();
  count(1);
}

void ScriptWriter::writeLayer(int layer) {
  if (layerLine_.empty() || layer != layerOfLine_) {
    layerLine_ = layer < 0 ? "Layer " : "Layer  ";
    layerLine_ += std::to_string(layer) + " ;\r\n";
    layerOfLine_ = layer;
  }
  text(layerLine_);
}

void ScriptWriter::finishCommand(std::uint32_t lines) {
  count(lines);
  noteRange();
}

void ScriptWriter::noteRange() {
  if (!rangeFlag_) return;
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

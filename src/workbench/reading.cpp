#include "workbench/reading.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "eagle/place_recording.h"

namespace quillon::workbench {
namespace {

/// Takes down what is told, and answers what is asked so that the conversion ends.
class SilentHost final : public convert::ConversionHost {
 public:
  SilentHost(std::vector<convert::Message>& messages, const Cancelled& cancelled)
      : messages_(messages), cancelled_(cancelled) {}

  void setStatus(std::string_view) override {}
  void setProgress(bool, int) override {}
  void processEvents() override {}
  bool cancelRequested() override { return cancelled_(); }
  /// A walk that only a cancel can end ends by itself.
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message&) override { return false; }
  void tell(const convert::Message& message) override { messages_.push_back(message); }
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

 private:
  std::vector<convert::Message>& messages_;
  const Cancelled& cancelled_;
};

/// Converts into a recording, which is the result's.
Reading record(convert::HeldDrawing& drawing, const convert::ConversionJob& job,
               convert::Surroundings surroundings, const Cancelled& cancelled) {
  Reading reading;
  reading.job = job;
  reading.job.report = false;
  surroundings.held = &drawing;
  surroundings.discardScript = true;
  surroundings.record = true;
  surroundings.refuseWithoutSections = true;
  surroundings.frame.create = false;
  SilentHost host(reading.messages, cancelled);
  reading.result = convert::convertDXF(reading.job, host, surroundings);
  return reading;
}

/// Makes the scene of the recording.
void draw(Reading& reading, const Cancelled& cancelled) {
  const std::optional<eagle::Recording> recording = std::exchange(reading.result.recording, {});
  if (recording && !cancelled())
    reading.scene = preview::makeScene(*recording, geometry::StopCheck(cancelled));
}

/// The whole drawing in its own unit.
convert::ConversionJob wholeDrawing(const convert::ConversionJob& shown) {
  convert::ConversionJob job;
  job.rules = convert::Rules::Exact;
  job.targetKind = convert::kPackage;  // texts may turn freely there
  job.version = convert::kEagle6;
  job.unit = base::Unit::Mm;
  job.defaultLayer = shown.defaultLayer;
  job.scale = shown.scale < 0.0 ? -1.0 : 1.0;  // turned as the result is; its size comes later
  if (shown.rules != convert::Rules::Exact) return job;
  job.drawingUnit = shown.drawingUnit;
  job.exact.space = shown.exact.space;
  // Widths that the user gives to lines without one are no difference.
  const double own = base::unitRecord(shown.unit).millimetres / std::fabs(shown.scale);
  job.exact.lineWidth = shown.exact.lineWidth * own;
  job.exact.fillWidth = shown.exact.fillWidth * own;
  return job;
}

/// Where a result shows the drawing, and how large: from the drawing's own numbers.
Frame placeOf(const Reading& result) {
  geometry::Point offsets{result.job.offsetX, result.job.offsetY};
  if (result.result.exact) offsets = offsets + result.result.exact->movedBy;
  return {unitTaken(result) * std::fabs(result.job.scale), offsets * result.frame.factor};
}

}  // namespace

double unitTaken(const Reading& reading) {
  if (reading.result.exact) return reading.result.exact->unit.millimetres;
  return base::unitRecord(reading.job.unit).millimetres;
}

Reading readResult(convert::HeldDrawing& drawing, const convert::ConversionJob& job,
                   const convert::Surroundings& surroundings, const Cancelled& cancelled) {
  Reading reading = record(drawing, job, surroundings, cancelled);
  reading.frame.factor = base::unitRecord(job.unit).millimetres;
  draw(reading, cancelled);
  return reading;
}

Reading readDrawing(convert::HeldDrawing& drawing, const Reading& result,
                    const convert::Surroundings& surroundings, const Cancelled& cancelled) {
  if (result.scene == nullptr) return {};
  Reading reading = record(drawing, wholeDrawing(result.job), surroundings, cancelled);
  reading.frame = placeOf(result);
  reading.frame.factor /= unitTaken(reading);
  if (reading.result.recording) {
    eagle::placeRecording(*reading.result.recording, reading.frame.factor, reading.frame.shift);
  }
  draw(reading, cancelled);
  return reading;
}

bool haveSameDrawing(const Reading& a, const Reading& b) {
  return wholeDrawing(a.job) == wholeDrawing(b.job) && placeOf(a) == placeOf(b);
}

}  // namespace quillon::workbench

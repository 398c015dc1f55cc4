#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "convert/driver.h"
#include "convert/host.h"
#include "support/temp_folder.h"

namespace quillon::testing {

/// A host that records everything and answers as the test specifies.
class RecordingHost : public convert::ConversionHost {
 public:
  void setStatus(std::string_view text) override { statuses.emplace_back(text); }
  void setProgress(bool writing, int percent) override { progress.emplace_back(writing, percent); }
  void processEvents() override { ++events; }
  bool cancelRequested() override { return cancelWhen && cancelWhen(); }
  bool hasCancelButton() const override { return cancelButton; }
  bool ask(const convert::Message& question) override {
    questions.push_back(question);
    return answer;
  }
  void tell(const convert::Message& message) override { messages.push_back(message); }
  std::string chooseDxfFile(const convert::FileQuestion& question) override {
    fileQuestions.push_back(question);
    return chosenFile;
  }
  void showReport(std::string_view report) override { reports.emplace_back(report); }

  bool goOnPastLimit(const convert::Message& limit) override {
    limits.push_back(limit);
    return goesOn;
  }

  bool answer = false;
  bool goesOn = false;
  bool cancelButton = false;
  std::string chosenFile;
  std::function<bool()> cancelWhen;

  std::vector<std::string> statuses;
  std::vector<std::pair<bool, int>> progress;
  int events = 0;
  std::vector<convert::Message> questions;
  std::vector<convert::Message> messages;
  std::vector<convert::Message> limits;
  std::vector<convert::FileQuestion> fileQuestions;
  std::vector<std::string> reports;
};

inline files::LocalTime fixedReportTime() { return {"21.11.2026", "09:30:00"}; }

/// Surroundings that do not depend on the machine: English, the default frame from memory, a fixed
/// time, no throttling.
inline convert::Surroundings fixedSurroundings() {
  convert::Surroundings surroundings;
  surroundings.now = fixedReportTime;
  surroundings.updateInterval = {};
  return surroundings;
}

/// One conversion of a text in its own folder.
struct Conversion {
  explicit Conversion(std::string_view dxf, convert::ConversionJob settings = {},
                      const convert::Surroundings& surroundings = fixedSurroundings())
      : job(std::move(settings)) {
    job.dxfFile = folder.write("drawing.dxf", dxf);
    job.scriptFile = folder.file("drawing.scr");
    result = convert::convertDXF(job, host, surroundings);
    if (folder.has("drawing.scr")) script = folder.read("drawing.scr");
  }

  TempFolder folder;
  convert::ConversionJob job;
  RecordingHost host;
  convert::ConversionResult result;
  std::string script;
};

}  // namespace quillon::testing

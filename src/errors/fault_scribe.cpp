#include "errors/fault_scribe.h"

#include <cstdio>

#include "errors/protocol.h"
#include "files/local_time.h"
#include "files/output_file.h"

namespace quillon::errors {
namespace {

/// A program that fails again and again must not fill the disk.
constexpr std::size_t kLongestTrace = 262144;

/// Takes a change back at the end of a scope.
class WhileShowing {
 public:
  WhileShowing(bool& showing, CallStackList& list) : showing_(showing), list_(list) {
    showing_ = true;
    list_.setRecording(false);
  }
  ~WhileShowing() {
    showing_ = false;
    list_.setRecording(true);
  }
  WhileShowing(const WhileShowing&) = delete;
  WhileShowing& operator=(const WhileShowing&) = delete;

 private:
  bool& showing_;
  CallStackList& list_;
};

/// What to do without an answer: the mildest of what is allowed.
Continuation fallback(unsigned allowed) { return allowed == kMayEnd ? kEnd : kLeave; }

}  // namespace

std::string FaultReport::protocol() const {
  const ProtocolFields fields{
      caption,        programInfo,  {values[0], values[1], values[2], values[3]},
      date,           time,         system.platform,
      system.version, system.build, system.servicePack};
  return protocolText(fields, callStack);
}

FaultScribe::FaultScribe(ProgramIdentity program, const int& languageOffset, FaultView& view)
    : program_(std::move(program)),
      languageOffset_(languageOffset),
      view_(view),
      system_(systemInfo()) {}

FaultReport FaultScribe::makeReport(std::string_view module, std::string_view procedure,
                                    unsigned allowed) const {
  FaultReport report;
  report.fault = describe(std::current_exception(), texts::Texts(languageOffset_));
  if (report.fault.line == 0) report.fault.line = list_.newestLine();
  report.values = {std::to_string(report.fault.number), std::string(module), std::string(procedure),
                   std::to_string(report.fault.line)};
  report.caption = program_.title + std::string(kCaptionSuffix);
  report.programInfo = programInfo_;
  const files::LocalTime now = files::currentLocalTime();
  report.date = now.date;
  report.time = now.time;
  report.system = system_;
  report.callStack = list_;
  report.allowed = allowed;
  return report;
}

std::int16_t FaultScribe::OnError(std::string_view module, std::string_view procedure,
                                  unsigned allowed) noexcept {
  Continuation choice = fallback(allowed);
  try {
    const FaultReport report = makeReport(module, procedure, allowed);
    trace(report);
    if (!showing_) {
      const WhileShowing showing(showing_, list_);
      choice = view_.show(report);
    }
    if (choice == kEnd && !ending_) {
      ending_ = true;
      view_.endProgram();
    }
  } catch (...) {
    // An error of the reporter itself ends here; what was to be reported must not go unheard.
    std::fprintf(stderr, "%s: %.*s.%.*s\n", program_.fileName.c_str(),
                 static_cast<int>(module.size()), module.data(), static_cast<int>(procedure.size()),
                 procedure.data());
  }
  return choice;
}

/// Adds an error to the trace file, which begins anew with each run of the program.
void FaultScribe::trace(const FaultReport& report) {
  if (program_.folder.empty() || traced_.size() > kLongestTrace) return;
  traced_ += report.date + " " + report.time + "\t" + report.values[1] + "." + report.values[2] +
             ":" + report.values[3] + "\t" + report.values[0] + "\t" + report.fault.description +
             "\r\n";
  for (std::size_t i = 0; i < report.callStack.size(); ++i) {
    traced_ += "\t" + entryText(report.callStack.entry(i)) + "\r\n";
  }
  try {
    files::replaceFile(program_.traceFile(), traced_);
  } catch (const files::WriteError&) {  // NOLINT(bugprone-empty-catch)
    // The window shows the same; where no file can be written there is nothing to send.
  }
}

bool saveProtocol(const ProgramIdentity& program, std::string_view protocol) noexcept {
  if (program.folder.empty()) return false;
  try {
    files::replaceFile(program.protocolFile(), protocol);
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace quillon::errors

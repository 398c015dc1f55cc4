#include "app/unattended/unattended_run.h"

#include "app/console/interrupt.h"
#include "app/unattended/batch.h"
#include "base/quotable.h"
#include "convert/findings.h"
#include "convert/messages.h"
#include "convert/summary.h"
#include "errors/attempt.h"
#include "files/paths.h"
#include "texts/error_texts.h"

namespace quillon::unattended {

using texts::TextId;

using convert::ConversionResult;
using convert::Outcome;

namespace {

/// Ends the progress of a drawing at the end of a scope.
class ShownProgress {
 public:
  explicit ShownProgress(ProgressView& progress) : progress_(progress) {}
  ~ShownProgress() { progress_.end(); }
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;

 private:
  ProgressView& progress_;
};

}  // namespace

int UnattendedRun::run() {
  console::WaitBreaker breaker;
  const console::WaitBreaker::Part waits(breaker);
  if (!line_.splitPath.empty())
    warn(texts_(TextId::PathSplitBySlash, {base::quotable(line_.splitPath)}));
  UnattendedHost host(console_, progress_, texts_);
  for (const convert::Message& warning : settings::loadingWarnings(store_, line_, texts_)) {
    host.tell(warning);
  }
  if (!convert::isTarget(settings_.targetKind)) {
    host.tell(convert::Messages(texts_).targetMissing());
    return kSomeNotConverted;
  }
  return line_.autoRunExit ? convertBatch() : convertOne();
}

void UnattendedRun::warn(const std::string& text) {
  console_.printError("quillon: " + std::string(texts_(TextId::WarningTitle)) + ": " + text + "\n");
}

int UnattendedRun::convertOne() {
  const Outcome outcome = convertTrapped(false);
  if (cancelled_) return kCancelled;
  return outcome == Outcome::Converted ? kAllConverted : kSomeNotConverted;
}

/// Only a cancel ends the batch early.
int UnattendedRun::convertBatch() {
  errors::Procedure running(faults_.callStack(), "UnattendedRun", "convertBatch");
  running.parameter("dxfFile", settings_.dxfFile);
  const Batch batch = listBatch(settings_, store_);
  if (!batch.missing.item.empty()) {
    const auto& [folder, item] = batch.missing;
    console_.printError(
        "quillon: " + texts_(TextId::FolderMissing, {base::quotable(folder), item}) + "\n");
    return kSomeNotConverted;
  }
  if (batch.reason != 0) {
    const convert::Messages messages(texts_);
    const std::string reason = texts::reasonText(batch.reason, texts_);
    console_.printError("quillon: " + messages.unreadableText(batch.folder, reason) + "\n");
    return kSomeNotConverted;
  }
  for (const std::string& file : batch.leftOut)
    warn(texts_(TextId::NotRegularFile, {base::quotable(file)}));
  std::size_t converted = 0;
  std::size_t failed = 0;
  for (const BatchFile& file : batch.files) {
    if (!file.sameScriptAs.empty()) {
      console_.printError("quillon: " + std::string(texts_(TextId::FileErrorTitle)) + ": " +
                          texts_(TextId::ScriptOfOtherDrawing,
                                 {base::quotable(file.dxfFile), base::quotable(file.scriptFile),
                                  base::quotable(file.sameScriptAs)}) +
                          "\n");
      ++failed;
      continue;
    }
    settings_.dxfFile = file.dxfFile;
    settings_.scriptFile = file.scriptFile;
    ++(convertTrapped(true) == Outcome::Converted ? converted : failed);
    if (cancelled_) break;
  }
  console_.printError(
      texts_(TextId::BatchConverted, {std::to_string(converted), std::to_string(failed)}) + "\n");
  if (cancelled_) return kCancelled;
  return failed == 0 ? kAllConverted : kSomeNotConverted;
}

/// An unexpected error ends only the conversion of one drawing; the batch continues.
Outcome UnattendedRun::convertTrapped(bool listed) {
  Outcome outcome = Outcome::Ended;
  errors::attempt(
      faults_, "UnattendedRun", "convert", [&] { outcome = convert(listed); }, errors::kMayLeave);
  return outcome;
}

Outcome UnattendedRun::convert(bool listed) {
  faults_.CallStack(errors::parameterRecord("dxfFile", errors::rendered(settings_.dxfFile)));
  faults_.CallStack(errors::parameterRecord("scriptFile", errors::rendered(settings_.scriptFile)));
  convert::ConversionJob job = settings::jobOf(settings_, line_);
  job.literalPaths = listed;
  UnattendedHost host(console_, progress_, texts_);
  const ConversionResult result = convertShown(job, host);
  if (result.outcome == Outcome::Converted) {
    console_.printError(texts_(TextId::LinesWritten, {base::quotable(result.scriptFile),
                                                      std::to_string(result.commandCount)}) +
                        "\n");
    const std::string hidden = convert::hiddenText(result, texts_);
    if (!hidden.empty()) console_.printError(hidden + "\n");
    for (const std::string& line : convert::findingLines(result, texts_)) {
      console_.printError(line + "\n");
    }
  }
  if (result.outcome != Outcome::Ended) {
    for (const convert::Message& warning : convert::lossWarnings(result, texts_)) {
      host.tell(warning);
    }
  }
  return result.outcome;
}

/// Converts while the progress is shown, which ends however the conversion does.
ConversionResult UnattendedRun::convertShown(const convert::ConversionJob& job,
                                             UnattendedHost& host) {
  convert::Surroundings surroundings = settings::surroundingsOf(store_, texts_.languageOffset());
  surroundings.clearAbandoned = clearAbandoned_;
  clearAbandoned_ = false;  // the scripts of a batch share their folder
  progress_.begin(files::lastComponent(job.dxfFile), line_.autoRunExit);
  const ShownProgress shown(progress_);
  ConversionResult result = convert::convertDXF(job, host, surroundings);
  cancelled_ = result.outcome == Outcome::Cancelled || progress_.cancelRequested();
  return result;
}

}  // namespace quillon::unattended

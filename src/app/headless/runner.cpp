#include "app/headless/runner.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include "app/console/console.h"
#include "app/console/interrupt.h"
#include "app/console/terminal.h"
#include "app/headless/frame.h"
#include "app/headless/headless_host.h"
#include "app/headless/json_output.h"
#include "app/headless/memory.h"
#include "app/headless/ordered_output.h"
#include "app/headless/plan.h"
#include "app/headless/result_files.h"
#include "app/headless/worker.h"
#include "base/quotable.h"
#include "convert/driver.h"
#include "convert/findings.h"
#include "convert/layer_file.h"
#include "convert/messages.h"
#include "convert/summary.h"
#include "errors/attempt.h"
#include "errors/crash.h"
#include "errors/fault_printer.h"
#include "errors/program.h"
#include "files/file_system.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "files/program_folder.h"
#include "files/temporary_file.h"
#include "preview/svg.h"

namespace quillon::headless {

namespace fs = std::filesystem;

using console::interrupted;
using convert::ConversionResult;
using convert::Message;
using convert::Outcome;

namespace {

using texts::TextId;

/// What is wrong with the numbers in a layer file, or "". An unreadable file is reported by each
/// conversion.
std::string checkLayerFile(const std::string& path) {
  for (const convert::LayerRow& row : convert::readLayerRows(path)) {
    if (!convert::isForeignLayer(row)) continue;
    return path + ": the layer \"" + row.text + "\" of " + row.name +
           " is not from 1 to 255, or 999";
  }
  return {};
}

class Runner {
 public:
  Runner(const Options& options, Plan plan, console::Console& console, errors::FaultScribe& faults,
         const ConvertDrawing& convert, console::WaitBreaker& breaker)
      : options_(options),
        plan_(std::move(plan)),
        texts_(options.languageOffset),
        console_(console),
        faults_(faults),
        convert_(convert),
        breaker_(breaker),
        frame_(frameOf(options)),
        output_(console, plan_.size(), plan_.several) {}

  /// Called by a thread that is part of the breaker already.
  int run() {
    for (const std::string& folder : plan_.unreadableFolders) {
      console_.printError(problemLine(convert::MessageKind::Error,
                                      texts_(TextId::FolderNotListed, {base::quotable(folder)})));
    }
    for (const std::string& folder : plan_.emptyFolders) {
      console_.printError(
          problemLine(convert::MessageKind::Error,
                      texts_(TextId::FolderWithoutDrawings, {base::quotable(folder)})));
    }
    for (const std::string& file : plan_.leftOut) {
      console_.printError(problemLine(convert::MessageKind::Warning,
                                      texts_(TextId::NotRegularFile, {base::quotable(file)})));
    }
    clearAbandoned();
    prepareMemory();
    convertAll();
    if (skipped_ > 0 && !options_.quiet) {
      console_.printError(texts_(TextId::DrawingsSkipped, {std::to_string(skipped_)}) + "\n");
    }
    if (plan_.several && !options_.quiet) {
      console_.printError(texts_(TextId::DrawingsConverted,
                                 {std::to_string(converted_), std::to_string(plan_.size())}) +
                          "\n");
    }
    if (interrupted()) return kCancelled;
    if (output_.failed()) {
      console_.printError(problemLine(convert::MessageKind::Error,
                                      std::string(texts_(TextId::StandardOutputNotWritten))));
    }
    const bool all = converted_ + skipped_ == plan_.size() && plan_.emptyFolders.empty() &&
                     plan_.unreadableFolders.empty() && !output_.failed();
    return all ? kAllConverted : kSomeNotConverted;
  }

 private:
  void prepareMemory() const {
    if (plan_.size() != 1) {
      keepFreedMemory();
      return;
    }
    const PlannedConversion planned = plan_.conversion(0);
    if (planned.readStandardInput) return;
    std::error_code none;
    const std::uintmax_t size = fs::file_size(files::toPath(planned.job.dxfFile), none);
    if (!none) expectDrawing(size);
  }

  void convertAll() {
    const std::size_t workers =
        affordableWorkers(std::min<std::size_t>(options_.jobs, plan_.size()));
    {
      std::vector<Worker> threads;
      try {
        for (std::size_t i = 1; i < workers; ++i) threads.emplace_back([this] { workApart(); });
      } catch (const std::exception&) {
        // Fewer threads will do.
      }
      work();
    }
    output_.printRest();
  }

  void workApart() {
    const errors::CrashStack stack;
    const console::WaitBreaker::Part waits(breaker_);
    work();
  }

  /// Runs one conversion after another; none is started after Ctrl-C.
  void work() {
    for (std::size_t i = next_++; i < plan_.size() && !interrupted(); i = next_++) {
      Printed printed;
      PlannedConversion planned = plan_.conversion(i);
      planned.job.allGaps = options_.json;
      try {
        printed = convertOne(planned);
      } catch (...) {
        printed = reportFault(planned);
      }
      output_.print(i, std::move(printed));
    }
  }

  /// Files a protocol of the exception that is being handled: the program has failed, not the
  /// drawing.
  Printed reportFault(const PlannedConversion& planned) {
    {
      const std::lock_guard lock(faultMutex_);
      const std::uint64_t mark = faults_.callStack().mark();
      faults_.CallStack(errors::parameterRecord("dxfFile", errors::rendered(planned.job.dxfFile)));
      faults_.CallStack(
          errors::parameterRecord("scriptFile", errors::rendered(planned.job.scriptFile)));
      faults_.OnError("headless", "convert", errors::kMayLeave);
      faults_.callStack().backTo(mark);
    }
    const errors::FaultInfo fault = errors::describe(std::current_exception(), texts_);
    ConversionResult result;
    result.dxfFile = planned.job.dxfFile;
    const std::vector<Message> messages = {
        error(texts_(TextId::ProgramFaultInDrawing,
                     {base::quotable(planned.job.dxfFile), base::quotable(fault.description),
                      faults_.program().supportAddress}))};
    Printed printed;
    printed.error = problemLine(messages.front().kind, messages.front().detail);
    if (options_.json) printed.output = toJson(result, {}, messages);
    return printed;
  }

  /// Removes temporary files left by killed runs.
  void clearAbandoned() const {
    for (const fs::path::string_type& folder : plan_.resultFolders) {
      files::clearAbandonedFiles(folder);
    }
  }

  Printed convertOne(const PlannedConversion& planned) {
    if (options_.newer && planned.sameResultAs.empty() && isUpToDate(planned)) {
      ++skipped_;
      Printed printed;
      if (options_.json) {
        printed.output = skippedJson(planned.job.dxfFile, planned.job.scriptFile);
      }
      return printed;
    }
    HeadlessHost host(console_, texts_, plan_.several ? "" : base::quotable(planned.job.dxfFile));
    ConversionResult result;
    std::vector<Message> messages;
    Written written;
    const std::string obstacle = obstacleTo(planned);
    if (!obstacle.empty()) {
      result.dxfFile = planned.job.dxfFile;
      messages.push_back(error(obstacle));
    } else {
      if (planned.inSubfolder) makeFoldersOf(planned);
      result = convert_(planned.job, host, surroundingsOf(planned));
      messages = host.messages();
      if (result.outcome != Outcome::Ended) addLosses(result, messages);
      written = writeOthers(planned, result, messages);
      const bool files = !planned.readStandardInput && !planned.job.scriptFile.empty();
      if (result.outcome == Outcome::Cancelled && files) dateAsIncomplete(planned);
    }
    if (result.outcome == Outcome::Converted && !written.failed) ++converted_;
    Printed printed;
    for (const Message& message : messages) {
      printed.error += problemLine(message.kind, message.detail);
    }
    const bool hasResult = result.outcome != Outcome::Ended &&
                           (!result.scriptFile.empty() || !written.preview.empty());
    if (!options_.quiet && hasResult) printed.error += summary(result, written);
    if (options_.json) printed.output = toJson(result, written, messages);
    return printed;
  }

  convert::Surroundings surroundingsOf(const PlannedConversion& planned) const {
    convert::Surroundings surroundings;
    surroundings.languageOffset = options_.languageOffset;
    surroundings.frame = frame_;
    surroundings.refuseWithoutSections = true;
    surroundings.refuseUnreadableFiles = true;
    surroundings.readStandardInput = planned.readStandardInput;
    surroundings.writeStandardOutput = planned.writeStandardOutput;
    surroundings.discardScript = planned.discardScript;
    surroundings.record = !planned.previewFile.empty();
    surroundings.limits = options_.limits;
    surroundings.input = options_.input;
    surroundings.keepPartial = options_.keepPartial;
    surroundings.clearAbandoned = false;
    return surroundings;
  }

  /// Why a drawing cannot even be started, or "".
  std::string obstacleTo(const PlannedConversion& planned) const {
    if (!planned.sameResultAs.empty()) {
      return texts_(TextId::ScriptOfOtherDrawing,
                    {base::quotable(planned.job.dxfFile), base::quotable(planned.job.scriptFile),
                     base::quotable(planned.sameResultAs)});
    }
    const auto inTheWay = [this](const std::string& file) {
      return !file.empty() && !options_.job.overwriteScript &&
             files::isInTheWay(files::toPath(file));
    };
    const std::string& report = planned.reportFile;
    if (inTheWay(report)) return texts_(TextId::ReportFileExists, {base::quotable(report)});
    const std::string& preview = planned.previewFile;
    if (inTheWay(preview)) return texts_(TextId::FileExists, {base::quotable(preview)});
    return {};
  }

  /// The report and the picture, as far as they are wanted.
  Written writeOthers(const PlannedConversion& planned, const ConversionResult& result,
                      std::vector<Message>& messages) const {
    Written written;
    const auto write = [&](const std::string& file, std::string& name, const auto& put) {
      const fs::path target = files::toPath(file);
      try {
        files::OutputFile output(target);
        put(output);
        output.commit();
        name = file;
      } catch (const files::WriteError& reason) {
        messages.push_back(
            error(convert::Messages(texts_).unwritableText(file, target, reason.reason())));
        written.failed = true;
      }
    };
    if (!planned.reportFile.empty() && !result.report.empty()) {
      write(planned.reportFile, written.report,
            [&](base::ByteSink& sink) { sink.write(result.report); });
    }
    if (!planned.previewFile.empty() && result.recording) {
      write(planned.previewFile, written.preview, [&](base::ByteSink& sink) {
        preview::writeSvg(*result.recording, options_.previewTheme, sink);
      });
    }
    return written;
  }

  void addLosses(const ConversionResult& result, std::vector<Message>& messages) const {
    const std::vector<Message> losses = convert::lossWarnings(result, texts_);
    messages.insert(messages.end(), losses.begin(), losses.end());
  }

  static Message error(std::string detail) {
    Message message;
    message.detail = std::move(detail);
    return message;
  }

  std::string problemLine(convert::MessageKind kind, const std::string& text) const {
    const TextId word =
        kind == convert::MessageKind::Warning ? TextId::WordWarning : TextId::WordError;
    return "quillon-convert: " + std::string(texts_(word)) + ": " + text + "\n";
  }

  /// What was read, what was written, and what to type in EAGLE.
  std::string summary(const ConversionResult& result, const Written& written) const {
    std::string text =
        texts_(TextId::EntitiesConverted,
               {base::quotable(result.dxfFile), std::to_string(convert::entityCount(result)),
                std::to_string(result.fileLinesRead)}) +
        "\n";
    const std::string hidden = convert::hiddenText(result, texts_);
    if (!hidden.empty()) text += hidden + "\n";
    for (const std::string& line : convert::findingLines(result, texts_)) {
      text += line + "\n";
    }
    for (const std::string& line : convert::classicLossLines(result, texts_, "--rules exact")) {
      text += line + "\n";
    }
    if (!written.preview.empty()) {
      text += texts_(TextId::PreviewWritten, {base::quotable(written.preview)}) + "\n";
    }
    if (result.scriptFile.empty()) return text;
    text += texts_(TextId::LinesWritten,
                   {base::quotable(result.scriptFile), std::to_string(result.commandCount)}) +
            "\n";
    if (result.scriptFile == "-" || plan_.several) return text;
    const std::string argument = convert::scriptArgument(result);
    return argument.empty() ? text : text + texts_(TextId::TypeScriptInEagle, {argument}) + "\n";
  }

  const Options& options_;
  Plan plan_;
  texts::Texts texts_;
  console::Console& console_;
  errors::FaultScribe& faults_;
  const ConvertDrawing& convert_;
  console::WaitBreaker& breaker_;
  convert::FrameSource frame_;
  std::atomic<std::size_t> next_{0};
  std::atomic<std::size_t> converted_{0};
  std::atomic<std::size_t> skipped_{0};
  std::mutex faultMutex_;  ///< the reporter serves one thread at a time
  OrderedOutput output_;
};

}  // namespace

int run(const Options& options, console::Console& console, errors::FaultScribe& faults,
        const ConvertDrawing& convert) {
  const std::string wrongLayer = checkLayerFile(options.job.layerFile);
  if (!wrongLayer.empty()) return usageError(wrongLayer);
  console::WaitBreaker breaker;
  const console::WaitBreaker::Part waits(breaker);
  Plan plan = makePlan(options);
  if (interrupted()) return kCancelled;
  if (!plan.usageError.empty()) return usageError(plan.usageError);
  return Runner(options, std::move(plan), console, faults, convert, breaker).run();
}

int run(const Options& options) {
  console::catchInterrupt();
  console::Console console(!options.quiet && console::errorIsTerminal());
  const errors::ProgramIdentity program =
      errors::thisProgram("quillon-convert", files::programFolder());
  errors::FaultPrinter printer([&](std::string_view lines) { console.printError(lines); }, program,
                               options.languageOffset);
  errors::FaultScribe faults(program, options.languageOffset, printer);
  faults.SetProgInfo(errors::programVersion());
  const errors::CrashReporting crashes(faults,
                                       errors::crashNotice(program, options.languageOffset));
  int exitCode = kSomeNotConverted;
  errors::attempt(
      faults, "headless", "run",
      [&] { exitCode = run(options, console, faults, convert::convertDXF); }, errors::kMayLeave);
  return exitCode;
}

}  // namespace quillon::headless

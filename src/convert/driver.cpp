#include "convert/driver.h"

#include <cerrno>
#include <memory>
#include <new>
#include <optional>
#include <system_error>

#include "base/number_text.h"
#include "base/quotable.h"
#include "base/run_time_error.h"
#include "classic/translator.h"
#include "convert/block_library.h"
#include "convert/drawing_input.h"
#include "convert/layer_table.h"
#include "convert/messages.h"
#include "convert/report.h"
#include "convert/summary.h"
#include "convert/target_commands.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "eagle/script_commands.h"
#include "files/file_system.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "files/temporary_file.h"
#include "texts/error_texts.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

using texts::TextId;

/// Why a drawing is refused, in the order of the kinds after InputKind::Text.
constexpr texts::TextRow kRefusals = texts::textRow(TextId::DrawingEmpty, TextId::DrawingNotText);
static_assert(kRefusals.size() == static_cast<std::size_t>(InputKind::NoText));

/// Ends a run after its message; the host has been told.
struct EndOfRun {};

/// One conversion. The steps run in the order of the public function at the end.
class Conversion {
 public:
  Conversion(const ConversionJob& job, ConversionHost& host, const Surroundings& surroundings)
      : job_(job),
        host_(host),
        surroundings_(surroundings),
        texts_(surroundings.languageOffset),
        messages_(texts_),
        control_(host, texts_, surroundings.updateInterval) {
    job_.drawingName = base::trimBlanks(job.drawingName);
  }

  ConversionResult run() {
    try {
      prepare();
      convert();
    } catch (const EndOfRun&) {
      // The reason has been told.
    } catch (const NoStandardLayer& error) {
      control_.stop();
      output_.reset();
      host_.tell(messages_.standardLayerMissing(error.layer()));
    } catch (const base::RunTimeError& error) {
      fail(hasChanged() ? changedText() : texts::faultText(error, result_.dxfFile, texts_));
    } catch (const files::WriteError& error) {
      if (wasCancelled(error.reason())) return std::move(result_);
      fail(messages_.unwritableText(result_.scriptFile, scriptPath_, error.reason()));
    } catch (const base::ReadError& error) {
      if (wasCancelled(error.reason())) return std::move(result_);
      fail(messages_.unreadableText(result_.dxfFile, texts::reasonText(error.reason(), texts_)));
    } catch (const std::bad_alloc&) {
      fail(texts::outOfMemoryText(texts_));
    } catch (const std::exception& error) {
      fail(base::quotable(result_.dxfFile) + ": " + base::withoutControls(error.what()));
    }
    if (reader_ != nullptr) result_.fileLinesRead = reader_->fileLinesRead();
    return std::move(result_);
  }

 private:
  /// Takes the steps down, however the conversion ends.
  struct StepCount {
    const rules::CancelPoll& poll;
    std::uint64_t& steps;
    ~StepCount() { steps = poll.steps(); }
  };

  void prepare() {
    host_.setProgress(false, 0);
    host_.setProgress(true, 0);
    findDrawing();
    openDrawing();
    checkTarget();
    checkName();
    askForOverwriting();
    openScript();
    checkSettings();
    control_.setStatusText(TextId::StatusLayerFile);
    loadLayers();
    if (job_.scale == 0.0) leaveEmptyScript(messages_.scaleIsZero());
  }

  void convert() {
    openText();
    dxf::readDefinitions(*drawing_, *reader_);
    frame_ = loadFrameOrFail();
    eagle::ScriptWriter script(
        *output_, {job_.unit, job_.offsetX, job_.offsetY},
        job_.version == 0 ? eagle::PointForm::Plain : eagle::PointForm::FromMark);
    eagle::ScriptCommands commands(script);
    const classic::Settings settings = classicSettings();
    classic::Context context{commands, script.area(), settings, rules::CancelPoll(control_)};
    context.cancelled.setLimits(script, surroundings_.limits,
                                [this](rules::LimitKind kind) { return goesOnPast(kind); });
    LayerAssignment layers(layerTable_, job_.defaultLayer, drawing_->encoding);
    geometry::Placement placement;
    placement.scaleX = placement.scaleY = job_.scale;
    classic::Translator translator(context, *drawing_, layers, placement);
    TargetCommands target(commands, job_, frame_, *drawing_);
    BlockLibrary library(commands, target, translator, *drawing_, job_.targetKind);
    const StepCount counted{context.cancelled, result_.steps};
    try {
      convertEntities(translator, context.cancelled, target, library);
    } catch (base::RunTimeError& error) {
      if (error.line() == 0) error.setLine(lineAt(translator.currentPosition()));
      throw;
    }
    target.writeScriptTrailer();
    script.flush();
    collect(script, translator);
    if (job_.report) {
      result_.report =
          buildReport(job_, result_, *drawing_, layers, library, texts_, surroundings_.now());
    }
    output_->commit();
    finish();
  }

  /// Hands the entities on to the translator as they are read.
  class Entities : public dxf::EntitySink {
   public:
    Entities(rules::Translation& translation, rules::CancelPoll& cancelled,
             const dxf::TextSource& text, RunControl& control)
        : translation_(translation), cancelled_(cancelled), text_(text), control_(control) {}

    void takeEntity(dxf::DxfEntity& entity) override {
      // The bar of converting shows how far into the file the entity stands.
      if (pacer_.due()) {
        control_.setProgress(true, text_.offsetOf(entity.groups), text_.fileSize());
      }
      if (cancelled_.atLimit()) return control_.stop();
      translation_.takeEntity(entity);
    }

    void endOfEntities() override { translation_.endOfEntities(); }

   private:
    static constexpr std::uint32_t kEntitiesPerUpdate = 256;

    rules::Translation& translation_;
    rules::CancelPoll& cancelled_;
    const dxf::TextSource& text_;
    RunControl& control_;
    base::Pacer pacer_{kEntitiesPerUpdate};
  };

  /// The target's commands, the header, every entity in file order, and the remaining parts of the
  /// block library. Entities are converted while the rest of the drawing is still being read.
  void convertEntities(rules::Translation& translation, rules::CancelPoll& cancelled,
                       TargetCommands& target, BlockLibrary& library) {
    target.writeTargetOpen();
    target.writeScriptHeader();
    if (job_.blocks == kUsedBlocksAsParts || job_.blocks == kAllBlocksAsParts) {
      translation.setBlockParts(&library);
    }
    Entities entities(translation, cancelled, *text_, control_);
    dxf::readContents(*drawing_, *reader_, entities, !host_.hasCancelButton());
    result_.linesRead = reader_->linesRead();
    if (!control_.cancelled() && hasChanged()) {
      refuse(messages_.fileError(TextId::DrawingChangedMeanwhile, result_.dxfFile));
    }
    if (surroundings_.refuseWithoutSections && !drawing_->anySection && !control_.cancelled()) {
      refuse(messages_.fileError(TextId::DrawingWithoutSections, result_.dxfFile));
    }
    control_.setStatusText(TextId::StatusConverting);
    if (job_.blocks == kAllBlocksAsParts) writeRemainingParts(cancelled, library);
    if (limitReached_ && !surroundings_.keepPartial) {
      output_.reset();
      throw EndOfRun{};
    }
    if (!control_.cancelled()) control_.setProgress(true, 1, 1);
  }

  void writeRemainingParts(rules::CancelPoll& cancelled, BlockLibrary& library) {
    for (std::size_t i = 0; i < drawing_->blocks.size() && !control_.cancelRequested(); ++i) {
      if (cancelled.atLimit()) return;
      library.writeRemainingPart(i);
    }
  }

  /// The answer of the user, where there is one. Otherwise everything stops as after a cancel.
  bool goesOnPast(rules::LimitKind kind) {
    limit_ = kind;
    limitReached_ = surroundings_.keepPartial ||
                    !host_.goOnPastLimit(messages_.limit(result_.dxfFile, kind, mostOf(kind)));
    if (limitReached_) control_.stop();
    return !limitReached_;
  }
  std::uint64_t mostOf(rules::LimitKind kind) const {
    const rules::WorkLimits& limits = surroundings_.limits;
    return kind == rules::LimitKind::Lines ? limits.lines : limits.steps;
  }

  classic::Settings classicSettings() const {
    classic::Settings settings;
    settings.dotted = job_.dotted;
    settings.ellipses = job_.ellipses;
    settings.arcRangeCheck = job_.arcToLine;
    settings.poly = job_.poly;
    settings.polyWidth = job_.polyWidth;
    settings.angDir = drawing_->angDir;
    settings.ltScale = drawing_->ltScale;
    settings.pointSize = drawing_->pointSize;
    return settings;
  }

  void findDrawing() {
    if (surroundings_.readStandardInput) {
      result_.dxfFile = "-";
      return;
    }
    fs::path path =
        job_.literalPaths ? files::toPath(job_.dxfFile) : files::findExisting(job_.dxfFile);
    if (job_.dxfFile.empty() || !files::namesFile(path)) {
      const std::string chosen =
          host_.chooseDxfFile({std::string(texts_(TextId::DrawingDialogTitle)),
                               std::string(texts_(TextId::DrawingFiles)), "*.*", job_.dxfFile});
      if (!chosen.empty()) path = files::findExisting(job_.dxfFile = chosen);
    }
    result_.dxfFile = files::fromPath(path);
    if (!job_.dxfFile.empty() && files::namesFile(path)) return;
    const int reason = files::namesFolder(path) ? EISDIR : ENOENT;
    refuse(messages_.drawingMissing(job_.dxfFile, texts::reasonText(reason, texts_)));
  }

  void openDrawing() {
    try {
      const auto cancelled = [this] { return control_.cancelRequested(); };
      input_ = surroundings_.readStandardInput
                   ? DrawingInput::standardInput(cancelled)
                   : DrawingInput::openFile(files::toPath(result_.dxfFile), cancelled);
    } catch (const base::ReadError& error) {
      if (files::isBrokenWait(error.reason()) && control_.cancelRequested()) throw;
      refuse(messages_.fileUnreadable(result_.dxfFile, texts::reasonText(error.reason(), texts_)));
    }
    if (control_.cancelled()) return;  // what was read of it says nothing
    const InputKind kind = input_->kind();
    if (kind != InputKind::Text) {
      refuse(messages_.fileError(kRefusals[static_cast<std::size_t>(kind) - 1], result_.dxfFile));
    }
  }

  void checkTarget() {
    if (!isTarget(job_.targetKind)) refuse(messages_.targetMissing());
  }

  /// A name that could end its quotes, or the command that it stands in, is not written.
  void checkName() {
    const std::string& name = job_.drawingName;
    if (name.find_first_of("';") != std::string::npos || base::hasControlCharacter(name)) {
      refuse(messages_.fileError(TextId::DrawingNameUnusable, name));
    }
  }

  void askForOverwriting() {
    if (surroundings_.writeStandardOutput) {
      result_.scriptFile = "-";
      return;
    }
    if (job_.scriptBesideDrawing && !surroundings_.readStandardInput) {
      job_.scriptFile = files::scriptBeside(result_.dxfFile);
      job_.literalPaths = true;
    }
    scriptPath_ = job_.literalPaths ? files::toPath(job_.scriptFile)
                                    : files::findForCreation(job_.scriptFile);
    // What is in no folder goes by the name that the user gave it.
    result_.scriptFile =
        files::isInMissingFolder(scriptPath_) ? job_.scriptFile : files::fromPath(scriptPath_);
    if (!surroundings_.readStandardInput &&
        files::isSameFile(scriptPath_, files::toPath(result_.dxfFile))) {
      refuse(messages_.fileError(TextId::ScriptIsDrawing, result_.scriptFile));
    }
    if (job_.overwriteScript || !files::isInTheWay(scriptPath_)) return;
    if (!host_.ask(messages_.scriptExists(result_.scriptFile))) throw EndOfRun{};
  }

  /// A script that is there stays as it was when the settings cannot be converted.
  void openScript() {
    const bool convertible = job_.scale != 0.0 && !lacksName();
    if (!convertible && !surroundings_.writeStandardOutput && !files::isMissing(scriptPath_))
      return;
    if (surroundings_.clearAbandoned && !surroundings_.writeStandardOutput) {
      files::clearAbandonedFiles(files::folderOfTarget(scriptPath_));
    }
    output_ = surroundings_.writeStandardOutput ? std::make_unique<files::OutputFile>(stdout)
                                                : std::make_unique<files::OutputFile>(scriptPath_);
  }

  void checkSettings() {
    if (lacksName()) leaveEmptyScript(messages_.nameMissing());
  }

  bool lacksName() const { return job_.blocks != kDrawBlocks && job_.drawingName.empty(); }

  void loadLayers() {
    if (base::startsWithNumber(job_.defaultLayer) && isCutLayer(job_.defaultLayer)) {
      host_.tell(messages_.standardLayerCut(job_.defaultLayer));
    }
    const std::string& path = job_.layerFile;
    if (path.empty()) return;
    try {
      const std::vector<LayerRow> rows = readNamedLayerRows(path);
      for (const Message& warning : messages_.layerWarnings(path, rows)) host_.tell(warning);
      layerTable_ = layerTableOf(rows);
    } catch (const base::ReadError& error) {
      const std::string reason = texts::reasonText(error.reason(), texts_);
      if (surroundings_.refuseUnreadableFiles) refuse(messages_.fileUnreadable(path, reason));
      host_.tell(messages_.layersUnreadable(path, reason));
    }
  }

  void openText() {
    try {
      text_ = input_->text([this] { return control_.cancelRequested(); }, surroundings_.input);
    } catch (const dxf::InputTooLarge& reason) {
      refuse(messages_.tooLarge(result_.dxfFile, reason.most()));
    }
    drawing_ = std::make_unique<dxf::Drawing>();
    reader_ = std::make_unique<dxf::LineReader>(*text_, control_);
  }

  ScriptFrame loadFrameOrFail() {
    const std::string& path = surroundings_.frame.path;
    try {
      return loadFrame(surroundings_.frame);
    } catch (const files::WriteError& error) {
      fail(messages_.unwritableText(path, files::toPath(path), error.reason()));
    } catch (const base::ReadError& error) {
      const std::string reason = texts::reasonText(error.reason(), texts_);
      if (!surroundings_.refuseUnreadableFiles && !surroundings_.frame.mustExist) {
        host_.tell(messages_.frameUnreadable(path, reason));
        return parseFrame(defaultFrameText());
      }
      fail(messages_.unreadableText(path, reason));
    }
    throw EndOfRun{};
  }

  void collect(const eagle::ScriptWriter& script, const rules::Translation& translation) {
    result_.commandCount = script.commandCount();
    result_.rangeWarning = script.rangeWarning();
    result_.extents = script.extents();
    result_.counts = translation.counts();
    result_.leftOut = translation.leftOut();
    result_.dropped = drawing_->dropped;
    for (const auto& [name, count] : drawing_->unknownKinds) {
      result_.unknownKinds[base::toUtf8(name, drawing_->encoding)] += count;
    }
  }

  void finish() {
    result_.outcome = control_.cancelled() ? Outcome::Cancelled : Outcome::Converted;
    if (result_.outcome == Outcome::Cancelled) {
      host_.tell(limitReached_ ? messages_.partial(result_.dxfFile, limit_, mostOf(limit_))
                               : messages_.cancelled(result_.dxfFile, result_.linesRead));
    }
    if (result_.outcome == Outcome::Converted && nothingConverted(result_)) {
      host_.tell(messages_.nothingConverted(result_.dxfFile));
    }
    if (result_.rangeWarning) host_.tell(messages_.outOfRange(result_.dxfFile));
    if (job_.report) host_.showReport(result_.report);
  }

  /// Ends the run before anything is written.
  [[noreturn]] void refuse(const Message& message) {
    host_.tell(message);
    throw EndOfRun{};
  }

  /// Settings that cannot be converted are noticed after the script was opened: a new one stays
  /// empty.
  [[noreturn]] void leaveEmptyScript(const Message& message) {
    if (output_ != nullptr) output_->commit();
    host_.tell(message);
    throw EndOfRun{};
  }

  /// The error handler of the run.
  void fail(std::string detail) {
    control_.stop();
    output_.reset();
    host_.tell(messages_.scriptError(result_.scriptFile, std::move(detail)));
  }

  /// True when an error is a cancel: what the run waited for has been given up, and with it the
  /// script, as nobody may be there to read even its last lines.
  bool wasCancelled(int reason) {
    if (!files::isBrokenWait(reason) || !control_.cancelRequested()) return false;
    output_.reset();
    result_.outcome = Outcome::Cancelled;
    result_.scriptFile.clear();
    host_.tell(messages_.cancelled(result_.dxfFile, result_.linesRead));
    return true;
  }

  /// True when the drawing was written anew while it was read: what was read of it may be of two
  /// drawings.
  bool hasChanged() const { return text_ != nullptr && text_->hasChanged(); }
  std::string changedText() const {
    return messages_.fileError(TextId::DrawingChangedMeanwhile, result_.dxfFile).detail;
  }

  /// Number of the line in the file that holds a position of a block or of the present window.
  std::uint64_t lineAt(const char* position) const {
    const std::uint64_t line = drawing_->lineInBlocks(position);
    return line != 0 ? line : reader_->lineAt(position);
  }

  ConversionJob job_;
  ConversionHost& host_;
  const Surroundings& surroundings_;
  texts::Texts texts_;
  Messages messages_;
  RunControl control_;
  ConversionResult result_;
  std::optional<DrawingInput> input_;
  fs::path scriptPath_;
  std::unique_ptr<files::OutputFile> output_;
  rules::LimitKind limit_ = rules::LimitKind::Lines;  ///< the one that was reached
  bool limitReached_ = false;                         ///< and ended the conversion
  LayerTable layerTable_;
  ScriptFrame frame_;
  std::unique_ptr<dxf::TextSource> text_;
  std::unique_ptr<dxf::LineReader> reader_;
  std::unique_ptr<dxf::Drawing> drawing_;
};

}  // namespace

ConversionResult convertDXF(const ConversionJob& job, ConversionHost& host,
                            const Surroundings& surroundings) {
  return Conversion(job, host, surroundings).run();
}

}  // namespace quillon::convert

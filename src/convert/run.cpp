#include "convert/run.h"

#include <memory>
#include <string>

#include "base/encoding.h"
#include "base/run_time_error.h"
#include "classic/loss_notes.h"
#include "convert/block_library.h"
#include "convert/held_drawing.h"
#include "convert/listeners.h"
#include "convert/report.h"
#include "convert/rule_set.h"
#include "convert/summary.h"
#include "convert/target_commands.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "exact/rule_set.h"
#include "texts/error_texts.h"

namespace quillon::convert {
namespace {

using texts::TextId;

/// Hands the entities on to the translation as they are read.
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
  dxf::ObjectSink* objectSink() override { return translation_.objectSink(); }

 private:
  static constexpr std::uint32_t kEntitiesPerUpdate = 256;

  rules::Translation& translation_;
  rules::CancelPoll& cancelled_;
  const dxf::TextSource& text_;
  RunControl& control_;
  base::Pacer pacer_{kEntitiesPerUpdate};
};

/// Takes the steps down, however the conversion ends.
struct StepCount {
  const rules::CancelPoll& poll;
  std::uint64_t& steps;
  ~StepCount() { steps = poll.steps(); }
};

/// One run over a drawing, in the order of execute().
class Run {
 public:
  Run(Conversion& conversion, PreparedFiles& files)
      : conversion_(conversion),
        job_(conversion.job),
        surroundings_(conversion.surroundings),
        messages_(conversion.messages),
        control_(conversion.control),
        result_(conversion.result),
        files_(files),
        ownText_(surroundings_.held == nullptr ? openText() : nullptr),
        text_(ownText_ ? *ownText_ : surroundings_.held->text()),
        reader_(text_, control_) {}
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  /// The lines are taken down, however the conversion ends.
  ~Run() { result_.fileLinesRead = reader_.fileLinesRead(); }

  void execute() {
    try {
      convert();
    } catch (const base::RunTimeError&) {
      // What does not fit together may be of two drawings.
      if (text_.hasChanged()) {
        throw ScriptFailure{
            messages_.fileError(TextId::DrawingChangedMeanwhile, result_.dxfFile).detail};
      }
      throw;
    }
    finish();
  }

 private:
  std::unique_ptr<dxf::TextSource> openText() {
    try {
      return std::unique_ptr<dxf::TextSource>(new dxf::TextSource(files_.drawing->text(
          [this] { return control_.cancelRequested(); }, surroundings_.input)));
    } catch (const dxf::InputTooLarge& reason) {
      conversion_.refuse(messages_.tooLarge(result_.dxfFile, reason.most()));
    }
  }

  void convert() {
    drawing_.everyKind = isExact();
    if (!isExact()) drawing_.otherEntities.want(classic::kindsOfOtherRules());
    dxf::readDefinitions(drawing_, reader_);
    const ScriptFrame frame = loadFrameOrFail();
    LayerAssignment layers(files_.layers, job_.defaultLayer, drawing_.encoding);
    if (isExact()) beginFindings(layers);
    const bool fromMark = job_.version != kEagle3 && !isExact();
    NoScript noScript;
    base::ByteSink& sink = files_.script ? static_cast<base::ByteSink&>(*files_.script) : noScript;
    eagle::ScriptWriter script(sink, coordinates(),
                               fromMark ? eagle::PointForm::FromMark : eagle::PointForm::Plain);
    Listeners listeners(script, coordinates(), surroundings_.record);
    eagle::Commands& commands = listeners.commands();
    rules::CancelPoll cancelled(control_);
    cancelled.setLimits(script, surroundings_.limits,
                        [this](rules::LimitKind kind) { return goesOnPast(kind); });
    const RuleSet ruleSet = makeTranslation(job_, {commands, script.area(), cancelled}, drawing_,
                                            layers, drawingUnit());
    rules::Translation* const translation = ruleSet.translation.get();
    TargetCommands target(commands, job_, frame, drawing_);
    BlockLibrary library(commands, target, *translation, drawing_, job_.targetKind);
    const StepCount counted{cancelled, result_.steps};
    try {
      convertEntities(ruleSet, cancelled, target, library);
    } catch (base::RunTimeError& error) {
      if (error.line() == 0) error.setLine(lineAt(translation->currentPosition()));
      throw;
    }
    target.writeScriptTrailer();
    script.flush();
    collect(script, *translation);
    geometry::Point moved{job_.offsetX, job_.offsetY};
    if (ruleSet.exact != nullptr) {
      moved = moved + ruleSet.exact->movedBy();
      collect(*ruleSet.exact, moved);
    }
    collectLosses(*translation, moved);
    if (job_.report) {
      result_.report = buildReport(job_, result_, drawing_, layers, library, conversion_.texts,
                                   surroundings_.now());
    }
    result_.recording = listeners.recording(drawing_.encoding);
    if (files_.script) files_.script->commit();
  }

  /// The target's commands, the header, every entity in file order, and the remaining parts of the
  /// block library. Entities are converted while the rest of the drawing is still being read.
  void convertEntities(const RuleSet& ruleSet, rules::CancelPoll& cancelled, TargetCommands& target,
                       BlockLibrary& library) {
    rules::Translation& translation = *ruleSet.translation;
    target.writeTargetOpen();
    target.writeScriptHeader();
    translation.beginScript();
    const bool all = job_.blocks == kAllBlocksAsParts;
    if (ruleSet.exact != nullptr) {
      if (ruleSet.wantsParts) ruleSet.exact->setPartFrame(library, all);
    } else if (all || job_.blocks == kUsedBlocksAsParts) {
      translation.setBlockParts(&library);
    }
    Entities entities(translation, cancelled, text_, control_);
    dxf::readContents(drawing_, reader_, entities, !conversion_.host.hasCancelButton());
    if (ruleSet.exact != nullptr && ruleSet.exact->wantsPaper()) {
      readDefinitionsAgain();
      dxf::readContents(drawing_, reader_, entities, true);
    }
    if (ruleSet.exact != nullptr) ruleSet.exact->finish();
    result_.linesRead = reader_.linesRead();
    checkContents();
    control_.setStatusText(TextId::StatusConverting);
    if (all && ruleSet.exact == nullptr) writeRemainingParts(cancelled, library);
    if (limitReached_ && !surroundings_.keepPartial) throw EndOfConversion{};
    if (!control_.cancelled()) control_.setProgress(true, 1, 1);
  }

  bool isExact() const { return job_.rules == Rules::Exact; }

  eagle::Coordinates coordinates() const {
    eagle::Coordinates coordinates{job_.unit, job_.offsetX, job_.offsetY};
    // EAGLE 6 and later have more than twice the area.
    constexpr double kLimitOfEagle6 = 2000.0;  // millimetres
    if (isExact() && job_.version == kEagle6) {
      coordinates.limit = kLimitOfEagle6 / base::unitRecord(job_.unit).millimetres;
    }
    return coordinates;
  }

  void beginFindings(LayerAssignment& layers) {
    ExactFindings& findings = result_.exact.emplace();
    findings.unit = chooseUnit(layers);
    findings.scriptUnit = base::unitRecord(job_.unit).millimetres;
    findings.limit = eagle::DrawingArea(coordinates()).limit();
  }

  double drawingUnit() const { return result_.exact ? result_.exact->unit.millimetres : 1.0; }

  /// Finds out how long a unit of the drawing is. Where its size decides, the drawing is read once
  /// for that alone.
  UnitChoice chooseUnit(LayerAssignment& layers) {
    if (job_.drawingUnit != DrawingUnit::Auto) return {millimetresOf(job_.drawingUnit)};
    const double insUnits = drawing_.header.insUnits;
    if (!needsSize(insUnits)) return unitOf(insUnits, {});
    // Past its limit of steps, the conversion itself says so.
    rules::CancelPoll poll(control_);
    poll.setLimit(surroundings_.limits.steps);
    exact::Survey survey(job_.exact, drawing_, layers, poll);
    dxf::readContents(drawing_, reader_, survey, true);
    const geometry::Box bounds = survey.bounds();
    readDefinitionsAgain();
    return unitOf(insUnits, bounds);
  }

  /// Goes back to where the entities are read from.
  void readDefinitionsAgain() {
    reader_.rewind();
    dxf::Drawing again;
    again.everyKind = true;
    dxf::readDefinitions(again, reader_);
    drawing_.dropped = {};
  }

  /// What was read may be of two drawings, or be no drawing at all.
  void checkContents() {
    if (!control_.cancelled() && text_.hasChanged()) {
      conversion_.refuse(messages_.fileError(TextId::DrawingChangedMeanwhile, result_.dxfFile));
    }
    if (surroundings_.refuseWithoutSections && !drawing_.anySection && !control_.cancelled()) {
      conversion_.refuse(messages_.fileError(TextId::DrawingWithoutSections, result_.dxfFile));
    }
  }

  void writeRemainingParts(rules::CancelPoll& cancelled, BlockLibrary& library) {
    for (std::size_t i = 0; i < drawing_.blocks.size() && !control_.cancelRequested(); ++i) {
      if (cancelled.atLimit()) return;
      library.writeRemainingPart(i);
    }
  }

  /// The answer of the user, where there is one. Otherwise everything stops as after a cancel.
  bool goesOnPast(rules::LimitKind kind) {
    limit_ = kind;
    limitReached_ = surroundings_.keepPartial || !conversion_.host.goOnPastLimit(messages_.limit(
                                                     result_.dxfFile, kind, mostOf(kind)));
    if (limitReached_) control_.stop();
    return !limitReached_;
  }
  std::uint64_t mostOf(rules::LimitKind kind) const {
    const rules::WorkLimits& limits = surroundings_.limits;
    return kind == rules::LimitKind::Lines ? limits.lines : limits.steps;
  }

  ScriptFrame loadFrameOrFail() {
    const std::string& path = surroundings_.frame.path;
    try {
      return loadFrame(surroundings_.frame);
    } catch (const files::WriteError& error) {
      throw ScriptFailure{messages_.unwritableText(path, files::toPath(path), error.reason())};
    } catch (const base::ReadError& error) {
      const std::string reason = texts::reasonText(error.reason(), conversion_.texts);
      if (surroundings_.refuseUnreadableFiles || surroundings_.frame.mustExist) {
        throw ScriptFailure{messages_.unreadableText(path, reason)};
      }
      conversion_.host.tell(messages_.frameUnreadable(path, reason));
      return defaultFrame();
    }
  }

  void collect(const eagle::ScriptWriter& script, const rules::Translation& translation) {
    result_.commandCount = script.commandCount();
    result_.rangeWarning = script.rangeWarning();
    result_.extents = script.extents();
    result_.insUnits = drawing_.header.insUnits;
    result_.counts = translation.counts();
    result_.leftOut = translation.leftOut();
    result_.dropped = drawing_.dropped;
    for (const auto& [name, count] : drawing_.unknownKinds) {
      result_.unknownKinds[base::toUtf8(name, drawing_.encoding)] += count;
    }
  }

  /// With their places in the script, whose points have all been moved by the same.
  void collectLosses(rules::Translation& translation, geometry::Point moved) {
    const rules::LossList losses = translation.takeLosses();
    for (const rules::Loss& loss : losses.all()) {
      result_.losses.push_back({loss.rule, base::toUtf8(loss.kind, drawing_.encoding),
                                base::toUtf8(loss.layer, drawing_.encoding),
                                base::toUtf8(loss.name, drawing_.encoding), loss.count, loss.line,
                                loss.at + moved, loss.most});
    }
  }

  void collect(const exact::RuleSet& rules, geometry::Point moved) {
    ExactFindings& findings = *result_.exact;
    findings.offsets = {job_.offsetX, job_.offsetY};
    findings.movedBy = rules.movedBy();
    for (const auto& [name, count] : rules.otherCounts()) {
      findings.otherCounts[base::toUtf8(name, drawing_.encoding)] += count;
    }
    for (const auto& [name, count] : rules.otherLeftOut()) {
      findings.otherLeftOut[base::toUtf8(name, drawing_.encoding)] += count;
    }
    findings.namedSignals = rules.namedSignals();
    findings.outlines = rules.outlines();
    for (exact::OpenEnd& gap : findings.outlines.gaps) {
      gap.at = gap.at + moved;
      gap.next = gap.next + moved;
    }
    if (!rules.bounds().empty()) {
      findings.bounds = {rules.bounds().low + findings.offsets,
                         rules.bounds().high + findings.offsets};
    }
    findings.drewPaperSpace = rules.drewPaper();
  }

  void finish() {
    ConversionHost& host = conversion_.host;
    result_.outcome = control_.cancelled() ? Outcome::Cancelled : Outcome::Converted;
    if (result_.outcome == Outcome::Cancelled) {
      host.tell(limitReached_ ? messages_.partial(result_.dxfFile, limit_, mostOf(limit_))
                              : messages_.cancelled(result_.dxfFile, result_.linesRead));
    }
    if (result_.outcome == Outcome::Converted && nothingConverted(result_)) {
      host.tell(messages_.nothingConverted(result_.dxfFile));
    }
    if (result_.rangeWarning) host.tell(messages_.outOfRange(result_.dxfFile));
    if (job_.report) host.showReport(result_.report);
  }

  /// Number of the line in the file that holds a position of a block or of the present window.
  std::uint64_t lineAt(const char* position) const {
    const std::uint64_t line = drawing_.lineInBlocks(position);
    return line != 0 ? line : reader_.lineAt(position);
  }

  Conversion& conversion_;
  const ConversionJob& job_;
  const Surroundings& surroundings_;
  const Messages& messages_;
  RunControl& control_;
  ConversionResult& result_;
  PreparedFiles& files_;
  std::unique_ptr<dxf::TextSource> ownText_;  ///< null for a drawing that is held in memory
  dxf::TextSource& text_;
  dxf::LineReader reader_;
  dxf::Drawing drawing_;
  rules::LimitKind limit_ = rules::LimitKind::Lines;  ///< the one that was reached
  bool limitReached_ = false;                         ///< and ended the conversion
};

}  // namespace

void run(Conversion& conversion, PreparedFiles& files) { Run(conversion, files).execute(); }

}  // namespace quillon::convert

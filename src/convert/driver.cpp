#include "convert/driver.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <memory>
#include <new>
#include <system_error>

#include "convert/block_library.h"
#include "convert/failure_text.h"
#include "convert/input_check.h"
#include "convert/layer_table.h"
#include "convert/output_file.h"
#include "convert/paths.h"
#include "convert/report.h"
#include "convert/target_commands.h"
#include "dxf/line_reader.h"
#include "dxf/number_text.h"
#include "dxf/run_time_error.h"
#include "dxf/section_walker.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

/// Ends a run after its message; the host has been told.
struct EndOfRun {};

/// The opened drawing with its first bytes.
struct InputFile {
  FileHandle owned;
  std::FILE* stream = nullptr;
  std::string head;
  std::size_t size = 0;
};

/// One conversion. The steps run in the order of the public function at the end.
class Conversion {
 public:
  Conversion(const ConversionJob& job, ConversionHost& host, const Surroundings& surroundings)
      : job_(job),
        host_(host),
        surroundings_(surroundings),
        texts_(surroundings.languageOffset),
        control_(host, texts_, surroundings.updateInterval) {
    job_.drawingName = dxf::trimBlanks(job.drawingName);
  }

  ConversionResult run() {
    try {
      prepare();
      convert();
    } catch (const EndOfRun&) {
      // The reason has been told.
    } catch (const dxf::RunTimeError& error) {
      fail(faultText(error, quotable(result_.dxfFile), lineOf(error), texts_));
    } catch (const WriteError& error) {
      fail(texts_(3027, {quotable(result_.scriptFile), error.what()}));
    } catch (const dxf::ReadError& error) {
      fail(texts_(3008, {quotable(result_.dxfFile), error.what()}));
    } catch (const std::bad_alloc&) {
      fail(std::string(texts_(3028)));
    } catch (const std::exception& error) {
      fail(quotable(result_.dxfFile) + ": " + error.what());
    }
    return std::move(result_);
  }

 private:
  void prepare() {
    host_.setProgress(false, 0);
    host_.setProgress(true, 0);
    findDrawing();
    openDrawing();
    checkName();
    askForOverwriting();
    openScript();
    checkSettings();
    control_.setStatusText(2838);
    layerTable_ = readLayerFile(job_.layerFile);
    if (job_.scale == 0.0) {
      leaveEmptyScript({MessageKind::Error, std::string(texts_(2811)), std::string(texts_(2810)),
                        std::string(texts_(2810))});
    }
  }

  void convert() {
    readDrawing();
    control_.setStatusText(2839);
    frame_ = loadFrameOrFail();
    emit::ScriptWriter script(*output_, {job_.unit, job_.version, job_.offsetX, job_.offsetY});
    emit::EmitSettings settings;
    settings.dotted = job_.dotted;
    settings.ellipses = job_.ellipses;
    settings.arcRangeCheck = job_.arcToLine;
    settings.poly = job_.poly;
    settings.polyWidth = job_.polyWidth;
    settings.angDir = drawing_->angDir;
    settings.ltScale = drawing_->ltScale;
    settings.pointSize = drawing_->pointSize;
    emit::EmitContext context{script, settings, emit::CancelPoll(control_)};
    LayerAssignment layers(layerTable_, job_.defaultLayer, drawing_->encoding);
    const emit::TranslationRules rules;
    emit::Translator translator(context, *drawing_, layers, rules);
    translator_ = &translator;
    TargetCommands commands(script, job_, frame_, *drawing_);
    BlockLibrary library(script, commands, translator, *drawing_, job_.targetKind);

    convertEntities(translator, commands, library);
    commands.writeScriptTrailer();
    script.flush();
    collect(script, translator);
    result_.report =
        buildReport(job_, result_, *drawing_, layers, library, texts_, surroundings_.now());
    output_->commit();
    finish();
  }

  /// The target's commands, the header, every entity in file order, and the remaining parts of the
  /// block library.
  void convertEntities(emit::Translator& translator, TargetCommands& commands,
                       BlockLibrary& library) {
    commands.writeTargetOpen();
    commands.writeScriptHeader();
    if (job_.blocks == kUsedBlocksAsParts || job_.blocks == kAllBlocksAsParts) {
      translator.setBlockParts(&library);
    }
    emit::Placement placement;
    placement.scaleX = placement.scaleY = job_.scale;
    constexpr std::uint32_t kEntitiesPerPoll = 128;
    dxf::Pacer pacer(kEntitiesPerPoll);
    bool stopped = control_.cancelRequested();
    std::uint64_t done = 0;
    dxf::EntityCursor entities(drawing_->store, drawing_->entities);
    for (dxf::EntitySlots entity; !stopped && entities.next(entity);) {
      translator.translateEntity(entity, placement);
      ++done;
      if (!pacer.due() && !control_.cancelled()) continue;
      control_.setProgress(true, done, drawing_->entities.size());
      stopped = control_.cancelRequested();
    }
    translator.finishList();
    if (!stopped) control_.setProgress(true, 1, 1);
    if (job_.blocks != kAllBlocksAsParts) return;
    for (std::size_t i = 0; i < drawing_->blocks.size() && !control_.cancelRequested(); ++i) {
      library.writeRemainingPart(i);
    }
  }

  void findDrawing() {
    if (surroundings_.readStandardInput) {
      result_.dxfFile = "-";
      return;
    }
    fs::path path = findExisting(job_.dxfFile);
    if (job_.dxfFile.empty() || !namesFile(path)) {
      const std::string chosen = host_.chooseDxfFile(
          {std::string(texts_(962)), std::string(texts_(961)), "*.*", job_.dxfFile});
      if (!chosen.empty()) job_.dxfFile = chosen;
      path = findExisting(job_.dxfFile);
    }
    result_.dxfFile = fromPath(path);
    if (job_.dxfFile.empty() || !namesFile(path)) {
      const std::string missing =
          std::string(texts_(2802)) + "\r" + job_.dxfFile + "\r" + std::string(texts_(2803));
      const int error = path.empty() ? ENOENT : pathError(path);
      refuse(texts_(2804), missing,
             texts_(3008, {quotable(job_.dxfFile), std::generic_category().message(error)}));
    }
  }

  static int pathError(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error) ? EISDIR : ENOENT;
  }

  void openDrawing() {
    if (surroundings_.readStandardInput) {
      input_.stream = stdin;
    } else {
      const fs::path path = toPath(result_.dxfFile);
      input_.owned = openFile(path, "rb");
      input_.stream = input_.owned.get();
      if (input_.stream == nullptr) failReading(errno);
      std::error_code error;
      const auto size = fs::file_size(path, error);
      input_.size = error ? 0 : static_cast<std::size_t>(size);
    }
    input_.head.resize(kCheckedBytes);
    input_.head.resize(std::fread(input_.head.data(), 1, kCheckedBytes, input_.stream));
    if (std::ferror(input_.stream) != 0) failReading(errno);
    const InputKind kind = checkInput(input_.head);
    if (kind != InputKind::Text) refuseDrawing(3000 + static_cast<int>(kind));
  }

  [[noreturn]] void failReading(int error) {
    const std::string text =
        texts_(3008, {quotable(result_.dxfFile), std::generic_category().message(error)});
    refuse(texts_(2804), text, text);
  }

  [[noreturn]] void refuseDrawing(int id) {
    const std::string text = texts_(id, {quotable(result_.dxfFile)});
    refuse(texts_(2804), text, text);
  }

  /// A name that could end its quotes, or the command that it stands in, is not written.
  void checkName() {
    const bool bad = std::any_of(job_.drawingName.begin(), job_.drawingName.end(), [](char c) {
      const auto byte = static_cast<unsigned char>(c);
      return c == '\'' || c == ';' || byte < 0x20 || byte == 0x7F;
    });
    if (!bad) return;
    const std::string text = texts_(3006, {quotable(job_.drawingName)});
    refuse(texts_(2804), text, text);
  }

  void askForOverwriting() {
    if (surroundings_.writeStandardOutput) {
      result_.scriptFile = "-";
      return;
    }
    scriptPath_ = findForCreation(job_.scriptFile);
    result_.scriptFile = fromPath(scriptPath_);
    std::error_code error;
    if (!surroundings_.readStandardInput &&
        fs::equivalent(scriptPath_, toPath(result_.dxfFile), error)) {
      const std::string text = texts_(3007, {quotable(result_.scriptFile)});
      refuse(texts_(2804), text, text);
    }
    if (job_.overwriteScript || !fs::is_regular_file(scriptPath_, error)) return;
    const std::string text =
        std::string(texts_(2806)) + "\r" + result_.scriptFile + "\r" + std::string(texts_(2807));
    if (!host_.ask({MessageKind::Question, std::string(texts_(2805)), text,
                    quotable(result_.scriptFile)})) {
      throw EndOfRun{};
    }
  }

  void openScript() {
    output_ = surroundings_.writeStandardOutput ? std::make_unique<OutputFile>(stdout)
                                                : std::make_unique<OutputFile>(scriptPath_);
  }

  void checkSettings() {
    if (job_.blocks == kDrawBlocks || !job_.drawingName.empty()) return;
    leaveEmptyScript({MessageKind::Error, std::string(texts_(2809)), std::string(texts_(2808)),
                      std::string(texts_(2808))});
  }

  void readDrawing() {
    text_ = dxf::FileText::read(input_.stream, input_.head, input_.size,
                                [this] { return control_.cancelRequested(); });
    input_ = {};
    drawing_ = std::make_unique<dxf::Drawing>(text_);
    dxf::LineReader reader(text_, control_);
    // Lines read are reported also when an error ends the reading.
    struct Counter {
      const dxf::LineReader& reader;
      std::uint64_t& lines;
      ~Counter() { lines = reader.linesRead(); }
    } const counter{reader, result_.linesRead};
    dxf::readDxf(*drawing_, reader, !host_.hasCancelButton());
    if (surroundings_.refuseWithoutSections && !drawing_->anySection && !control_.cancelled()) {
      refuseDrawing(3005);
    }
  }

  ScriptFrame loadFrameOrFail() {
    const std::string path = quotable(surroundings_.frame.path);
    try {
      return loadFrame(surroundings_.frame);
    } catch (const WriteError& error) {
      fail(texts_(3027, {path, error.what()}));
    } catch (const dxf::ReadError& error) {
      fail(texts_(3008, {path, error.what()}));
    }
    throw EndOfRun{};
  }

  void collect(const emit::ScriptWriter& script, const emit::Translator& translator) {
    result_.commandCount = script.commandCount();
    result_.rangeWarning = script.rangeWarning();
    result_.extents = script.extents();
    result_.counts = translator.counts();
    for (const auto& [name, count] : drawing_->unknownKinds) {
      result_.unknownKinds[dxf::toUtf8(name, drawing_->encoding)] += count;
    }
  }

  void finish() {
    result_.outcome = control_.cancelled() ? Outcome::Cancelled : Outcome::Converted;
    if (result_.outcome == Outcome::Cancelled) {
      const std::string text = std::string(texts_(2816)) + std::to_string(result_.linesRead) + " " +
                               std::string(texts_(2817));
      host_.tell({MessageKind::Warning, std::string(texts_(2805)), text,
                  quotable(result_.dxfFile) + ": " + text});
    }
    if (result_.rangeWarning) {
      const auto lines = {texts_(2930), texts_(2931), texts_(2932)};
      std::string text;
      std::string detail = quotable(result_.dxfFile) + ":";
      for (const std::string_view line : lines) {
        text += (text.empty() ? "" : "\r") + std::string(line);
        if (!dxf::trimBlanks(line).empty()) detail += " " + std::string(line);
      }
      host_.tell({MessageKind::Warning, std::string(texts_(2933)), text, detail});
    }
    if (job_.report) host_.showReport(result_.report);
  }

  /// Ends the run before anything is written.
  [[noreturn]] void refuse(std::string_view title, const std::string& text,
                           const std::string& detail) {
    host_.tell({MessageKind::Error, std::string(title), text, detail});
    throw EndOfRun{};
  }

  /// Settings that cannot be converted are noticed after the script was opened: it stays empty, as
  /// intended.
  [[noreturn]] void leaveEmptyScript(const Message& message) {
    output_->commit();
    host_.tell(message);
    throw EndOfRun{};
  }

  /// The error handler of the run.
  void fail(std::string detail) {
    control_.stop();
    output_.reset();
    host_.tell(scriptError(result_.scriptFile, std::move(detail), texts_));
  }

  std::size_t lineOf(const dxf::RunTimeError& error) const {
    const char* position = error.position();
    if (text_.lineOf(position) == 0) {
      position = translator_ == nullptr ? nullptr : translator_->currentPosition();
    }
    return text_.lineOf(position);
  }

  ConversionJob job_;
  ConversionHost& host_;
  const Surroundings& surroundings_;
  resources::Texts texts_;
  RunControl control_;
  ConversionResult result_;
  InputFile input_;
  fs::path scriptPath_;
  std::unique_ptr<OutputFile> output_;
  LayerTable layerTable_;
  ScriptFrame frame_;
  dxf::FileText text_;
  std::unique_ptr<dxf::Drawing> drawing_;
  emit::Translator* translator_ = nullptr;
};

}  // namespace

ReportTime currentReportTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  std::array<char, 64> buffer{};
  ReportTime text;
  text.date.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%x", &local));
  text.time.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%X", &local));
  return text;
}

ConversionResult convertDXF(const ConversionJob& job, ConversionHost& host,
                            const Surroundings& surroundings) {
  return Conversion(job, host, surroundings).run();
}

}  // namespace quillon::convert

#include "convert/preparation.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "base/number_text.h"
#include "base/quotable.h"
#include "convert/held_drawing.h"
#include "files/file_system.h"
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

/// The steps before a conversion, in the order of run().
class Preparation {
 public:
  explicit Preparation(Conversion& conversion)
      : conversion_(conversion),
        job_(conversion.job),
        host_(conversion.host),
        surroundings_(conversion.surroundings),
        messages_(conversion.messages) {}

  PreparedFiles run() {
    host_.setProgress(false, 0);
    host_.setProgress(true, 0);
    findDrawing();
    std::optional<DrawingInput> drawing = openDrawing();
    checkTarget();
    checkName();
    askForOverwriting();
    if (lacksName() || job_.scale == 0.0) leaveEmptyScript();
    // The script is opened before the layers are loaded, as the order in the braces says.
    return {std::move(drawing), openScript(), loadLayers()};
  }

 private:
  void findDrawing() {
    std::string& found = conversion_.result.dxfFile;
    if (surroundings_.held != nullptr) {
      found = surroundings_.held->path();
      return;
    }
    if (surroundings_.readStandardInput) {
      found = "-";
      return;
    }
    fs::path path =
        job_.literalPaths ? files::toPath(job_.dxfFile) : files::findExisting(job_.dxfFile);
    const auto isThere = [&] { return !job_.dxfFile.empty() && files::namesFile(path); };
    bool there = isThere();
    if (!there) {
      const texts::Texts& texts = conversion_.texts;
      const std::string chosen =
          host_.chooseDxfFile({std::string(texts(TextId::DrawingDialogTitle)),
                               std::string(texts(TextId::DrawingFiles)), "*.*", job_.dxfFile});
      if (!chosen.empty()) path = files::findExisting(job_.dxfFile = chosen);
      there = isThere();
    }
    found = files::fromPath(path);
    if (there) return;
    const int reason = files::namesFolder(path) ? EISDIR : ENOENT;
    conversion_.refuse(messages_.drawingMissing(job_.dxfFile, reasonText(reason)));
  }

  std::optional<DrawingInput> openDrawing() {
    if (surroundings_.held != nullptr) {
      checkKind(surroundings_.held->kind());
      return std::nullopt;
    }
    const std::string& path = conversion_.result.dxfFile;
    const auto cancelled = [this] { return conversion_.control.cancelRequested(); };
    try {
      DrawingInput input = surroundings_.readStandardInput
                               ? DrawingInput::standardInput(cancelled)
                               : DrawingInput::openFile(files::toPath(path), cancelled);
      checkKind(input.kind());
      return input;
    } catch (const base::ReadError& error) {
      if (files::isBrokenWait(error.reason()) && cancelled()) throw;
      conversion_.refuse(messages_.fileUnreadable(path, reasonText(error.reason())));
    }
  }

  void checkKind(InputKind kind) {
    if (conversion_.control.cancelled()) return;  // what was read of it says nothing
    if (kind == InputKind::Text) return;
    conversion_.refuse(messages_.fileError(kRefusals[static_cast<std::size_t>(kind) - 1],
                                           conversion_.result.dxfFile));
  }

  void checkTarget() {
    if (!isTarget(job_.targetKind)) conversion_.refuse(messages_.targetMissing());
    if (job_.rules == Rules::Exact && job_.version == kEagle3) {
      conversion_.refuse(messages_.exactNeedsEagle4());
    }
  }

  /// A name that could end its quotes, or the command that it stands in, is not written.
  void checkName() {
    const std::string& name = job_.drawingName;
    if (name.find_first_of("';") != std::string::npos || base::hasControlCharacter(name)) {
      conversion_.refuse(messages_.fileError(TextId::DrawingNameUnusable, name));
    }
  }

  void askForOverwriting() {
    if (surroundings_.discardScript) return;
    ConversionResult& result = conversion_.result;
    if (surroundings_.writeStandardOutput) {
      result.scriptFile = "-";
      return;
    }
    if (job_.scriptBesideDrawing && !surroundings_.readStandardInput) {
      job_.scriptFile = files::scriptBeside(result.dxfFile);
      job_.literalPaths = true;
    }
    fs::path& path = conversion_.scriptPath;
    path = job_.literalPaths ? files::toPath(job_.scriptFile)
                             : files::findForCreation(job_.scriptFile);
    // What is in no folder goes by the name that the user gave it.
    const bool asGiven = job_.literalPaths || files::isInMissingFolder(path);
    result.scriptFile = asGiven ? job_.scriptFile : files::fromPath(path);
    // Where there is nothing, there is neither the drawing nor anything in the way.
    scriptIsNew_ = files::isVacant(path);
    if (scriptIsNew_) return;
    if (!surroundings_.readStandardInput &&
        files::isSameFile(path, files::toPath(result.dxfFile))) {
      conversion_.refuse(messages_.fileError(TextId::ScriptIsDrawing, result.scriptFile));
    }
    if (job_.overwriteScript || !files::isInTheWay(path)) return;
    if (!host_.ask(messages_.scriptExists(result.scriptFile))) throw EndOfConversion{};
  }

  bool lacksName() const { return job_.blocks != kDrawBlocks && job_.drawingName.empty(); }

  /// Settings that cannot be converted are noticed after the script was opened: a new one stays
  /// empty. A script that is there stays as it was.
  [[noreturn]] void leaveEmptyScript() {
    const bool mayLeaveOne =
        surroundings_.writeStandardOutput || files::isMissing(conversion_.scriptPath);
    if (surroundings_.discardScript || !mayLeaveOne) conversion_.refuse(settingsRefusal());
    const std::unique_ptr<files::OutputFile> script = openScript();
    const Message refusal = settingsRefusal();
    script->commit();
    conversion_.refuse(refusal);
  }

  /// A missing name is noticed before the layers are loaded, a scale of 0 afterwards.
  Message settingsRefusal() {
    if (lacksName()) return messages_.nameMissing();
    loadLayers();
    return messages_.scaleIsZero();
  }

  std::unique_ptr<files::OutputFile> openScript() {
    if (surroundings_.discardScript) return nullptr;
    if (surroundings_.writeStandardOutput) return std::make_unique<files::OutputFile>(stdout);
    const fs::path& path = conversion_.scriptPath;
    if (surroundings_.clearAbandoned) files::clearAbandonedFiles(files::folderOfTarget(path));
    using Target = files::OutputFile::Target;
    return std::make_unique<files::OutputFile>(path,
                                               scriptIsNew_ ? Target::Vacant : Target::Unknown);
  }

  LayerTable loadLayers() {
    conversion_.control.setStatusText(TextId::StatusLayerFile);
    if (base::startsWithNumber(job_.defaultLayer) && isCutLayer(job_.defaultLayer)) {
      host_.tell(messages_.standardLayerCut(job_.defaultLayer));
    }
    const std::string& path = job_.layerFile;
    if (path.empty()) return {};
    try {
      const std::vector<LayerRow> rows = readNamedLayerRows(path);
      for (const Message& warning : messages_.layerWarnings(path, rows)) host_.tell(warning);
      return layerTableOf(rows);
    } catch (const base::ReadError& error) {
      const std::string reason = reasonText(error.reason());
      if (surroundings_.refuseUnreadableFiles) {
        conversion_.refuse(messages_.fileUnreadable(path, reason));
      }
      host_.tell(messages_.layersUnreadable(path, reason));
      return {};
    }
  }

  std::string reasonText(int reason) const { return texts::reasonText(reason, conversion_.texts); }

  Conversion& conversion_;
  ConversionJob& job_;
  ConversionHost& host_;
  bool scriptIsNew_ = false;  ///< nothing is at its path
  const Surroundings& surroundings_;
  const Messages& messages_;
};

}  // namespace

PreparedFiles prepare(Conversion& conversion) { return Preparation(conversion).run(); }

}  // namespace quillon::convert

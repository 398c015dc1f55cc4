#include "web/desk.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <new>
#include <utility>

#include "base/quotable.h"
#include "base/read_error.h"
#include "base/run_time_error.h"
#include "convert/layer_file.h"
#include "convert/layer_scan.h"
#include "convert/messages.h"
#include "convert/summary.h"
#include "files/file_system.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "preview/scene_snap.h"
#include "texts/error_texts.h"
#include "web/arrays.h"
#include "web/facts.h"
#include "web/page_host.h"
#include "web/scene_arrays.h"
#include "workbench/differing.h"
#include "workbench/layer_list.h"
#include "workbench/loss_rows.h"
#include "workbench/result_text.h"

namespace quillon::web {
namespace {

using emscripten::val;
using texts::TextId;

/// Larger drawings leave no room for their pictures.
constexpr std::uint64_t kMostHeld = std::uint64_t{512} << 20;

/// The page ends the worker instead.
bool never() { return false; }

constexpr const char* kDrawing = "drawing";

}  // namespace

void Desk::setLanguage(const std::string& language) {
  languageOffset_ = language == "de" ? texts::kGerman : texts::kEnglish;
}

void Desk::openDrawing(const val& file) {
  closeDrawing();
  const std::string name = fileName(file["name"].as<std::string>());
  if (name == layerFile_) {
    // A former drawing may have made room for this name.
    const std::string other = name + ".lay";
    std::filesystem::rename(name, other);
    layerFile_ = other;
  }
  drawing_.emplace(file, name);
}

void Desk::closeDrawing() {
  forgetReadings();
  held_.reset();
  drawing_.reset();
}

std::vector<std::string> Desk::layers() const {
  if (!drawing_) return {};
  try {
    return convert::layerScanDXF(drawing_->name());
  } catch (const base::RunTimeError&) {
    return {};  // what is wrong with the drawing, its result says
  } catch (const base::ReadError&) {
    return {};
  }
}

void Desk::openLayerFile(const std::string& name, const std::string& bytes) {
  closeLayerFile();
  placeLayerFile(fileName(name));
  files::replaceFile(layerFile_, bytes);
}

void Desk::placeLayerFile(std::string name) {
  if (drawing_ && (name == drawing_->name() || name == scriptName())) name += ".lay";
  layerFile_ = std::move(name);
}

void Desk::closeLayerFile() {
  if (!layerFile_.empty()) std::filesystem::remove(layerFile_);
  layerFile_.clear();
}

val Desk::layerFile() const {
  if (layerFile_.empty()) return val::null();
  const std::string bytes = files::readWholeFile(layerFile_);
  val file = val::object();
  file.set("name", layerFile_);
  file.set("bytes", typedArray(std::vector<unsigned char>(bytes.begin(), bytes.end())));
  return file;
}

val Desk::assignedLayers() const {
  return listOf(workbench::assignedLayers(layers(), layerFile_, texts()),
                [](const workbench::AssignedLayer& layer) {
                  val value = val::object();
                  value.set("name", layer.name);
                  value.set("layer", layer.layer);
                  value.set("areas", layer.areas);
                  return value;
                });
}

std::string Desk::assignLayer(const std::string& name, const std::string& entry) {
  return changeLayerFile([&] { return workbench::assignLayer(layerFile_, name, entry); });
}

std::string Desk::setAreas(const std::string& name, bool areas) {
  return changeLayerFile([&] { return workbench::setAreas(layerFile_, name, areas); });
}

/// "" when it is done, else why not.
std::string Desk::changeLayerFile(const std::function<bool()>& change) {
  const std::string former = layerFile_;
  if (former.empty()) placeLayerFile(files::layerFileBeside(drawing_ ? drawing_->name() : "_"));
  const convert::Messages messages(texts());
  try {
    if (change()) return {};
    return texts()(TextId::AssignmentNotKept, {base::quotable(layerFile_)});
  } catch (const convert::NotALayerFile& error) {
    const std::string path = std::exchange(layerFile_, former);
    return messages.notALayerFileText(path, error.kind());
  }
}

void Desk::forgetReadings() {
  result_.reset();
  whole_.reset();
  differences_.reset();
  failure_.clear();
}

std::string Desk::scriptName() const {
  std::string name = files::scriptBeside(drawing_->name());
  return name == drawing_->name() || name == layerFile_ ? name + ".scr" : name;
}

convert::ConversionJob Desk::jobOf(const Options& options) const {
  convert::ConversionJob job = settings::jobOf(settingsOf(options), {});
  job.dxfFile = drawing_ ? drawing_->name() : std::string();
  job.scriptFile = drawing_ ? scriptName() : std::string();
  job.scriptBesideDrawing = false;
  job.literalPaths = true;
  job.overwriteScript = true;
  job.layerFile = layerFile_;
  return job;
}

convert::Surroundings Desk::surroundings() const {
  convert::Surroundings surroundings;
  surroundings.languageOffset = languageOffset_;
  surroundings.refuseWithoutSections = true;
  surroundings.clearAbandoned = false;
  return surroundings;
}

template <typename Step>
val Desk::reading(const Step& step) {
  try {
    if (drawing_) step();
  } catch (const base::ReadError& error) {
    failure_ = texts::reasonText(error.reason(), texts());
  } catch (const dxf::InputTooLarge&) {
    failure_ = texts()(TextId::PictureTooLarge);
  } catch (const std::bad_alloc&) {
    failure_ = texts::outOfMemoryText(texts());
  }
  return facts();
}

val Desk::readResult(const Options& options) {
  forgetReadings();
  return reading([this, &options] {
    if (held_ == nullptr) {
      held_ = std::make_unique<convert::HeldDrawing>(drawing_->name(), never,
                                                     dxf::InputLimits{kMostHeld, kMostHeld});
    }
    result_ = workbench::readResult(*held_, jobOf(options), surroundings(), never);
  });
}

val Desk::readDrawing() {
  return reading([this] {
    if (!result_ || result_->scene == nullptr) return;
    whole_ = workbench::readDrawing(*held_, *result_, surroundings(), never);
  });
}

val Desk::compare() {
  return reading([this] {
    if (result_ && whole_) differences_ = workbench::differencesOf(*whole_, *result_, never);
  });
}

val Desk::facts() const {
  return factsValue(
      {result_ ? &*result_ : nullptr, whole_ ? &*whole_ : nullptr, differences_.get(), failure_},
      texts());
}

const workbench::Reading* Desk::reading(const std::string& which) const {
  const std::optional<workbench::Reading>& wanted = which == kDrawing ? whole_ : result_;
  return wanted && wanted->scene != nullptr ? &*wanted : nullptr;
}

val Desk::scene(const std::string& which) const {
  const workbench::Reading* const wanted = reading(which);
  if (wanted == nullptr) return val::null();
  return sceneValue(*wanted->scene, wanted->job.targetKind, texts());
}

val Desk::differences() const {
  return differences_ == nullptr ? val::null() : differencesValue(*differences_);
}

Options Desk::takeOffer(const std::string& offer, const Options& options) const {
  if (!result_) return options;
  return optionsOf(workbench::taken(offerNamed(offer), settingsOf(options), *result_,
                                    whole_ ? &*whole_ : nullptr));
}

val Desk::nearestPlace(const std::string& which, geometry::Point to, double reach,
                       const std::vector<int>& hidden) const {
  const workbench::Reading* const wanted = reading(which);
  if (wanted == nullptr) return val::null();
  const auto isShown = [&hidden](int layer) {
    return std::find(hidden.begin(), hidden.end(), layer) == hidden.end();
  };
  const auto place = preview::nearestPlace(*wanted->scene, to, reach, isShown);
  if (!place) return val::null();
  val value = val::object();
  value.set("x", place->x);
  value.set("y", place->y);
  return value;
}

val Desk::convert(const Options& options, bool unlimited, const val& progress) {
  workbench::Reading reading;
  reading.job = jobOf(options);
  PageHost host(progress, reading.messages);
  convert::Surroundings around = surroundings();
  if (unlimited) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
    around.limits = {.lines = kMost, .steps = kMost};
  }
  std::optional<ScriptDevice> device;
  if (drawing_) device.emplace(reading.job.scriptFile);
  reading.result = convert::convertDXF(reading.job, host, around);
  reading.frame.factor = base::unitRecord(reading.job.unit).millimetres;
  const convert::ConversionResult& result = reading.result;
  const bool hasScript = device && result.outcome == convert::Outcome::Converted;
  // The name alone: nobody knows the folder that the page's user will choose.
  const bool canBeTyped = hasScript && !convert::scriptArgument(result).empty();
  const std::string command = canBeTyped ? "SCRIPT '" + result.scriptFile + "'" : std::string();
  static constexpr const char* kOutcomes[] = {"converted", "cancelled", "ended"};
  val value = val::object();
  value.set("outcome", std::string(kOutcomes[static_cast<std::size_t>(result.outcome)]));
  value.set("script", hasScript ? device->take() : val::null());
  value.set("scriptName", reading.job.scriptFile);
  value.set("command", command);
  value.set("summary",
            hasScript ? textList(workbench::resultLines(result, command, texts())) : val::array());
  value.set("messages", messageList(reading.messages));
  value.set("losses", lossList(reading, texts()));
  value.set("lossCount", static_cast<double>(workbench::lossCount(reading)));
  return value;
}

}  // namespace quillon::web

#pragma once

#include <emscripten/val.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "convert/held_drawing.h"
#include "preview/differences.h"
#include "web/desk_files.h"
#include "web/options.h"
#include "workbench/reading.h"

namespace quillon::web {

/// What the engine has before it: one drawing, one layer file, and what was read of them. Its
/// functions are those of `Quillon` in engine.d.ts.
class Desk {
 public:
  Desk() { makeFolders(); }

  void setLanguage(const std::string& language);
  texts::Texts texts() const { return texts::Texts(languageOffset_); }

  void openDrawing(const emscripten::val& file);
  void closeDrawing();
  std::vector<std::string> layers() const;

  void openLayerFile(const std::string& name, const std::string& bytes);
  void closeLayerFile();
  emscripten::val layerFile() const;
  emscripten::val assignedLayers() const;
  std::string assignLayer(const std::string& name, const std::string& entry);
  std::string setAreas(const std::string& name, bool areas);

  emscripten::val readResult(const Options& options);
  emscripten::val readDrawing();
  emscripten::val compare();
  emscripten::val facts() const;
  emscripten::val scene(const std::string& which) const;
  emscripten::val differences() const;
  Options takeOffer(const std::string& offer, const Options& options) const;
  emscripten::val nearestPlace(const std::string& which, geometry::Point to, double reach,
                               const std::vector<int>& hidden) const;

  emscripten::val convert(const Options& options, bool unlimited, const emscripten::val& progress);

 private:
  convert::ConversionJob jobOf(const Options& options) const;
  convert::Surroundings surroundings() const;
  std::string scriptName() const;
  void placeLayerFile(std::string name);
  std::string changeLayerFile(const std::function<bool()>& change);
  void forgetReadings();
  const workbench::Reading* reading(const std::string& which) const;
  /// Runs a step of reading; what goes wrong becomes the reason for which there is no picture.
  template <typename Step>
  emscripten::val reading(const Step& step);

  int languageOffset_ = texts::kEnglish;
  std::optional<MountedDrawing> drawing_;
  std::string layerFile_;  ///< "" for none
  std::unique_ptr<convert::HeldDrawing> held_;
  std::optional<workbench::Reading> result_;
  std::optional<workbench::Reading> whole_;
  std::shared_ptr<const preview::Differences> differences_;
  std::string failure_;
};

}  // namespace quillon::web

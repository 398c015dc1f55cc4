// What a page can call, as engine.d.ts has it: functions of the module that go to the one desk.
#include <emscripten/bind.h>

#include <exception>
#include <new>

#include "batch/drawing_files.h"
#include "files/paths.h"
#include "preview/scene_colours.h"
#include "texts/error_texts.h"
#include "texts/layer_lists.h"
#include "web/arrays.h"
#include "web/desk.h"
#include "web/facts.h"
#include "workbench/picture_text.h"

namespace quillon::web {
namespace {

using emscripten::val;

Desk& desk() {
  static Desk desk;
  return desk;
}

/// What the engine throws becomes an Error of the page.
template <typename Work>
auto guarded(const Work& work) {
  std::string reason;
  try {
    return work();
  } catch (const std::bad_alloc&) {
    reason = texts::outOfMemoryText(desk().texts());
  } catch (const std::exception& fault) {
    reason = fault.what();
  }
  val::global("Error").new_(reason).throw_();
}

std::string version() { return QUILLON_VERSION; }
void setLanguage(const std::string& language) { desk().setLanguage(language); }

val allTexts() {
  struct Row {
    const char* name;
    texts::TextId id;
  };
  constexpr Row kRows[] = {
#define TEXT(name, id, german, english) {#name, texts::TextId::name},
#define BOTH(name, id, text) {#name, texts::TextId::name},
#include "texts/strings.def"
#undef TEXT
#undef BOTH
  };
  const texts::Texts own = desk().texts();
  val all = val::object();
  for (const Row& row : kRows) {
    const std::string_view text = own(row.id);
    all.set(row.name, std::string(text.empty() ? texts::loadString(row.id) : text));
  }
  return all;
}

val colours(const std::string& theme) {
  const auto chosen = theme == "dark" ? preview::Theme::Dark : preview::Theme::Light;
  val all = val::object();
  all.set("background", colourValue(preview::backgroundColour(chosen)));
  all.set("note", colourValue(preview::noteColour(chosen)));
  all.set("drawing", colourValue(preview::drawingColour(chosen)));
  all.set("paleDrawing", colourValue(preview::paleDrawingColour(chosen)));
  all.set("onlyDrawing", colourValue(preview::onlyDrawingColour(chosen)));
  all.set("onlyResult", colourValue(preview::onlyResultColour(chosen)));
  all.set("warning", colourValue(preview::warningColour(chosen)));
  all.set("mark", colourValue(preview::markColour(chosen)));
  return all;
}

Options defaultOptions() { return optionsOf(defaultSettings(desk().texts())); }

Options withTarget(const Options& options, const std::string& target) {
  settings::Settings settings = settingsOf(options);
  settings::selectTarget(settings, targetOf(target), desk().texts());
  return optionsOf(settings);
}

val layerChoices(const std::string& target) {
  return textList(settings::layersOf(targetOf(target), desk().texts()));
}
val editorLayers() { return textList(texts::editorLayers(desk().texts())); }

val warnings(const Options& options) {
  return messageList(settings::fieldWarnings(settingsOf(options), desk().texts()));
}

std::string nameOf(const std::string& file) {
  return batch::nameFromFile(files::fromPath(files::toPath(fileName(file)).stem()));
}

void openDrawing(const val& file) {
  guarded([&] { desk().openDrawing(file); });
}
void closeDrawing() {
  guarded([] { desk().closeDrawing(); });
}
val layers() {
  return guarded([] { return textList(desk().layers()); });
}
void openLayerFile(const std::string& name, const std::string& bytes) {
  guarded([&] { desk().openLayerFile(name, bytes); });
}
void closeLayerFile() {
  guarded([] { desk().closeLayerFile(); });
}
val layerFile() {
  return guarded([] { return desk().layerFile(); });
}
val assignedLayers() {
  return guarded([] { return desk().assignedLayers(); });
}
std::string assignLayer(const std::string& name, const std::string& entry) {
  return guarded([&] { return desk().assignLayer(name, entry); });
}
std::string setAreas(const std::string& name, bool areas) {
  return guarded([&] { return desk().setAreas(name, areas); });
}
val readResult(const Options& options) {
  return guarded([&] { return desk().readResult(options); });
}
val readDrawing() {
  return guarded([] { return desk().readDrawing(); });
}
val compare() {
  return guarded([] { return desk().compare(); });
}
val facts() {
  return guarded([] { return desk().facts(); });
}
val scene(const std::string& which) {
  return guarded([&] { return desk().scene(which); });
}
val differences() {
  return guarded([] { return desk().differences(); });
}
Options takeOffer(const std::string& offer, const Options& options) {
  return guarded([&] { return desk().takeOffer(offer, options); });
}
val nearestPlace(const std::string& which, double x, double y, double reach, const val& hidden) {
  return guarded([&] {
    return desk().nearestPlace(which, {x, y}, reach,
                               emscripten::convertJSArrayToNumberVector<int>(hidden));
  });
}
std::string placeText(double x, double y) { return workbench::placeText({x, y}); }
std::string distanceText(double x0, double y0, double x1, double y1) {
  return workbench::distanceText({x0, y0}, {x1, y1}, desk().texts());
}
val convertDrawing(const Options& options, bool unlimited, const val& progress) {
  return guarded([&] { return desk().convert(options, unlimited, progress); });
}

}  // namespace

EMSCRIPTEN_BINDINGS(quillon) {
  emscripten::value_object<Options>("Options")
      .field("rules", &Options::rules)
      .field("target", &Options::target)
      .field("eagle", &Options::eagle)
      .field("unit", &Options::unit)
      .field("scale", &Options::scale)
      .field("offsetX", &Options::offsetX)
      .field("offsetY", &Options::offsetY)
      .field("name", &Options::name)
      .field("layer", &Options::layer)
      .field("poly", &Options::poly)
      .field("polyWidth", &Options::polyWidth)
      .field("blocks", &Options::blocks)
      .field("dotted", &Options::dotted)
      .field("ellipses", &Options::ellipses)
      .field("arcToLine", &Options::arcToLine)
      .field("exact", &Options::exact);
  using emscripten::function;
  function("version", &version);
  function("setLanguage", &setLanguage);
  function("texts", &allTexts);
  function("colours", &colours);
  function("defaultOptions", &defaultOptions);
  function("withTarget", &withTarget);
  function("exactWords", &exactWords);
  function("layerChoices", &layerChoices);
  function("editorLayers", &editorLayers);
  function("warnings", &warnings);
  function("nameOf", &nameOf);
  function("openDrawing", &openDrawing);
  function("closeDrawing", &closeDrawing);
  function("layers", &layers);
  function("openLayerFile", &openLayerFile);
  function("closeLayerFile", &closeLayerFile);
  function("layerFile", &layerFile);
  function("assignedLayers", &assignedLayers);
  function("assignLayer", &assignLayer);
  function("setAreas", &setAreas);
  function("readResult", &readResult);
  function("readDrawing", &readDrawing);
  function("compare", &compare);
  function("facts", &facts);
  function("scene", &scene);
  function("differences", &differences);
  function("takeOffer", &takeOffer);
  function("nearestPlace", &nearestPlace);
  function("placeText", &placeText);
  function("distanceText", &distanceText);
  function("convert", &convertDrawing);
}

}  // namespace quillon::web

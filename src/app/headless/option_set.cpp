#include "app/headless/option_set.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "app/console/terminal.h"
#include "app/headless/help_formatter.h"
#include "app/headless/option_checks.h"
#include "base/number_text.h"
#include "texts/string_table.h"

namespace quillon::headless {

OptionSet::OptionSet() : OptionSet(nullptr) {}

OptionSet::OptionSet(const std::vector<std::string>& arguments) : OptionSet(&arguments) {}

OptionSet::OptionSet(const std::vector<std::string>* arguments)
    : app_("Turns DXF drawings into scripts for the EAGLE PCB editor.", "quillon-convert") {
  options_.languageOffset = console::userSpeaksGerman() ? texts::kGerman : texts::kEnglish;
  app_.allow_windows_style_options(false);  // "/name" is a path on every system
  OptionAdder adder(app_, arguments);
  addInputs(adder);
  addResults(adder);
  addDrawing(adder);
  addEntities(adder);
  exact_.addOptions(adder);
  addLimits(adder);
  addProgram(adder);
  addHelp(adder);
}

void OptionSet::parse(std::vector<std::string> arguments) {
  std::reverse(arguments.begin(), arguments.end());  // the parser expects them reversed
  app_.parse(std::move(arguments));
}

std::string OptionSet::finish() {
  convert::ConversionJob& job = options_.job;
  job.scale = base::numberValue(job.scaleText);
  job.offsetX = base::numberValue(offsetX_);
  job.offsetY = base::numberValue(offsetY_);
  job.polyWidth = base::numberValue(polyWidth_);
  if (options_.newer) job.overwriteScript = true;
  return exact_.finish(unit_.isGiven());
}

bool OptionSet::isConfigurable(const std::string& name) const {
  for (const char* const other : {"config", "no-config", "files-from", "null", "help", "version"}) {
    if (name == other) return false;
  }
  // A single letter would be the short name of an option.
  return name.size() > 1 && app_.get_option_no_throw("--" + name) != nullptr;
}

bool OptionSet::isSwitch(const std::string& name) const {
  const CLI::Option* const option = app_.get_option_no_throw("--" + name);
  return option != nullptr && option->get_expected_min() == 0;
}

bool OptionSet::isGiven(const std::string& name) const {
  const CLI::Option* const option = app_.get_option_no_throw("--" + name);
  return option != nullptr && option->count() > 0;
}

void OptionSet::addInputs(OptionAdder& adder) {
  adder.heading("Drawings");
  adder
      .option("drawings", options_.inputs,
              "DXF drawings, or folders of them; - reads standard input")
      .valueName("DRAWING.dxf...");
  adder.flag("--recursive", options_.recursive,
             "Search subfolders too, and keep them below folders for results");
  adder
      .option("--files-from", options_.filesFrom,
              "File with the paths of drawings, one on each line; - reads standard input [none]")
      .valueName("FILE");
  adder.flag("-0,--null", options_.nulSeparated, "The paths in that file end with NUL characters");
  adder.flag("--newer", options_.newer,
             "Convert only drawings newer than their scripts, and replace those");
}

void OptionSet::addResults(OptionAdder& adder) {
  adder.heading("Results");
  adder
      .option("-o,--output", options_.output,
              "Script to write, a folder for several; - writes standard output [beside the "
              "drawing]")
      .valueName("FILE");
  adder.flag("--force", options_.job.overwriteScript, "Replace existing scripts and reports");
  adder
      .option("--report", options_.report,
              "Write the conversion report; a folder for several [none]")
      .valueName("FILE");
  adder
      .option("--preview", options_.preview,
              "Write a picture of what the script draws, as SVG; a folder for several [none]")
      .valueName("FILE.svg");
  adder.choice("--preview-theme", options_.previewTheme, {{"light", 0}, {"dark", 1}}, "light|dark",
               "Background of the picture [light]");
  adder.flag("--no-script", options_.discardScript, "Write no script, with --preview");
}

void OptionSet::addDrawing(OptionAdder& adder) {
  adder.heading("What the script draws");
  convert::ConversionJob& job = options_.job;
  adder.option("--name", options_.name, "Name of the board, schematic or library [file name]")
      .valueName("TEXT");
  adder.choice("--target", job.targetKind,
               {{"board", 0}, {"schematic", 1}, {"package", 2}, {"symbol", 3}},
               "board|schematic|package|symbol", "What the script draws into [board]");
  unit_ = adder.choice("--unit", job.unit, {{"mic", 0}, {"mm", 1}, {"mil", 2}, {"inch", 3}},
                       "mic|mm|mil|inch", "Unit of the drawing [mil]");
  adder.option("--scale", job.scaleText, "Factor on all coordinates [1.000]")
      .check(checkScale)
      .valueName("NUMBER");
  adder.option("--offset-x", offsetX_, "Added to every x [0]")
      .check(checkNumber)
      .valueName("NUMBER");
  adder.option("--offset-y", offsetY_, "Added to every y [0]")
      .check(checkNumber)
      .valueName("NUMBER");
  adder.choice("--eagle", job.version,
               {{"3.5", convert::kEagle3}, {"4", convert::kEagle4}, {"6", convert::kEagle6}},
               "3.5|4|6", "EAGLE version: 3.5, 4 for 4.x and 5.x, or 6 for 6 and later [4]");
  exact_.addRules(adder);
  adder
      .option("--frame", options_.frame,
              "File with the first and last lines of the script [built in]")
      .valueName("FILE.cfh");
}

void OptionSet::addEntities(OptionAdder& adder) {
  convert::ConversionJob& job = options_.job;
  adder.option("--layers", job.layerFile, "Layer assignment file [none]").valueName("FILE.lay");
  adder
      .option("--layer", job.defaultLayer,
              "EAGLE layer for layers without an assignment [20 Dimension (B)]")
      .check(checkLayer)
      .valueName("TEXT-OR-NUMBER");
  adder.choice(
      "--poly", job.poly,
      {{"-1", -1}, {"0", 0}, {"1", 1}, {"2", 2}, {"wire0", 0}, {"wire", 1}, {"polyline", 2}},
      "wire0|wire|polyline|-1", "What polylines become [polyline]");
  adder.option("--poly-width", polyWidth_, "Width of polylines without a width [0]")
      .check(checkNumber)
      .valueName("NUMBER");
  adder.choice(
      "--blocks", job.blocks, {{"0", 0}, {"1", 1}, {"2", 2}, {"draw", 0}, {"used", 1}, {"all", 2}},
      "draw|used|all", "Draw blocks in place, or make the used ones or all library parts [draw]");
  adder.flag("--dotted", job.dotted, "Draw dashed line types as short wires");
  adder.flag("--ellipses", job.ellipses, "Draw ellipses as wires instead of circles");
  adder.flag("--arc-to-line", job.arcToLine, "Draw arcs that leave EAGLE's range as wires");
}

void OptionSet::addLimits(OptionAdder& adder) {
  adder.heading("Limits of each conversion");
  const rules::WorkLimits& usual = convert::kUsualLimits;
  adder
      .optionFunction(
          "--max-input",
          [this](const std::string& text) {
            options_.input.file = options_.input.pipe = *sizeOf(text);
          },
          "Refuse drawings with more bytes; K, M or G may follow the number [4G from a pipe]")
      .check(checkSize)
      .valueName("SIZE");
  adder
      .optionFunction(
          "--max-lines",
          [this](const std::string& text) { options_.limits.lines = *wholeNumberOf(text); },
          "Stop a conversion after this many lines [" + std::to_string(usual.lines) + "]")
      .check([](const std::string& text) { return checkCount(text, "lines"); })
      .valueName("N");
  adder
      .optionFunction(
          "--max-steps",
          [this](const std::string& text) { options_.limits.steps = *wholeNumberOf(text); },
          "Stop a conversion after this many steps [" + std::to_string(usual.steps) + "]")
      .check([](const std::string& text) { return checkCount(text, "steps"); })
      .valueName("N");
  adder.flag("--keep-partial", options_.keepPartial,
             "Keep the incomplete script of a conversion that reaches a limit");
}

void OptionSet::addProgram(OptionAdder& adder) {
  adder.heading("Program");
  constexpr unsigned kMostJobs = 256;
  adder
      .optionFunction(
          "--jobs",
          [this](const std::string& text) {
            options_.jobs = static_cast<unsigned>(*wholeNumberOf(text));
          },
          "Conversions at the same time, up to 256 [1]")
      .check([](const std::string& text) { return checkUpTo(text, kMostJobs); })
      .valueName("N");
  adder.flag("--quiet", options_.quiet, "Print errors and warnings only");
  adder.flag("--json", options_.json, "Print one JSON object for each conversion");
  adder.choice("--language", options_.languageOffset,
               {{"de", texts::kGerman}, {"en", texts::kEnglish}}, "de|en",
               "Language of messages and report [of the locale]");
}

void OptionSet::addHelp(OptionAdder& adder) {
  adder
      .option("--config", options_.config,
              "Read options from this file [quillon-convert.toml of the user]")
      .valueName("FILE");
  adder.flag("--no-config", options_.noConfig, "Read options from no file");
  if (!adder.addsAll()) return;
  app_.formatter(std::make_shared<HelpFormatter>());
  app_.option_defaults()->group("Program");
  app_.set_version_flag("--version", "quillon-convert " QUILLON_VERSION,
                        "Print the version and exit");
  // The parser adds its own first; this one comes last.
  app_.set_help_flag("-h,--help", "Print this text and exit");
}

}  // namespace quillon::headless

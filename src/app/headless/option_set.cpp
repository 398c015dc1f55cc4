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

OptionSet::OptionSet()
    : app_("Turns DXF drawings into scripts for the EAGLE PCB editor.", "quillon-convert") {
  options_.languageOffset = console::userSpeaksGerman() ? texts::kGerman : texts::kEnglish;
  app_.allow_windows_style_options(false);  // "/name" is a path on every system
  app_.formatter(std::make_shared<HelpFormatter>());
  addInputs();
  addResults();
  exact_.emplace(app_, options_.job);
  addDrawing();
  addEntities();
  exact_->addOptions();
  addLimits();
  addProgram();
  addHelp();
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
  return exact_->finish();
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

void OptionSet::addInputs() {
  heading("Drawings");
  app_.add_option("drawings", options_.inputs,
                  "DXF drawings, or folders of them; - reads standard input")
      ->type_name("DRAWING.dxf...");
  app_.add_flag("--recursive", options_.recursive,
                "Search subfolders too, and keep them below folders for results");
  app_.add_option(
          "--files-from", options_.filesFrom,
          "File with the paths of drawings, one on each line; - reads standard input [none]")
      ->type_name("FILE");
  app_.add_flag("-0,--null", options_.nulSeparated,
                "The paths in that file end with NUL characters");
  app_.add_flag("--newer", options_.newer,
                "Convert only drawings newer than their scripts, and replace those");
}

void OptionSet::addResults() {
  heading("Results");
  app_.add_option("-o,--output", options_.output,
                  "Script to write, a folder for several; - writes standard output [beside the "
                  "drawing]")
      ->type_name("FILE");
  app_.add_flag("--force", options_.job.overwriteScript, "Replace existing scripts and reports");
  app_.add_option("--report", options_.report,
                  "Write the conversion report; a folder for several [none]")
      ->type_name("FILE");
  app_.add_option("--preview", options_.preview,
                  "Write a picture of what the script draws, as SVG; a folder for several [none]")
      ->type_name("FILE.svg");
  addChoice(app_, "--preview-theme", options_.previewTheme, {{"light", 0}, {"dark", 1}},
            "light|dark", "Background of the picture [light]");
  app_.add_flag("--no-script", options_.discardScript, "Write no script, with --preview");
}

void OptionSet::addDrawing() {
  heading("What the script draws");
  convert::ConversionJob& job = options_.job;
  app_.add_option("--name", options_.name, "Name of the board, schematic or library [file name]")
      ->type_name("TEXT");
  addChoice(app_, "--target", job.targetKind,
            {{"board", 0}, {"schematic", 1}, {"package", 2}, {"symbol", 3}},
            "board|schematic|package|symbol", "What the script draws into [board]");
  addChoice(app_, "--unit", job.unit, {{"mic", 0}, {"mm", 1}, {"mil", 2}, {"inch", 3}},
            "mic|mm|mil|inch", "Unit of the drawing [mil]");
  app_.add_option("--scale", job.scaleText, "Factor on all coordinates [1.000]")
      ->check(quietCheck(checkScale))
      ->type_name("NUMBER");
  app_.add_option("--offset-x", offsetX_, "Added to every x [0]")
      ->check(quietCheck(checkNumber))
      ->type_name("NUMBER");
  app_.add_option("--offset-y", offsetY_, "Added to every y [0]")
      ->check(quietCheck(checkNumber))
      ->type_name("NUMBER");
  addChoice(app_, "--eagle", job.version,
            {{"3.5", convert::kEagle3}, {"4", convert::kEagle4}, {"6", convert::kEagle6}},
            "3.5|4|6", "EAGLE version: 3.5, 4 for 4.x and 5.x, or 6 for 6 and later [4]");
  exact_->addRules();
  app_.add_option("--frame", options_.frame,
                  "File with the first and last lines of the script [built in]")
      ->type_name("FILE.cfh");
}

void OptionSet::addEntities() {
  convert::ConversionJob& job = options_.job;
  app_.add_option("--layers", job.layerFile, "Layer assignment file [none]")->type_name("FILE.lay");
  app_.add_option("--layer", job.defaultLayer,
                  "EAGLE layer for layers without an assignment [20 Dimension (B)]")
      ->check(quietCheck(checkLayer))
      ->type_name("TEXT-OR-NUMBER");
  addChoice(app_, "--poly", job.poly,
            {{"-1", -1}, {"0", 0}, {"1", 1}, {"2", 2}, {"wire0", 0}, {"wire", 1}, {"polyline", 2}},
            "wire0|wire|polyline|-1", "What polylines become [polyline]");
  app_.add_option("--poly-width", polyWidth_, "Width of polylines without a width [0]")
      ->check(quietCheck(checkNumber))
      ->type_name("NUMBER");
  addChoice(app_, "--blocks", job.blocks,
            {{"0", 0}, {"1", 1}, {"2", 2}, {"draw", 0}, {"used", 1}, {"all", 2}}, "draw|used|all",
            "Draw blocks in place, or make the used ones or all library parts [draw]");
  app_.add_flag("--dotted", job.dotted, "Draw dashed line types as short wires");
  app_.add_flag("--ellipses", job.ellipses, "Draw ellipses as wires instead of circles");
  app_.add_flag("--arc-to-line", job.arcToLine, "Draw arcs that leave EAGLE's range as wires");
}

void OptionSet::addLimits() {
  heading("Limits of each conversion");
  const rules::WorkLimits& usual = convert::kUsualLimits;
  app_.add_option_function<std::string>(
          "--max-input",
          [this](const std::string& text) {
            options_.input.file = options_.input.pipe = *sizeOf(text);
          },
          "Refuse drawings with more bytes; K, M or G may follow the number [4G from a pipe]")
      ->check(quietCheck(checkSize))
      ->type_name("SIZE");
  app_.add_option("--max-lines", options_.limits.lines,
                  "Stop a conversion after this many lines [" + std::to_string(usual.lines) + "]")
      ->check(countOf("lines"))
      ->type_name("N");
  app_.add_option("--max-steps", options_.limits.steps,
                  "Stop a conversion after this many steps [" + std::to_string(usual.steps) + "]")
      ->check(countOf("steps"))
      ->type_name("N");
  app_.add_flag("--keep-partial", options_.keepPartial,
                "Keep the incomplete script of a conversion that reaches a limit");
}

void OptionSet::addProgram() {
  heading("Program");
  constexpr unsigned kMostJobs = 256;
  app_.add_option("--jobs", options_.jobs, "Conversions at the same time, up to 256 [1]")
      ->check(upTo(kMostJobs))
      ->type_name("N");
  app_.add_flag("--quiet", options_.quiet, "Print errors and warnings only");
  app_.add_flag("--json", options_.json, "Print one JSON object for each conversion");
  addChoice(app_, "--language", options_.languageOffset,
            {{"de", texts::kGerman}, {"en", texts::kEnglish}}, "de|en",
            "Language of messages and report [of the locale]");
}

void OptionSet::addHelp() {
  app_.add_option("--config", options_.config,
                  "Read options from this file [quillon-convert.toml of the user]")
      ->type_name("FILE");
  app_.add_flag("--no-config", options_.noConfig, "Read options from no file");
  app_.set_version_flag("--version", "quillon-convert " QUILLON_VERSION,
                        "Print the version and exit");
  // The parser adds its own first; this one comes last.
  app_.set_help_flag("-h,--help", "Print this text and exit");
}

}  // namespace quillon::headless

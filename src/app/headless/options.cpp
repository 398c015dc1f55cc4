#include "app/headless/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <map>
#include <system_error>
#include <utility>

#include "app/console/console.h"
#include "app/console/terminal.h"
#include "app/headless/exact_options.h"
#include "app/headless/option_checks.h"
#include "base/number_text.h"
#include "base/quotable.h"
#include "convert/layer_file.h"
#include "convert/messages.h"
#include "files/paths.h"
#include "texts/string_table.h"

namespace quillon::headless {
std::string checkNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  const bool whole = end != text.c_str() && *end == '\0';
  const bool plain = text.find_first_not_of("+-.0123456789eE") == std::string::npos;
  if (whole && plain && std::isfinite(base::numberValue(text))) return {};
  return "\"" + text + "\" is not a number";
}

namespace {

std::string checkScale(const std::string& text) {
  std::string error = checkNumber(text);
  if (error.empty() && base::numberValue(text) == 0.0) error = "the scale factor must not be 0";
  return error;
}

/// Requires the number of an EAGLE layer, which a name may follow. A negative number would make
/// EAGLE delete layers.
std::string checkLayer(const std::string& text) {
  if (convert::isEagleLayer(text)) return {};
  return "\"" + text + "\" is not an EAGLE layer from 1 to 255, or 999";
}

/// A validator for a positive whole number of something.
CLI::Validator countOf(const std::string& things) {
  const auto check = [things](const std::string& text) -> std::string {
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    constexpr std::size_t kMostDigits = 18;
    const bool positive = text.find_first_not_of('0') != std::string::npos;
    if (digits && positive && text.size() <= kMostDigits) return {};
    return "\"" + text + "\" is not a number of " + things;
  };
  return {check, "NUMBER"};
}

/// A number of bytes; K, M and G multiply by powers of 1,024. Nothing for an invalid text.
std::optional<std::uint64_t> sizeOf(std::string_view text) {
  constexpr std::string_view kSuffixes = "KMG";
  constexpr unsigned kBitsEach = 10;
  unsigned shift = 0;
  if (!text.empty()) {
    const auto last = static_cast<char>(std::toupper(static_cast<unsigned char>(text.back())));
    const std::size_t power = kSuffixes.find(last);
    if (power != std::string_view::npos) {
      shift = kBitsEach * static_cast<unsigned>(power + 1);
      text.remove_suffix(1);
    }
  }
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool fits = number <= std::numeric_limits<std::uint64_t>::max() >> shift;
  if (error != std::errc{} || stop != end || number == 0 || !fits) return std::nullopt;
  return number << shift;
}

std::string checkSize(const std::string& text) {
  return sizeOf(text) ? "" : "\"" + text + "\" is not a size";
}

/// Texts of options that are converted to numbers after parsing.
struct NumberTexts {
  std::string offsetX = "0";
  std::string offsetY = "0";
  std::string polyWidth = "0";
};

void addJobOptions(CLI::App& app, Options& options, NumberTexts& numbers) {
  convert::ConversionJob& job = options.job;
  app.add_option("--name", options.name, "Name of the board, schematic or library [file name]");
  addChoice(app, "--target", job.targetKind,
            {{"board", 0}, {"schematic", 1}, {"package", 2}, {"symbol", 3}},
            "board|schematic|package|symbol", "What the script draws into [board]");
  addChoice(app, "--unit", job.unit, {{"mic", 0}, {"mm", 1}, {"mil", 2}, {"inch", 3}},
            "mic|mm|mil|inch", "Unit of the drawing [mil]");
  app.add_option("--scale", job.scaleText, "Factor on all coordinates [1.000]")
      ->check(CLI::Validator(checkScale, "NUMBER"));
  addChoice(app, "--eagle", job.version,
            {{"3.5", convert::kEagle3}, {"4", convert::kEagle4}, {"6", convert::kEagle6}},
            "3.5|4|6", "EAGLE version: 3.5, 4 for 4.x and 5.x, or 6 for 6 and later [4]");
  app.add_option("--layer", job.defaultLayer, "EAGLE layer for layers without an assignment")
      ->check(CLI::Validator(checkLayer, ""))
      ->type_name("TEXT-OR-NUMBER");
  app.add_option("--layers", job.layerFile, "Layer assignment file")->type_name("FILE.lay");
  addChoice(app, "--poly", job.poly,
            {{"-1", -1}, {"0", 0}, {"1", 1}, {"2", 2}, {"wire0", 0}, {"wire", 1}, {"polyline", 2}},
            "wire0|wire|polyline|-1", "What polylines become [polyline]");
  addChoice(app, "--blocks", job.blocks,
            {{"0", 0}, {"1", 1}, {"2", 2}, {"draw", 0}, {"used", 1}, {"all", 2}}, "draw|used|all",
            "Draw blocks in place, or make the used ones or all library parts [draw]");
  app.add_flag("--dotted", job.dotted, "Draw dashed line types as short wires");
  app.add_flag("--ellipses", job.ellipses, "Draw ellipses as wires instead of circles");
  app.add_flag("--arc-to-line", job.arcToLine, "Draw arcs that leave EAGLE's range as wires");
  const CLI::Validator number(checkNumber, "NUMBER");
  app.add_option("--offset-x", numbers.offsetX, "Added to every x [0]")->check(number);
  app.add_option("--offset-y", numbers.offsetY, "Added to every y [0]")->check(number);
  app.add_option("--poly-width", numbers.polyWidth, "Width of polylines without a width [0]")
      ->check(number);
}

/// The limits for each conversion.
void addLimits(CLI::App& app, Options& options) {
  const rules::WorkLimits& usual = convert::kUsualLimits;
  app.add_option_function<std::string>(
         "--max-input",
         [&options](const std::string& text) {
           options.input.file = options.input.pipe = *sizeOf(text);
         },
         "Refuse drawings with more bytes; K, M or G may follow the number [4G from a pipe]")
      ->check(CLI::Validator(checkSize, "SIZE"));
  app.add_option("--max-lines", options.limits.lines,
                 "Stop a conversion after this many lines [" + std::to_string(usual.lines) + "]")
      ->check(countOf("lines"));
  app.add_option("--max-steps", options.limits.steps,
                 "Stop a conversion after this many steps [" + std::to_string(usual.steps) + "]")
      ->check(countOf("steps"));
  app.add_flag("--keep-partial", options.keepPartial,
               "Keep the incomplete script of a conversion that reaches a limit");
}

void addProgramOptions(CLI::App& app, Options& options) {
  app.add_option("drawings", options.inputs,
                 "DXF drawings, or folders of them; - reads standard input")
      ->required()
      ->type_name("DRAWING.dxf");
  app.add_option("-o,--output", options.output,
                 "Script to write, a folder for several; - writes standard output")
      ->type_name("SCRIPT.scr");
  addChoice(app, "--language", options.languageOffset,
            {{"de", texts::kGerman}, {"en", texts::kEnglish}}, "de|en",
            "Language of messages and report [of the locale]");
  app.add_option("--frame", options.frame, "File with the first and last lines of the script")
      ->type_name("FILE.cfh");
  app.add_option("--report", options.report, "Write the conversion report; a folder for several")
      ->type_name("FILE");
  app.add_option("--preview", options.preview,
                 "Write a picture of what the script draws, as SVG; a folder for several")
      ->type_name("FILE.svg");
  addChoice(app, "--preview-theme", options.previewTheme, {{"light", 0}, {"dark", 1}}, "light|dark",
            "Background of the picture [light]");
  app.add_flag("--no-script", options.discardScript, "Write no script, with --preview");
  app.add_flag("--force", options.job.overwriteScript, "Replace existing scripts and reports");
  app.add_flag("--newer", options.newer,
               "Convert only drawings that are newer than their scripts, and replace those");
  addLimits(app, options);
  app.add_option("--jobs", options.jobs, "Conversions at the same time [1]")
      ->check(CLI::Range(1, 256));
  app.add_flag("--quiet", options.quiet, "Print errors and warnings only");
  app.add_flag("--json", options.json, "Print one JSON object for each conversion");
}

/// Checks rules that involve several options; "" when they hold.
std::string checkTogether(const Options& options) {
  const bool one = options.inputs.size() == 1;
  for (const std::string& input : options.inputs) {
    if (input == "-" && !one) return "- cannot be combined with other drawings";
    if (input.empty()) return "the name of a drawing is empty";
  }
  const bool toOutput = !options.discardScript &&
                        (options.output ? *options.output == "-" : options.inputs.front() == "-");
  if (toOutput && !one) return "-o - takes one drawing only";
  if (toOutput && options.json) return "--json and the script cannot both go to standard output";
  if (options.newer && toOutput) return "--newer needs scripts that are files";
  if (options.newer && options.inputs.front() == "-")
    return "--newer needs drawings that are files";
  if (options.output && options.output->empty()) return "the name of the script is empty";
  if (options.report && options.report->empty()) return "the name of the report is empty";
  if (options.preview && options.preview->empty()) return "the name of the preview is empty";
  if (options.discardScript) {
    if (!options.preview) return "--no-script needs --preview: nothing would be written";
    if (options.output) return "-o and --no-script exclude each other";
    if (options.newer) return "--newer needs scripts that are files";
  }
  if (options.name && !one) return "--name takes one drawing only";
  const bool noName =
      options.name ? base::trimBlanks(*options.name).empty() : options.inputs.front() == "-";
  if (options.job.blocks != convert::kDrawBlocks && noName) {
    return "--blocks used and --blocks all need a name: the library is named like the drawing";
  }
  return {};
}

/// Completes paths as other programs on this system do.
void completePaths(Options& options) {
  std::vector<std::string> inputs;
  for (std::string& input : options.inputs) {
    std::vector<std::string> found = files::expandWildcards(files::pathArgument(std::move(input)));
    std::move(found.begin(), found.end(), std::back_inserter(inputs));
  }
  options.inputs = std::move(inputs);
  for (std::optional<std::string>* const path :
       {&options.output, &options.report, &options.preview, &options.frame}) {
    if (*path) **path = files::pathArgument(std::move(**path));
  }
  options.job.layerFile = files::pathArgument(std::move(options.job.layerFile));
}

}  // namespace

int usageError(const std::string& message) {
  console::Console(false).printError("quillon-convert: " + base::quotable(message) +
                                     "\nTry 'quillon-convert --help'.\n");
  return kWrongUsage;
}

Options parseOptions(std::vector<std::string> arguments, std::optional<int>& exitCode) {
  Options options;
  options.languageOffset = console::userSpeaksGerman() ? texts::kGerman : texts::kEnglish;
  NumberTexts numbers;
  CLI::App app("Turns DXF drawings into scripts for the EAGLE PCB editor.", "quillon-convert");
  app.set_version_flag("--version", "quillon-convert " QUILLON_VERSION);
  app.allow_windows_style_options(false);  // "/name" is a path on every system
  app.get_formatter()->column_width(34);
  addProgramOptions(app, options);
  addJobOptions(app, options, numbers);
  ExactOptions exact(app, options.job);
  try {
    std::reverse(arguments.begin(), arguments.end());  // the parser expects them reversed
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    const bool asked = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
    exitCode = asked ? app.exit(error) : usageError(error.what());
    return options;
  }
  options.job.scale = base::numberValue(options.job.scaleText);
  options.job.offsetX = base::numberValue(numbers.offsetX);
  options.job.offsetY = base::numberValue(numbers.offsetY);
  options.job.polyWidth = base::numberValue(numbers.polyWidth);
  if (options.newer) options.job.overwriteScript = true;
  completePaths(options);
  std::string wrong = exact.finish();
  if (wrong.empty()) wrong = checkTogether(options);
  if (!wrong.empty()) exitCode = usageError(wrong);
  return options;
}

}  // namespace quillon::headless

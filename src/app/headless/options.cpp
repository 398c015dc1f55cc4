#include "app/headless/options.h"

#include <iterator>
#include <utility>

#include "app/console/console.h"
#include "app/headless/configured_arguments.h"
#include "app/headless/option_set.h"
#include "base/number_text.h"
#include "base/quotable.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

/// Checks rules that involve several options; "" when they hold.
std::string checkTogether(const Options& options) {
  if (options.inputs.empty() && !options.filesFrom) {
    return "a drawing, a folder or --files-from is needed";
  }
  if (options.filesFrom && options.filesFrom->empty()) return "the name of the list is empty";
  if (options.nulSeparated && !options.filesFrom) return "--null needs --files-from";
  const bool one = options.inputs.size() == 1 && !options.filesFrom;
  const bool fromInput = one && options.inputs.front() == "-";
  for (const std::string& input : options.inputs) {
    if (input == "-" && !one) return "- cannot be combined with other drawings";
    if (input.empty()) return "the name of a drawing is empty";
  }
  const bool toOutput =
      !options.discardScript && (options.output ? *options.output == "-" : fromInput);
  if (toOutput && !one) return "-o - takes one drawing only";
  if (toOutput && options.json) return "--json and the script cannot both go to standard output";
  if (options.newer && toOutput) return "--newer needs scripts that are files";
  if (options.newer && fromInput) return "--newer needs drawings that are files";
  if (options.output && options.output->empty()) return "the name of the script is empty";
  if (options.report && options.report->empty()) return "the name of the report is empty";
  if (options.preview && options.preview->empty()) return "the name of the preview is empty";
  if (options.discardScript) {
    if (!options.preview) return "--no-script needs --preview: nothing would be written";
    if (options.output) return "-o and --no-script exclude each other";
    if (options.newer) return "--newer needs scripts that are files";
  }
  if (options.name && !one) return "--name takes one drawing only";
  const bool noName = options.name ? base::trimBlanks(*options.name).empty() : fromInput;
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
       {&options.output, &options.report, &options.preview, &options.frame, &options.filesFrom}) {
    if (*path) **path = files::pathArgument(std::move(**path));
  }
  options.job.layerFile = files::pathArgument(std::move(options.job.layerFile));
}

/// Completes the options that were parsed. Says what is wrong with them, or "".
std::string finish(OptionSet& set) {
  const std::string wrong = set.finish();
  completePaths(set.options());
  return wrong.empty() ? checkTogether(set.options()) : wrong;
}

/// Parses the arguments with a set of options for them. Throws CLI::ParseError.
Options parseWith(OptionSet& typed, const std::vector<std::string>& arguments,
                  std::optional<int>& exitCode, const std::filesystem::path& configFolder) {
  typed.parse(arguments);
  try {
    const ConfiguredArguments config(typed, configFolder);
    if (!config.isEmpty()) {
      OptionSet both;
      config.parse(both, arguments);
      const std::string wrong = finish(both);
      if (!wrong.empty()) {
        // Both may be to blame, unless the arguments are wrong by themselves.
        const std::string own = finish(typed);
        exitCode = usageError(own == wrong ? wrong : wrong + config.hint());
      }
      return std::move(both.options());
    }
  } catch (const WrongConfig& error) {
    exitCode = usageError(error.what());
    return std::move(typed.options());
  }
  const std::string wrong = finish(typed);
  if (!wrong.empty()) exitCode = usageError(wrong);
  return std::move(typed.options());
}

}  // namespace

int usageError(const std::string& message) {
  constexpr std::size_t kLongestMessage = 1000;  // with a path or two
  console::Console(false).printError(
      "quillon-convert: " + base::quotable(message, kLongestMessage) +
      "\nTry 'quillon-convert --help'.\n");
  return kWrongUsage;
}

Options parseOptions(const std::vector<std::string>& arguments, std::optional<int>& exitCode,
                     const std::filesystem::path& configFolder) {
  {
    OptionSet named(arguments);
    try {
      return parseWith(named, arguments, exitCode, configFolder);
    } catch (const CLI::ParseError&) {  // NOLINT(bugprone-empty-catch)
      // All options say what is wrong, or what there is.
    }
  }
  OptionSet all;
  try {
    return parseWith(all, arguments, exitCode, configFolder);
  } catch (const CLI::ParseError& error) {
    const bool asked = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
    exitCode = asked ? all.app().exit(error) : usageError(error.what());
    return std::move(all.options());
  }
}

}  // namespace quillon::headless

#include "conversion_input.h"

#include <array>

#include "parts.h"

namespace quillon::fuzz {
namespace {

constexpr std::array<double, 10> kScales = {1.0,  0.0,  -1.0,   0.5,   25.4,
                                            1e-9, 1e30, 1e-300, 1e300, -1e308};
constexpr std::array<double, 10> kNumbers = {0.0,  1.0,   -1.0,   0.5,   838.86,
                                             1e-9, 1e308, 1e-300, 33026, -1e308};

constexpr std::array<double, 4> kJoins = {0.01, 0.0, 1.0, 0.1};
constexpr std::array<double, 4> kWidths = {0.0, 0.1, 1.0, 1e9};

template <typename Choice>
Choice choiceOf(std::size_t digit, std::size_t choices) {
  return static_cast<Choice>(digit % choices);
}

/// The same for an option of the exact rules.
void readExactChoice(exact::Options& options, char letter, std::size_t digit) {
  switch (letter) {
    case 'h':
      options.hatch = choiceOf<exact::HatchStyle>(digit, 4);
      break;
    case 'i':
      options.lineTypes = choiceOf<exact::LineTypes>(digit, 3);
      break;
    case 'n':
      options.points = choiceOf<exact::PointStyle>(digit, 4);
      break;
    case 'q':
      options.space = choiceOf<exact::Space>(digit, 3);
      break;
    case 'z':
      options.place = choiceOf<exact::Place>(digit, 3);
      break;
    case 'v':
      options.wideLines = choiceOf<exact::WideLines>(digit, 3);
      break;
    case 'j':
      options.joinTolerance = kJoins[digit % kJoins.size()];
      break;
    case 'f':
      options.fillWidth = kWidths[digit % kWidths.size()];
      break;
    default:
      break;
  }
}

/// Reads one option, and the digit after it if there is one.
void readChoice(ConversionInput& input, char letter, int digit) {
  convert::ConversionJob& job = input.job;
  const auto index = static_cast<std::size_t>(digit);
  switch (letter) {
    case 'u':
      job.unit = base::unitAt(digit - 1);
      break;
    case 't':
      job.targetKind = digit;
      break;
    case 'p':
      job.poly = digit - 1;
      break;
    case 'b':
      job.blocks = digit;
      break;
    case 's':
      job.scale = kScales[index];
      break;
    case 'x':
      job.offsetX = kNumbers[index];
      break;
    case 'y':
      job.offsetY = kNumbers[index];
      break;
    case 'w':
      job.polyWidth = kNumbers[index];
      break;
    case 'c':
      input.cancelAtPoll = std::uint64_t{1} << digit;
      break;
    case 'l':
      input.limits.steps = std::uint64_t{1} << 2 * digit;
      break;
    case 'm':
      input.limits.lines = std::uint64_t{1} << 2 * digit;
      break;
    default:
      readExactChoice(job.exact, letter, index);
  }
}

void readExactSwitch(ConversionInput& input, char letter) {
  exact::Options& options = input.job.exact;
  input.isForEagle6 = input.isForEagle6 || letter == 'E';
  options.closedAsAreas = options.closedAsAreas || letter == 'A';
  options.fillAlways = options.fillAlways || letter == 'F';
  options.chains = options.chains && letter != 'C';
  options.dropDuplicates = options.dropDuplicates && letter != 'D';
  options.hiddenLayers = options.hiddenLayers || letter == 'I';
  options.plainLetters = options.plainLetters || letter == 'L';
  options.lineWeights = options.lineWeights || letter == 'W';
  if (letter == 'H') options.holeLayers = {"0"};
}

void readSwitch(ConversionInput& input, char letter) {
  input.job.dotted = input.job.dotted || letter == 'd';
  input.job.ellipses = input.job.ellipses || letter == 'e';
  input.job.arcToLine = input.job.arcToLine || letter == 'a';
  input.refuseWithoutSections = input.refuseWithoutSections || letter == 'r';
  input.german = input.german || letter == 'g';
  input.keepPartial = input.keepPartial || letter == 'k';
  if (letter == 'o') input.job.version = 0;
}

}  // namespace

ConversionInput readConversionInput(std::string_view data) {
  ConversionInput input;
  const std::string_view options = takePart(data);
  for (std::size_t i = 0; i < options.size(); ++i) {
    const bool choice = i + 1 < options.size() && options[i + 1] >= '0' && options[i + 1] <= '9';
    if (choice) {
      readChoice(input, options[i], options[i + 1] - '0');
    } else {
      readSwitch(input, options[i]);
      readExactSwitch(input, options[i]);
    }
  }
  const std::string_view layer = takePart(data);
  if (!layer.empty()) input.job.defaultLayer = layer;
  input.job.drawingName = takePart(data);
  input.job.report = true;
  input.layerFile = takePart(data);
  input.frame = takePart(data);
  input.drawing = data;
  return input;
}

}  // namespace quillon::fuzz

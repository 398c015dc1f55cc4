#include "conversion_input.h"

#include <array>

#include "parts.h"

namespace quillon::fuzz {
namespace {

constexpr std::array<double, 10> kScales = {1.0,  0.0,  -1.0,   0.5,   25.4,
                                            1e-9, 1e30, 1e-300, 1e300, -1e308};
constexpr std::array<double, 10> kNumbers = {0.0,  1.0,   -1.0,   0.5,   838.86,
                                             1e-9, 1e308, 1e-300, 33026, -1e308};

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
      break;
  }
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

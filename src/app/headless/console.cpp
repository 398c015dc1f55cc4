#include "app/headless/console.h"

#include <algorithm>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace quillon::headless {
namespace {

void put(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

}  // namespace

void Console::printError(std::string_view lines) {
  if (lines.empty()) return;
  const std::lock_guard lock(mutex_);
  erase();
  put(stderr, lines);
}

void Console::printOutput(std::string_view lines) {
  const std::lock_guard lock(mutex_);
  erase();
  put(stdout, lines);
}

void Console::showProgress(int percent, std::string_view label) {
  constexpr int kWidth = 30;
  constexpr std::size_t kLongestLabel = 40;
  if (!showsProgress_) return;
  const std::lock_guard lock(mutex_);
  const auto filled = static_cast<std::size_t>(std::clamp(percent, 0, 100) * kWidth / 100);
  std::string line = "\r[" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] ";
  line += std::to_string(percent) + " % " + std::string(label.substr(0, kLongestLabel)) + "\x1b[K";
  if (line == shown_) return;
  shown_ = line;
  put(stderr, line);
}

void Console::clearProgress() {
  const std::lock_guard lock(mutex_);
  erase();
}

void Console::erase() {
  if (shown_.empty()) return;
  put(stderr, "\r\x1b[K");
  shown_.clear();
}

bool errorIsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace quillon::headless

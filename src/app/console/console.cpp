#include "app/console/console.h"

#include <algorithm>
#include <cstdio>

#include "app/console/interrupt.h"
#include "app/console/terminal.h"

namespace quillon::console {
namespace {

/// Writes a text. After a cancel, a stream that accepts nothing is marked as `stuck`: waiting for
/// it again would keep the program from ending.
bool put(std::FILE* stream, bool& stuck, std::string_view text) {
  if (stuck) return false;
  bool whole = writeText(stream, text);
  whole = std::fflush(stream) == 0 && whole;
  stuck = !whole && interrupted();
  return whole;
}

/// The start of a UTF-8 text, cut at a character boundary.
std::string_view shortened(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return text;
  while (longest > 0 && (static_cast<unsigned char>(text[longest]) & 0xC0) == 0x80) --longest;
  return text.substr(0, longest);
}

}  // namespace

void Console::printError(std::string_view lines) {
  if (lines.empty()) return;
  const std::lock_guard lock(mutex_);
  erase();
  put(stderr, errorStuck_, lines);
}

bool Console::printOutput(std::string_view lines) {
  const std::lock_guard lock(mutex_);
  erase();
  return put(stdout, outputStuck_, lines);
}

void Console::showProgress(int percent, std::string_view label) {
  constexpr int kWidth = 30;
  constexpr std::size_t kLongestLabel = 40;
  if (!showsProgress_) return;
  const std::lock_guard lock(mutex_);
  const auto filled = static_cast<std::size_t>(std::clamp(percent, 0, 100) * kWidth / 100);
  std::string line = "\r[" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] ";
  line += std::to_string(percent) + " % " + std::string(shortened(label, kLongestLabel)) + "\x1b[K";
  if (line == shown_) return;
  shown_ = line;
  put(stderr, errorStuck_, line);
}

void Console::clearProgress() {
  const std::lock_guard lock(mutex_);
  erase();
}

void Console::erase() {
  if (shown_.empty()) return;
  put(stderr, errorStuck_, "\r\x1b[K");
  shown_.clear();
}

}  // namespace quillon::console

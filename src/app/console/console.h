#pragma once

#include <mutex>
#include <string>
#include <string_view>

namespace quillon::console {

/// The program's two output streams, shared by concurrent conversions: complete lines go to
/// standard error, above the progress line if there is one.
class Console {
 public:
  explicit Console(bool showsProgress) : showsProgress_(showsProgress) {}
  ~Console() { clearProgress(); }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  bool showsProgress() const { return showsProgress_; }

  /// Prints lines (each with its line end) to standard error.
  void printError(std::string_view lines);
  /// Prints lines to standard output. False when they could not be written.
  bool printOutput(std::string_view lines);
  /// Shows a progress bar with a label.
  void showProgress(int percent, std::string_view label);
  void clearProgress();

 private:
  void erase();

  bool showsProgress_;
  std::mutex mutex_;
  std::string shown_;
  bool outputStuck_ = false;
  bool errorStuck_ = false;
};

}  // namespace quillon::console

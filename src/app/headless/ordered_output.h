#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <string>

#include "app/console/console.h"

namespace quillon::headless {

/// What one conversion prints.
struct Printed {
  std::string error;
  std::string output;
};

/// Prints what conversions say in the order of their plan, whatever order they finish in. Threads
/// may print at once.
class OrderedOutput {
 public:
  /// `several`: progress is shown by how many of `count` conversions have printed.
  OrderedOutput(console::Console& console, std::size_t count, bool several)
      : console_(console), count_(count), several_(several) {}

  /// Holds the text back until all of lower index have been printed.
  void print(std::size_t index, Printed printed);
  /// Prints what is still held back, as conversions before it were not run.
  void printRest();
  /// Whether something could not be written to standard output.
  bool failed() const { return failed_; }

 private:
  void write(const Printed& printed);

  console::Console& console_;
  std::size_t count_;
  bool several_;
  std::mutex mutex_;
  std::map<std::size_t, Printed> held_;
  std::size_t printedUpTo_ = 0;
  bool failed_ = false;
};

}  // namespace quillon::headless

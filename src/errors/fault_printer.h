#pragma once

#include <functional>
#include <string_view>

#include "errors/fault_scribe.h"

namespace quillon::errors {

/// Errors of a run that nobody attends: the protocol goes to its file, replacing an older one, and
/// to standard error. What failed is left, the run goes on.
class FaultPrinter : public FaultView {
 public:
  /// `print` writes lines to standard error. Texts are in the language that `languageOffset` has
  /// at the time of an error; it outlives the printer.
  FaultPrinter(std::function<void(std::string_view)> print, ProgramIdentity program,
               const int& languageOffset)
      : print_(std::move(print)), program_(std::move(program)), languageOffset_(languageOffset) {}

  Continuation show(const FaultReport& report) override;
  void endProgram() override {}

 private:
  std::function<void(std::string_view)> print_;
  ProgramIdentity program_;
  const int& languageOffset_;
};

/// What a crash of the program says on standard error, in one language.
std::string crashNotice(const ProgramIdentity& program, int languageOffset);

}  // namespace quillon::errors

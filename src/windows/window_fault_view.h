#pragma once

#include "errors/fault_scribe.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// Exit code of a program ended from the error window.
inline constexpr int kEndedByError = 3;

/// Shows errors in the error window.
class WindowFaultView : public errors::FaultView {
 public:
  WindowFaultView(const AppContext& context, errors::ProgramIdentity program)
      : context_(context), program_(std::move(program)) {}

  errors::Continuation show(const errors::FaultReport& report) override;
  /// Leaves all event loops; code running in them returns as if its windows had been closed.
  void endProgram() override;

 private:
  const AppContext& context_;
  errors::ProgramIdentity program_;
};

}  // namespace quillon::windows

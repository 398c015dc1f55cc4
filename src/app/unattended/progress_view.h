#pragma once

#include <string_view>

namespace quillon::unattended {

/// Shows the progress of an unattended run and lets the user cancel it.
class ProgressView {
 public:
  virtual ~ProgressView() = default;

  /// The conversion of a file, alone or in a batch, starts; resets everything to zero.
  virtual void begin(std::string_view file, bool inBatch) = 0;
  virtual void setStatus(std::string_view text) = 0;
  virtual void setProgress(bool writing, int percent) = 0;
  virtual void processEvents() = 0;
  /// The same while a conversion waits for the user; see ConversionHost.
  virtual void waitForEvents() { processEvents(); }
  virtual bool cancelRequested() = 0;
  virtual bool hasCancelButton() const = 0;
  /// The conversion has ended.
  virtual void end() = 0;
};

}  // namespace quillon::unattended

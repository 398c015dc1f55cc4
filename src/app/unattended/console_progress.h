#pragma once

#include <string>

#include "app/console/console.h"
#include "app/unattended/progress_view.h"

namespace quillon::unattended {

/// A progress bar on the terminal; Ctrl-C cancels.
class ConsoleProgress : public ProgressView {
 public:
  explicit ConsoleProgress(console::Console& console) : console_(console) {}

  void begin(std::string_view file, bool inBatch) override;
  void setStatus(std::string_view) override {}
  void setProgress(bool writing, int percent) override;
  void processEvents() override {}
  bool cancelRequested() override;
  bool hasCancelButton() const override { return false; }
  void end() override;

 private:
  console::Console& console_;
  std::string label_;
  int readPercent_ = 0;
  int writePercent_ = 0;
};

}  // namespace quillon::unattended

#pragma once

#include "app/unattended/progress_view.h"
#include "windows/progress_dialog.h"

namespace quillon::window {

/// The progress dialog of an unattended run; its button or Ctrl-C cancels.
class DialogProgress : public unattended::ProgressView {
 public:
  explicit DialogProgress(windows::AppContext& context) : dialog_(context) {}

  void begin(std::string_view file, bool inBatch) override;
  void setStatus(std::string_view text) override { dialog_.setStatus(text); }
  void setProgress(bool writing, int percent) override;
  void processEvents() override;
  void waitForEvents() override { windows::ProgressDialog::waitForEvents(); }
  bool cancelRequested() override;
  bool hasCancelButton() const override { return true; }
  void end() override { dialog_.hide(); }

 private:
  windows::ProgressDialog dialog_;
};

}  // namespace quillon::window

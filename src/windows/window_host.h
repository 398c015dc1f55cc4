#pragma once

#include <QWidget>
#include <functional>

#include "convert/host.h"
#include "windows/app_context.h"
#include "windows/progress_dialog.h"

namespace quillon::windows {

/// A conversion host that uses windows.
class WindowHost : public convert::ConversionHost {
 public:
  /// Messages and dialogs appear in front of `window`.
  WindowHost(AppContext& context, ProgressDialog& progress, QWidget* window)
      : context_(context), progress_(progress), window_(window) {}

  void setStatus(std::string_view text) override { progress_.setStatus(text); }
  void setProgress(bool writing, int percent) override;
  void processEvents() override;
  void waitForEvents() override { ProgressDialog::waitForEvents(); }
  bool cancelRequested() override;
  bool hasCancelButton() const override { return true; }
  bool ask(const convert::Message& question) override;
  void tell(const convert::Message& message) override;
  bool goOnPastLimit(const convert::Message& limit) override;
  std::string chooseDxfFile(const convert::FileQuestion& question) override;
  void showReport(std::string_view report) override;

  std::function<void(const QString&)> onDrawingChosen;  ///< called by chooseDxfFile

 private:
  QWidget* owner() const;

  AppContext& context_;
  ProgressDialog& progress_;
  QWidget* window_;
};

/// The text of a message in a message box.
QString boxText(const std::string& text);

}  // namespace quillon::windows

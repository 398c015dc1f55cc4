#pragma once

#include <string>
#include <string_view>

#include "app/console/console.h"
#include "app/unattended/progress_view.h"
#include "convert/host.h"
#include "texts/string_table.h"

namespace quillon::unattended {

/// A conversion host without windows: what they would show goes to standard error, questions are
/// answered with No, and dialogs are cancelled.
class UnattendedHost : public convert::ConversionHost {
 public:
  UnattendedHost(console::Console& console, ProgressView& progress, const texts::Texts& texts)
      : console_(console), progress_(progress), texts_(texts) {}

  void setStatus(std::string_view text) override { progress_.setStatus(text); }
  void setProgress(bool writing, int percent) override { progress_.setProgress(writing, percent); }
  void processEvents() override { progress_.processEvents(); }
  void waitForEvents() override { progress_.waitForEvents(); }
  bool cancelRequested() override { return progress_.cancelRequested(); }
  bool hasCancelButton() const override { return progress_.hasCancelButton(); }
  bool ask(const convert::Message& question) override;
  void tell(const convert::Message& message) override;
  bool goOnPastLimit(const convert::Message& limit) override;
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view report) override;

 private:
  void print(const convert::Message& message);

  console::Console& console_;
  ProgressView& progress_;
  const texts::Texts& texts_;
};

}  // namespace quillon::unattended

#pragma once

#include <string>
#include <string_view>

#include "app/console/console.h"
#include "convert/host.h"
#include "ui/resources/string_table.h"

namespace quillon::unattended {

/// Stands in for the windows of a conversion: what they would show goes to standard error, a
/// question is answered with No, a dialog is cancelled.
class UnattendedHost : public convert::ConversionHost {
 public:
  /// `label` stands beside the progress bar.
  UnattendedHost(console::Console& console, const resources::Texts& texts, std::string label)
      : console_(console), texts_(texts), label_(std::move(label)) {}

  void setStatus(std::string_view) override {}
  void setProgress(bool writing, int percent) override;
  void processEvents() override {}
  bool cancelRequested() override;
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message& question) override;
  void tell(const convert::Message& message) override;
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view report) override;

 private:
  void print(const convert::Message& message);

  console::Console& console_;
  const resources::Texts& texts_;
  std::string label_;
  int readPercent_ = 0;
  int writePercent_ = 0;
};

}  // namespace quillon::unattended

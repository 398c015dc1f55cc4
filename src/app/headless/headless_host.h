#pragma once

#include <string>
#include <vector>

#include "app/console/console.h"
#include "convert/host.h"
#include "texts/string_table.h"

namespace quillon::headless {

/// A conversion host without a user: collects messages and answers every question with No.
class HeadlessHost : public convert::ConversionHost {
 public:
  /// `label` is shown next to the progress bar; no bar for an empty one.
  HeadlessHost(console::Console& console, const texts::Texts& texts, std::string label)
      : console_(console), texts_(texts), label_(std::move(label)) {}

  const std::vector<convert::Message>& messages() const { return messages_; }

  void setStatus(std::string_view) override {}
  void setProgress(bool writing, int percent) override;
  void processEvents() override {}
  bool cancelRequested() override;
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message& question) override;
  void tell(const convert::Message& message) override { messages_.push_back(message); }
  bool goOnPastLimit(const convert::Message& limit) override;
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

 private:
  console::Console& console_;
  const texts::Texts& texts_;
  std::string label_;
  int readPercent_ = 0;
  int writePercent_ = 0;
  std::vector<convert::Message> messages_;
};

}  // namespace quillon::headless

#pragma once

#include <string>

#include "batch/drawing_queue.h"
#include "convert/host.h"

namespace quillon::batch {

/// The host of one drawing of a queue: asks nobody, and collects what is told.
class QueueHost : public convert::ConversionHost {
 public:
  QueueHost(const texts::Texts& texts, const QueueWatch& watch) : texts_(texts), watch_(watch) {}

  /// All messages, each on a line.
  const std::string& text() const { return text_; }
  bool wasCancelled() const { return cancelled_; }
  /// The script exists already, and must not be replaced.
  bool foundScript() const { return foundScript_; }

  void setStatus(std::string_view) override {}
  void setProgress(bool writing, int percent) override;
  void processEvents() override {}
  bool cancelRequested() override;
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message& question) override;
  void tell(const convert::Message& message) override;
  bool goOnPastLimit(const convert::Message& limit) override;
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

 private:
  const texts::Texts& texts_;
  const QueueWatch& watch_;
  std::string text_;
  bool cancelled_ = false;
  bool foundScript_ = false;
  int readPercent_ = 0;
  int writePercent_ = 0;
};

}  // namespace quillon::batch

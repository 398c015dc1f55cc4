#pragma once

#include <emscripten/val.h>

#include <string>
#include <string_view>
#include <vector>

#include "convert/host.h"

namespace quillon::web {

/// A conversion host of a page: tells its progress, takes down what is told, and answers every
/// question with No. To cancel, the page ends the worker.
class PageHost final : public convert::ConversionHost {
 public:
  /// `progress`: called with whether it is writing, and percents.
  PageHost(const emscripten::val& progress, std::vector<convert::Message>& messages)
      : progress_(progress), messages_(messages) {}

  void setStatus(std::string_view) override {}
  void setProgress(bool writing, int percent) override { progress_(writing, percent); }
  void processEvents() override {}
  bool cancelRequested() override { return false; }
  /// A walk that only a cancel can end ends by itself.
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message&) override { return false; }
  void tell(const convert::Message& message) override { messages_.push_back(message); }
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

 private:
  const emscripten::val& progress_;
  std::vector<convert::Message>& messages_;
};

}  // namespace quillon::web

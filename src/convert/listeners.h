#pragma once

#include <optional>

#include "base/byte_sink.h"
#include "base/encoding.h"
#include "eagle/recorder.h"
#include "eagle/script_commands.h"
#include "eagle/tee.h"

namespace quillon::convert {

/// Where a script goes that nobody wants.
class NoScript : public base::ByteSink {
 public:
  void write(std::string_view) override {}
};

/// What the rules write to: the script, and for pictures a record of it too.
class Listeners {
 public:
  Listeners(eagle::ScriptWriter& script, const eagle::Coordinates& coordinates, bool record)
      : script_(script) {
    if (!record) return;
    recorder_.emplace(coordinates);
    both_.emplace(script_, *recorder_);
  }

  eagle::Commands& commands() { return both_ ? static_cast<eagle::Commands&>(*both_) : script_; }
  std::optional<eagle::Recording> recording(base::Encoding encoding) {
    if (!recorder_) return std::nullopt;
    eagle::Recording recording = recorder_->take();
    recording.encoding = encoding;
    return recording;
  }

 private:
  eagle::ScriptCommands script_;
  std::optional<eagle::Recorder> recorder_;
  std::optional<eagle::Tee> both_;
};

}  // namespace quillon::convert

#pragma once

#include <string>
#include <string_view>

#include "emit/emit_context.h"
#include "emit/script_writer.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// A sink that keeps the script in memory.
class StringSink : public emit::ScriptSink {
 public:
  void write(std::string_view block) override { text.append(block); }
  std::string text;
};

/// An emit context whose output a test can look at. Unit mm and plain "(x y)" points by default.
class ScriptCapture {
 public:
  explicit ScriptCapture(const emit::CoordinateFormat& format = {.unit = 1, .relativeCoords = 0},
                         const emit::EmitSettings& emitSettings = {})
      : settings(emitSettings),
        script(sink, format),
        context{script, settings, emit::CancelPoll(monitor)} {}

  /// What was written so far, with "\n" for every CR LF; starts anew.
  std::string take() {
    script.flush();
    std::string out;
    for (const char c : sink.text) {
      if (c != '\r') out += c;
    }
    sink.text.clear();
    return out;
  }

  TestMonitor monitor;
  StringSink sink;
  emit::EmitSettings settings;
  emit::ScriptWriter script;
  emit::EmitContext context;
};

}  // namespace quillon::testing

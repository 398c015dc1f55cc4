#pragma once

#include <string>
#include <string_view>

#include "classic/context.h"
#include "eagle/script_commands.h"
#include "eagle/script_writer.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// A sink that keeps the script in memory.
class StringSink : public base::ByteSink {
 public:
  void write(std::string_view block) override { text.append(block); }
  std::string text;
};

/// Unit mm and plain "(x y)" points, unless a test says otherwise.
struct CaptureFormat {
  base::Unit unit = base::Unit::Mm;
  eagle::PointForm form = eagle::PointForm::Plain;
  double offsetX = 0.0;
  double offsetY = 0.0;
};

/// Everything that handlers write with, and a script for the test to examine.
class ScriptCapture {
 public:
  explicit ScriptCapture(const CaptureFormat& format = {},
                         const classic::Settings& classicSettings = {})
      : script(sink, {format.unit, format.offsetX, format.offsetY}, format.form),
        commands(script),
        cancelled(monitor),
        context{commands, script.area(), classicSettings, cancelled} {}

  /// What was written so far, with "\n" for every CR LF; then starts afresh.
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
  eagle::ScriptWriter script;
  eagle::ScriptCommands commands;
  rules::CancelPoll cancelled;
  classic::Context context;
};

}  // namespace quillon::testing

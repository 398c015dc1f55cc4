#include "errors/protocol.h"

namespace quillon::errors {
namespace {

constexpr std::string_view kSeparator =
    "----------------------------------------------------------------------\r\n";
static_assert(kSeparator.size() == 72);
constexpr std::string_view kIndent = "          ";
static_assert(kIndent.size() == 10);
constexpr std::string_view kLineEnd = "\r\n";

class ProtocolWriter {
 public:
  explicit ProtocolWriter(ProtocolSink& sink) : sink_(sink) {}

  void separator() { sink_.append(kSeparator); }
  void line(std::string_view text) {
    sink_.append(text);
    sink_.append(kLineEnd);
  }
  /// A caption of the window, in upper case.
  void heading(std::string_view caption) {
    for (const char c : caption) {
      const char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
      sink_.append({&upper, 1});
    }
    sink_.append(kLineEnd);
  }
  void field(std::string_view title, std::initializer_list<std::string_view> values) {
    sink_.append(kIndent);
    sink_.append(title);
    sink_.append("\t");
    for (const std::string_view value : values) sink_.append(value);
    sink_.append(kLineEnd);
  }
  void entry(const CallStackList::Entry& entry) {
    sink_.append(kIndent);
    if (entry.procedure.empty()) return line(entry.text);
    sink_.append(entry.module);
    sink_.append(".");
    line(entry.procedure);
  }

 private:
  ProtocolSink& sink_;
};

class StringSink : public ProtocolSink {
 public:
  void append(std::string_view piece) override { text.append(piece); }
  std::string text;
};

/// The digits of a number to the base of 16, written without taking memory.
class Hexadecimal {
 public:
  explicit Hexadecimal(std::uint64_t number) : start_(digits_.end()) {
    do {
      *--start_ = "0123456789abcdef"[number % 16];
      number /= 16;
    } while (number > 0);
  }
  std::string_view view() const { return {start_, digits_.end()}; }

 private:
  std::array<char, 2 * sizeof(std::uint64_t)> digits_{};
  std::array<char, 2 * sizeof(std::uint64_t)>::iterator start_;
};

}  // namespace

void writeProtocol(const ProtocolFields& fields, const CallStackList& stack, ProtocolSink& sink) {
  ProtocolWriter out(sink);
  out.separator();
  out.line("F E H L E R P R O T O K O L L vom FaultScribe");
  out.separator();
  out.line(fields.caption);
  if (!fields.programInfo.empty()) out.line(fields.programInfo);
  out.separator();
  out.heading(kFaultFrame);
  for (std::size_t i = 0; i < kFaultTitles.size(); ++i) {
    out.field(kFaultTitles[i], {fields.faultValues[i]});
  }
  out.field("Datum/Uhrzeit:", {fields.date, " / ", fields.time});
  out.separator();
  out.heading(kCallStackFrame);
  for (std::size_t i = 0; i < stack.size(); ++i) out.entry(stack.entry(i));
  out.separator();
  out.line("SYSTEMINFO:");
  out.field("Plattform:", {fields.platform});
  out.field("Version:", {fields.version});
  out.field("Build:", {fields.build, "   ", fields.servicePack});
  out.separator();
}

std::string protocolText(const ProtocolFields& fields, const CallStackList& stack) {
  StringSink sink;
  writeProtocol(fields, stack, sink);
  return std::move(sink.text);
}

BacktraceWriter::BacktraceWriter(ProtocolSink& sink) : sink_(sink) {
  ProtocolWriter(sink_).line("BACKTRACE:");
}

void BacktraceWriter::frame(std::string_view module, std::uint64_t offset) {
  sink_.append(kIndent);
  sink_.append(module.substr(module.find_last_of("/\\") + 1));
  sink_.append("+0x");
  ProtocolWriter(sink_).line(Hexadecimal(offset).view());
}

void BacktraceWriter::unknown() {
  sink_.append(kIndent);
  ProtocolWriter(sink_).line("not available on this system");
}

void BacktraceWriter::end() { ProtocolWriter(sink_).separator(); }

}  // namespace quillon::errors

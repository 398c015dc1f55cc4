#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "errors/call_stack.h"

namespace quillon::errors {

/// The error window's captions, German in either language: intended.
inline constexpr std::string_view kCaptionSuffix = " - Fehlermeldung";
inline constexpr std::string_view kFaultFrame = "Fehlerbeschreibung:";
inline constexpr std::string_view kCallStackFrame = "CallStack:";
inline constexpr std::array<std::string_view, 4> kFaultTitles = {
    "Fehler-Nr:", "Modul:", "Prozedur:", "Zeilen-Nr.:"};

/// What a protocol tells, UTF-8. The texts belong to the caller.
struct ProtocolFields {
  std::string_view caption;                     ///< of the error window
  std::string_view programInfo;                 ///< line after the caption; empty for none
  std::array<std::string_view, 4> faultValues;  ///< number, module, procedure, line
  std::string_view date;
  std::string_view time;
  std::string_view platform;
  std::string_view version;
  std::string_view build;
  std::string_view servicePack;
};

/// Gets a protocol in pieces.
class ProtocolSink {
 public:
  virtual ~ProtocolSink() = default;
  virtual void append(std::string_view piece) = 0;
};

/// Writes the protocol, UTF-8 with CR LF. Takes no memory and no lock, so that the handler of a
/// crash can use it.
void writeProtocol(const ProtocolFields& fields, const CallStackList& stack, ProtocolSink& sink);

/// The same as a text.
std::string protocolText(const ProtocolFields& fields, const CallStackList& stack);

/// Adds the calls of the machine that led to a crash to the end of a protocol, the newest first.
/// Takes no memory and no lock either.
class BacktraceWriter {
 public:
  /// Writes the heading.
  explicit BacktraceWriter(ProtocolSink& sink);
  /// A place in a program or library, of whose file only the name is written, as addr2line knows
  /// it.
  void frame(std::string_view module, std::uint64_t offset);
  /// Says that this system does not tell the calls.
  void unknown();
  /// Writes the closing separator.
  void end();

 private:
  ProtocolSink& sink_;
};

}  // namespace quillon::errors

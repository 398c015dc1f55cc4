#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#include "errors/call_stack.h"
#include "errors/continuation.h"
#include "errors/fault_info.h"
#include "errors/system_info.h"

namespace quillon::errors {

/// The program that reports its errors.
struct ProgramIdentity {
  std::string title;             ///< UTF-8
  std::filesystem::path folder;  ///< where the protocol goes; empty when there is none
  std::string fileName;          ///< of the program, without an extension
  std::string supportAddress;

  std::filesystem::path protocolFile() const { return folder / (fileName + ".ERR"); }
  std::filesystem::path traceFile() const { return folder / (fileName + ".EPT"); }
};

/// An error as it is shown and filed. The call stack is the one at the time of the error.
struct FaultReport {
  FaultInfo fault;
  std::array<std::string, 4> values;  ///< number, module, procedure, line
  std::string caption;
  std::string programInfo;
  std::string date;
  std::string time;
  SystemInfo system;
  CallStackList callStack;
  unsigned allowed = kEveryContinuation;

  std::string protocol() const;
};

/// Shows an error and asks how to go on.
class FaultView {
 public:
  virtual ~FaultView() = default;
  /// One of the continuations that the report allows.
  virtual Continuation show(const FaultReport& report) = 0;
  /// Ends the program in an orderly way, as soon as what runs has returned.
  virtual void endProgram() = 0;
};

/// The error reporter of a program.
class FaultScribe {
 public:
  /// Descriptions are in the language that `languageOffset` has at the time of an error. Both it
  /// and the view outlive the reporter.
  FaultScribe(ProgramIdentity program, const int& languageOffset, FaultView& view);
  FaultScribe(const FaultScribe&) = delete;
  FaultScribe& operator=(const FaultScribe&) = delete;

  /// Reports the exception that is being handled, and asks how to go on. Called by the procedure
  /// that traps it. Never throws; an error while another is being shown is only traced, and left.
  std::int16_t OnError(std::string_view module, std::string_view procedure,
                       unsigned allowed = kEveryContinuation) noexcept;
  /// Records an entry of the call stack.
  void CallStack(std::string text) { list_.record(std::move(text)); }
  /// Sets the line that follows the caption in the protocol.
  void SetProgInfo(std::string text) { programInfo_ = std::move(text); }

  CallStackList& callStack() { return list_; }
  const ProgramIdentity& program() const { return program_; }
  const SystemInfo& system() const { return system_; }
  const std::string& programInfo() const { return programInfo_; }
  /// True once a user chose to end the program.
  bool ending() const { return ending_; }

 private:
  FaultReport makeReport(std::string_view module, std::string_view procedure,
                         unsigned allowed) const;
  void trace(const FaultReport& report);

  ProgramIdentity program_;
  const int& languageOffset_;
  FaultView& view_;
  CallStackList list_;
  std::string programInfo_;
  SystemInfo system_;
  std::string traced_;  ///< what the trace file holds
  bool showing_ = false;
  bool ending_ = false;
};

/// Writes the protocol into the program's protocol file, as a whole. False when that failed.
bool saveProtocol(const ProgramIdentity& program, std::string_view protocol) noexcept;

}  // namespace quillon::errors

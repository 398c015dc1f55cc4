#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "errors/fault_scribe.h"
#include "errors/protocol.h"

namespace quillon::errors {

/// Collects a protocol without taking memory; what is beyond the room is cut.
class FixedSink : public ProtocolSink {
 public:
  FixedSink() {}  // the room gets no values, and no memory of the system, before it is used
  void append(std::string_view piece) override;
  std::string_view text() const { return {room_.data(), size_}; }
  void clear() { size_ = 0; }

 private:
  std::array<char, 32768> room_;
  std::size_t size_ = 0;
};

/// A number, date or time, written without taking memory.
class FixedText {
 public:
  /// At least `digits` digits, with zeros in front.
  FixedText& number(std::uint64_t value, int digits = 1);
  FixedText& text(std::string_view piece);
  std::string_view view() const { return {room_.data(), size_}; }

 private:
  std::array<char, 64> room_{};
  std::size_t size_ = 0;
};

/// What a crash needs to know, gathered while all is well.
class CrashProtocol {
 public:
  CrashProtocol(FaultScribe& faults, std::string notice);

  /// Writes the protocol of a crash. `reason` is the system's name of it and `code` its number;
  /// `now` counts the seconds since 1970 in UTC. Takes no memory and no lock.
  void write(std::string_view reason, std::uint64_t code, std::int64_t now,
             ProtocolSink& sink) const;

  const std::string& notice() const { return notice_; }

 private:
  const FaultScribe& faults_;
  const CallStackList& stack_;
  std::string caption_;
  std::string notice_;
  std::int64_t secondsEastOfUtc_;
};

}  // namespace quillon::errors

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

#include "errors/parameter.h"
#include "errors/source_line.h"

namespace quillon::errors {

/// The procedures that run, and what they recorded of themselves: the list of the error window.
///
/// The first record stays at the top, the newest stands just below it. The list is read by the
/// handler of a crash too, so it lies in place and a record is complete before it counts.
class CallStackList {
 public:
  static constexpr std::size_t kMostEntries = 40;

  struct Entry {
    std::string_view module;     ///< of a procedure; static text
    std::string_view procedure;  ///< of a procedure; static text
    std::string text;            ///< of any other record
    SourceLine line = 0;
    std::uint64_t serial = 0;  ///< counts the records of the list's whole life
  };

  /// Adds a record; beyond 40 the last of the list is dropped.
  void record(std::string text);
  void recordProcedure(std::string_view module, std::string_view procedure, SourceLine line);
  /// Is called with each procedure that begins; what it throws, the procedure throws.
  using Watcher = std::function<void(const Entry& procedure)>;
  void watch(Watcher watcher) { watcher_ = std::move(watcher); }
  /// Records are kept only while recording is on.
  void setRecording(bool on) { recording_ = on; }

  std::size_t size() const { return size_; }
  /// An entry in the order of the list, 0 to size() - 1.
  const Entry& entry(std::size_t index) const { return entries_[index == 0 ? 0 : size_ - index]; }
  /// The line of the program in which the newest procedure begins, or 0.
  SourceLine newestLine() const;
  /// The newest procedure, or null.
  const Entry* newestProcedure() const;

  /// Where the list stands: what is recorded from now on has this serial or a higher one.
  std::uint64_t mark() const { return nextSerial_; }
  /// Takes back what was recorded since a mark.
  void backTo(std::uint64_t mark);

 private:
  Entry& add();
  void publish();

  std::array<Entry, kMostEntries> entries_;  ///< from the first to the newest
  std::size_t size_ = 0;
  std::uint64_t nextSerial_ = 0;
  bool recording_ = true;
  Watcher watcher_;
};

/// One line of the list.
std::string entryText(const CallStackList::Entry& entry);

/// Registers a procedure while it runs. When an exception leaves the procedure its record stays,
/// for the report, until whoever traps the exception takes it back.
class Procedure {
 public:
  /// `module` and `name` are static texts.
  Procedure(CallStackList& list, std::string_view module, std::string_view name,
            SourceLine line = __builtin_LINE())
      : list_(list), mark_(list.mark()), exceptions_(std::uncaught_exceptions()) {
    list.recordProcedure(module, name, line);
  }
  ~Procedure() {
    if (std::uncaught_exceptions() == exceptions_) list_.backTo(mark_);
  }
  Procedure(const Procedure&) = delete;
  Procedure& operator=(const Procedure&) = delete;

  /// Records what the procedure was called with.
  template <typename Value>
  void parameter(std::string_view name, const Value& value) {
    list_.record(parameterRecord(name, rendered(value)));
  }

 private:
  CallStackList& list_;
  std::uint64_t mark_;
  int exceptions_;
};

}  // namespace quillon::errors

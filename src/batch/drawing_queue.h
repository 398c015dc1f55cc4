#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "convert/driver.h"

namespace quillon::batch {

enum class EntryState : std::uint8_t {
  Waiting,
  Running,
  Done,       ///< converted
  Failed,     ///< the message says why
  Cancelled,  ///< by the user; its script, if any, is incomplete
  Skipped,    ///< its script exists already
};

/// What came out of the conversion of one drawing. Texts are UTF-8, without line ends but "\n".
struct QueueResult {
  EntryState state = EntryState::Waiting;
  std::uint64_t losses = 0;    ///< what was not drawn, hidden or simplified
  std::uint64_t commands = 0;  ///< lines of the script
  std::string scriptFile;      ///< "" where none was written
  std::string message;         ///< what went wrong, or warnings, each on a line; "" for none
};

/// A drawing of the queue.
struct QueueEntry {
  std::string path;  ///< exact, UTF-8
  std::uint64_t bytes = 0;
  QueueResult result;
};

/// How the entries of a queue have ended.
struct QueueCounts {
  std::size_t waiting = 0;  ///< running ones as well
  std::size_t converted = 0;
  std::size_t failed = 0;
  std::size_t cancelled = 0;
  std::size_t skipped = 0;
  std::uint64_t losses = 0;

  /// Entries that another start would try again.
  std::size_t repeatable() const { return failed + cancelled + skipped; }
};

/// How somebody else follows and ends the conversion of a drawing; both may be empty. They are
/// called by the thread that converts.
struct QueueWatch {
  std::function<bool()> cancelled;
  std::function<void(int percent)> progress;
};

/// Converts a drawing that DrawingQueue::begin has returned, without asking anything: knows nothing
/// of the queue, so any thread may run it. Throws what convert::convertDXF throws.
QueueResult convertQueued(const convert::ConversionJob& job,
                          const convert::Surroundings& surroundings, const QueueWatch& watch = {});

/// The result of an entry whose conversion was ended by a fault of the program.
QueueResult faultResult(std::string_view what);

/// Drawings to be converted one after the other with the same settings, each into a script beside
/// it and named after its file. Belongs to one thread.
class DrawingQueue {
 public:
  /// Adds a drawing, or the drawings of a folder sorted by name; what is there already stays as it
  /// is. What cannot be converted, such as a folder without drawings, becomes an entry that fails
  /// with the reason. Returns how many entries are new.
  std::size_t add(const std::string& fileOrFolder);
  /// Removes an entry, unless it is running. False when nothing was removed.
  bool remove(std::size_t index);

  const std::vector<QueueEntry>& entries() const { return entries_; }
  QueueCounts counts() const;
  /// The entry that is running.
  std::optional<std::size_t> running() const { return running_; }

  /// Lets entries wait again that failed, were cancelled or skipped.
  void retry();

  /// Takes the next waiting entry: it is running from now on, until finish(). Entries whose script
  /// belongs to an earlier entry fail on the way. Existing scripts are only replaced on `replace`,
  /// or where a cancelled run of this entry wrote them. Nothing when no entry waits.
  std::optional<convert::ConversionJob> begin(const convert::ConversionJob& settings, bool replace,
                                              const texts::Texts& texts);
  /// Ends the running entry.
  void finish(QueueResult result);

  /// All of that for one entry. False when none waits.
  bool runNext(const convert::ConversionJob& settings, bool replace,
               const convert::Surroundings& surroundings, const QueueWatch& watch = {});

 private:
  using NativePath = std::filesystem::path::string_type;  ///< compared sooner than a path

  /// False when it is there already. `mayHaveScript` unless it can never be converted.
  bool addEntry(const std::filesystem::path& path, bool mayHaveScript);
  /// The earlier drawing that an entry's script belongs to, or null.
  const QueueEntry* ownerOfScript(std::size_t index) const;

  /// What queues compare instead of paths: one spelling for each file.
  struct Keys {
    std::filesystem::path drawing;
    NativePath script;              ///< empty where there can be none
    std::size_t number = 0;         ///< in the order in which entries were added
    bool hasPartialScript = false;  ///< from a cancelled run of this queue
  };

  std::vector<QueueEntry> entries_;
  std::vector<Keys> keys_;  ///< of the entries
  std::set<std::filesystem::path> drawings_;
  std::set<std::pair<NativePath, std::size_t>> scripts_;  ///< with the numbers of their entries
  std::size_t added_ = 0;                                 ///< entries, removed ones as well
  std::optional<std::size_t> running_;
};

}  // namespace quillon::batch

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::convert {

enum class MessageKind : std::uint8_t { Error, Warning, Question };

/// Something to tell the user or to ask. UTF-8.
struct Message {
  MessageKind kind = MessageKind::Error;
  std::string title;
  /// The text of the message box, lines separated by "\r".
  std::string text;
  /// One line: file and line where known, what is wrong and what to do.
  std::string detail;
};

struct FileQuestion {
  std::string title;
  std::string filterText;
  std::string filterPattern;
  std::string startPath;  ///< the dialog starts in this path's folder
};

/// What a conversion needs from its surroundings. The window, the headless program and the tests
/// each implement it.
class ConversionHost {
 public:
  virtual ~ConversionHost() = default;

  virtual void setStatus(std::string_view text) = 0;
  /// Progress in percent, of reading or (`writing`) of converting.
  virtual void setProgress(bool writing, int percent) = 0;
  /// Processes pending user-interface events.
  virtual void processEvents() = 0;
  /// The same while a conversion can only wait for the user to cancel: called again and again, so a
  /// host with a cancel button also pauses for a moment.
  virtual void waitForEvents() { processEvents(); }
  /// True once the user has cancelled.
  virtual bool cancelRequested() = 0;
  /// True when the user can cancel at any time; a walk that only a cancel can end then continues.
  virtual bool hasCancelButton() const = 0;

  /// A yes/no question.
  virtual bool ask(const Message& question) = 0;
  virtual void tell(const Message& message) = 0;
  /// Asks whether a conversion that has reached a limit continues without limits. `limit` states
  /// that as an error, and that no script is kept; it is reported where nobody can be asked.
  virtual bool goOnPastLimit(const Message& limit) {
    tell(limit);
    return false;
  }
  /// The path of a drawing, or "" if none was chosen.
  virtual std::string chooseDxfFile(const FileQuestion& question) = 0;
  virtual void showReport(std::string_view report) = 0;
};

}  // namespace quillon::convert

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
  /// The message box's text; "\r" separates its lines.
  std::string text;
  /// One line that names file and line where they are known, what is wrong and what to do.
  std::string detail;
};

struct FileQuestion {
  std::string title;
  std::string filterText;
  std::string filterPattern;
  std::string startPath;  ///< the dialog starts in the folder of this path
};

/// All that a conversion may ask of the world around it. The window, the headless program and the
/// tests each have one.
class ConversionHost {
 public:
  virtual ~ConversionHost() = default;

  virtual void setStatus(std::string_view text) = 0;
  /// 0..100 of reading or (writing) of converting.
  virtual void setProgress(bool writing, int percent) = 0;
  /// Lets the user interface handle what has come in.
  virtual void processEvents() = 0;
  /// The same where a conversion can only wait for the user to cancel; it is called over and over,
  /// so a host with a cancel button also rests for a moment.
  virtual void waitForEvents() { processEvents(); }
  /// True once the user wants to stop.
  virtual bool cancelRequested() = 0;
  /// True where the user can cancel at any time; a walk that only a cancel ends then goes on.
  virtual bool hasCancelButton() const = 0;

  /// A yes/no question.
  virtual bool ask(const Message& question) = 0;
  virtual void tell(const Message& message) = 0;
  /// Asks whether a conversion that has reached a limit goes on without any. `limit` says so as an
  /// error, and that no script is kept, as after a No; it is told where nobody can be asked.
  virtual bool goOnPastLimit(const Message& limit) {
    tell(limit);
    return false;
  }
  /// The path of a drawing, or "" when none was chosen.
  virtual std::string chooseDxfFile(const FileQuestion& question) = 0;
  virtual void showReport(std::string_view report) = 0;
};

}  // namespace quillon::convert

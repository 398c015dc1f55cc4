#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/host.h"
#include "dxf/run_time_error.h"
#include "ui/resources/string_table.h"

namespace quillon::convert {

/// The messages of a conversion in one language: the box's text, and a line of detail that names
/// file and line where they are known.
class Messages {
 public:
  explicit Messages(const resources::Texts& texts) : texts_(texts) {}

  /// No drawing at this path; `reason` is the system's.
  Message drawingMissing(std::string_view path, std::string_view reason) const;
  Message drawingUnreadable(std::string_view path, std::string_view reason) const;
  /// A message of the string table about one file or name, with the title of file errors.
  Message fileError(int id, std::string_view subject) const;
  Message scriptExists(std::string_view path) const;
  Message nameMissing() const;
  Message scaleIsZero() const;
  Message outOfRange(std::string_view drawing) const;
  Message cancelled(std::string_view drawing, std::uint64_t line) const;
  /// The script has as many lines as it may have.
  Message lineLimit(std::string_view drawing, std::uint64_t lines) const;
  /// The error handler's message: the script could not be made, for the reason in `detail`.
  Message scriptError(std::string_view script, std::string detail) const;

  /// What a run-time error means and what to do about it, with its line where that is known.
  std::string faultText(const dxf::RunTimeError& error, std::string_view drawing) const;
  /// The system's reason with this number (errno), in the language of the messages.
  std::string reasonText(int reason) const;
  std::string unreadableText(std::string_view path, std::string_view reason) const;
  std::string unwritableText(std::string_view path, std::string_view reason) const;
  std::string outOfMemoryText() const { return std::string(texts_(3028)); }

 private:
  /// Three lines: a text of the table, a path, another text of the table.
  std::string aroundPath(int before, std::string_view path, int behind) const;

  const resources::Texts& texts_;
};

/// True when a UTF-8 text holds a control character.
bool hasControlCharacter(std::string_view utf8);

/// A text from a file for a message: UTF-8 in, control characters as escapes, cut once it
/// has `longest` bytes.
std::string quotable(std::string_view utf8, std::size_t longest = 200);

}  // namespace quillon::convert

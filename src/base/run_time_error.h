#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon::base {

/// What went wrong while a drawing was read or converted.
enum class Fault : std::uint8_t {
  BadGroupCode,      ///< a group-code line is not a 16-bit integer
  TextEndsTooEarly,  ///< the lines end within a table, a block or an entity
  TooManyPoints,     ///< a spline pairs group 11 with group 12; such a point cannot be stored
  BadNumber,         ///< a number to be written is not finite
  BadLayerNumber,    ///< an EAGLE layer number does not fit in 16 bits
  NestingTooDeep,    ///< blocks are nested deeper than the limit
  BadDashLength,     ///< a dashed line or step has a length that is not finite
};

/// A run-time error of a conversion. It ends the conversion unless the walk over the ENTITIES
/// section catches it.
class RunTimeError : public std::runtime_error {
 public:
  /// `subject` is the text that the message quotes, such as a line or a name; it may be empty.
  /// `position` points into the text being read, or is null; it is valid as long as that text.
  RunTimeError(Fault fault, std::string_view subject, const char* position = nullptr)
      : std::runtime_error("run-time error"),
        fault_(fault),
        subject_(subject),
        position_(position) {}

  Fault fault() const { return fault_; }
  const std::string& subject() const { return subject_; }
  const char* position() const { return position_; }
  /// Line number of the error in the file; 0 when unknown.
  std::uint64_t line() const { return line_; }
  void setLine(std::uint64_t line) { line_ = line; }

 private:
  Fault fault_;
  std::string subject_;
  const char* position_;
  std::uint64_t line_ = 0;
};

}  // namespace quillon::base

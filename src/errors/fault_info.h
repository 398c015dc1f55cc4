#pragma once

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>

#include "errors/source_line.h"
#include "texts/string_table.h"

namespace quillon::errors {

/// An error with a number, a source and the line of the program that raised it.
class NumberedError : public std::runtime_error {
 public:
  NumberedError(std::int32_t number, std::string source, const std::string& description,
                SourceLine line = __builtin_LINE())
      : std::runtime_error(description), number_(number), source_(std::move(source)), line_(line) {}

  std::int32_t number() const { return number_; }
  const std::string& source() const { return source_; }
  SourceLine line() const { return line_; }

 private:
  std::int32_t number_;
  std::string source_;
  SourceLine line_;
};

/// Numbers of run-time errors.
enum FaultNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kOutOfRange = 9,
  kTypeMismatch = 13,
  kOutOfStack = 28,
  kFileNotFound = 53,
  kDeviceError = 57,
  kDiskFull = 61,
  kEndOfFile = 62,
  kPermissionDenied = 70,
  kFileAccess = 75,
  kPathNotFound = 76,
};

/// What is known of an error.
struct FaultInfo {
  std::int32_t number = kInvalidCall;
  std::string description;  ///< UTF-8, in the language asked for
  SourceLine line = 0;      ///< in the program; 0 when the error does not carry it
};

/// Describes an exception that was trapped.
FaultInfo describe(const std::exception_ptr& error, const texts::Texts& texts);

}  // namespace quillon::errors

#pragma once

#include <filesystem>
#include <string>

#include "convert/driver.h"
#include "convert/messages.h"
#include "convert/run_control.h"
#include "texts/string_table.h"

namespace quillon::convert {

/// Ends a conversion for a reason that the host has been told.
struct EndOfConversion {};

/// Ends a conversion with the message that the script could not be made.
struct ScriptFailure {
  std::string detail;  ///< UTF-8
};

/// What all steps of one conversion share: the job, what has come out so far, and the ways to the
/// user.
struct Conversion {
  Conversion(const ConversionJob& wanted, ConversionHost& hostOfAll, const Surroundings& around);
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;

  /// Tells why the conversion does not go on, and ends it.
  [[noreturn]] void refuse(const Message& message);

  ConversionJob job;  ///< its paths become those that are really used
  ConversionHost& host;
  const Surroundings& surroundings;
  texts::Texts texts;
  Messages messages;
  RunControl control;
  ConversionResult result;
  std::filesystem::path scriptPath;  ///< empty until the script has been looked for
};

}  // namespace quillon::convert

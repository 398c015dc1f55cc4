#pragma once

#include <string>

namespace quillon::files {

/// A date and a time in the system's short formats.
struct LocalTime {
  std::string date;
  std::string time;
};

/// The current date and time in the formats of the user's locale.
LocalTime currentLocalTime();

}  // namespace quillon::files

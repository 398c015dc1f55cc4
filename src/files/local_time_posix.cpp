#include <array>
#include <ctime>

#include "files/local_time.h"

namespace quillon::files {

LocalTime currentLocalTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 64> buffer{};
  LocalTime text;
  text.date.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%x", &local));
  text.time.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%X", &local));
  return text;
}

}  // namespace quillon::files

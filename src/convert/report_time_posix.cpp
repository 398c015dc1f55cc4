#include <array>
#include <ctime>

#include "convert/driver.h"

namespace quillon::convert {

ReportTime currentReportTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 64> buffer{};
  ReportTime text;
  text.date.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%x", &local));
  text.time.assign(buffer.data(), std::strftime(buffer.data(), buffer.size(), "%X", &local));
  return text;
}

}  // namespace quillon::convert

#include <windows.h>

#include <array>

#include "convert/driver.h"
#include "convert/paths.h"

namespace quillon::convert {

ReportTime currentReportTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  constexpr int kRoom = 80;
  std::array<wchar_t, kRoom> buffer{};
  ReportTime text;
  if (GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, buffer.data(), kRoom) >
      0) {
    text.date = fromPath(buffer.data());
  }
  if (GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, buffer.data(), kRoom) > 0) {
    text.time = fromPath(buffer.data());
  }
  return text;
}

}  // namespace quillon::convert

#include <windows.h>

#include <array>

#include "files/local_time.h"
#include "files/paths.h"

namespace quillon::files {

LocalTime currentLocalTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  constexpr int kRoom = 80;
  std::array<wchar_t, kRoom> buffer{};
  LocalTime text;
  if (GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, buffer.data(), kRoom) >
      0) {
    text.date = fromPath(buffer.data());
  }
  if (GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, buffer.data(), kRoom) > 0) {
    text.time = fromPath(buffer.data());
  }
  return text;
}

}  // namespace quillon::files

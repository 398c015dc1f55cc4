#include <locale.h>
#include <time.h>

#include <array>

#include "files/local_time.h"

#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace quillon::files {
namespace {

/// The user's formats of dates and times. They are looked up only where a time is written, as this
/// takes several files; nothing else depends on the locale.
class UserFormats {
 public:
  UserFormats() = default;
  ~UserFormats() {
    if (locale_ != locale_t{}) freelocale(locale_);
  }
  UserFormats(const UserFormats&) = delete;
  UserFormats& operator=(const UserFormats&) = delete;

  std::string text(const char* format, const tm& when) const {
    std::array<char, 64> buffer{};
    // Where the system does not know the user's locale, its own format serves.
    const std::size_t size = locale_ == locale_t{}
                                 ? strftime(buffer.data(), buffer.size(), format, &when)
                                 : strftime_l(buffer.data(), buffer.size(), format, &when, locale_);
    return {buffer.data(), size};
  }

 private:
  locale_t locale_ = newlocale(LC_TIME_MASK, "", locale_t{});
};

}  // namespace

LocalTime currentLocalTime() {
  const time_t now = time(nullptr);
  tm local{};
  localtime_r(&now, &local);
  const UserFormats formats;
  return {formats.text("%x", local), formats.text("%X", local)};
}

}  // namespace quillon::files

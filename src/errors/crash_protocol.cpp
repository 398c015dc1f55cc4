#include "errors/crash_protocol.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace quillon::errors {
namespace {

/// Copies as much as fits after what is there.
template <std::size_t Room>
void appendTo(std::array<char, Room>& room, std::size_t& size, std::string_view piece) {
  const std::size_t count = std::min(piece.size(), room.size() - size);
  std::copy_n(piece.data(), count, room.data() + size);
  size += count;
}

/// How far the local time is ahead of UTC now.
std::int64_t secondsEastOfUtc() {
  using namespace std::chrono;
  const std::time_t now = std::time(nullptr);
  const std::tm* const local = std::localtime(&now);  // before any other thread runs
  if (local == nullptr) return 0;
  const sys_days day = year(local->tm_year + 1900) / (local->tm_mon + 1) / local->tm_mday;
  const seconds asUtc = day.time_since_epoch() + hours(local->tm_hour) + minutes(local->tm_min) +
                        seconds(local->tm_sec);
  return static_cast<std::int64_t>(asUtc.count()) - static_cast<std::int64_t>(now);
}

FixedText dateText(std::int64_t localSeconds) {
  using namespace std::chrono;
  const year_month_day date(sys_days(floor<days>(seconds(localSeconds))));
  return FixedText()
      .number(static_cast<std::uint64_t>(static_cast<int>(date.year())), 4)
      .text("-")
      .number(static_cast<unsigned>(date.month()), 2)
      .text("-")
      .number(static_cast<unsigned>(date.day()), 2);
}

FixedText timeText(std::int64_t localSeconds) {
  using namespace std::chrono;
  const seconds all(localSeconds);
  const hh_mm_ss time(all - floor<days>(all));
  return FixedText()
      .number(static_cast<std::uint64_t>(time.hours().count()), 2)
      .text(":")
      .number(static_cast<std::uint64_t>(time.minutes().count()), 2)
      .text(":")
      .number(static_cast<std::uint64_t>(time.seconds().count()), 2);
}

}  // namespace

void FixedSink::append(std::string_view piece) { appendTo(room_, size_, piece); }

FixedText& FixedText::text(std::string_view piece) {
  appendTo(room_, size_, piece);
  return *this;
}

FixedText& FixedText::number(std::uint64_t value, int digits) {
  std::array<char, 20> reversed{};
  std::size_t count = 0;
  do {
    reversed[count++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value > 0);
  for (int i = static_cast<int>(count); i < digits; ++i) text("0");
  while (count > 0) text({&reversed[--count], 1});
  return *this;
}

CrashProtocol::CrashProtocol(FaultScribe& faults, std::string notice)
    : faults_(faults),
      stack_(faults.callStack()),
      caption_(faults.program().title + std::string(kCaptionSuffix)),
      notice_(std::move(notice)),
      secondsEastOfUtc_(secondsEastOfUtc()) {}

void CrashProtocol::write(std::string_view reason, std::uint64_t code, std::int64_t now,
                          ProtocolSink& sink) const {
  const CallStackList::Entry* const running = stack_.newestProcedure();
  const FixedText number = FixedText().number(code).text(" ").text(reason);
  const FixedText line = FixedText().number(static_cast<std::uint64_t>(stack_.newestLine()));
  const std::int64_t local = now + secondsEastOfUtc_;
  const FixedText date = dateText(local);
  const FixedText time = timeText(local);
  const SystemInfo& system = faults_.system();
  const std::string_view module = running == nullptr ? std::string_view() : running->module;
  const std::string_view procedure = running == nullptr ? std::string_view() : running->procedure;
  writeProtocol({caption_,
                 faults_.programInfo(),
                 {number.view(), module, procedure, line.view()},
                 date.view(),
                 time.view(),
                 system.platform,
                 system.version,
                 system.build,
                 system.servicePack},
                stack_, sink);
}

}  // namespace quillon::errors

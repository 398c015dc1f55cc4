#include "measuring.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "app/headless/memory.h"
#include "convert/driver.h"

namespace quillon::bench {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

[[noreturn]] void failWith(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

/// Shows nothing and answers nothing.
class SilentHost : public convert::ConversionHost {
 public:
  void setStatus(std::string_view) override {}
  void setProgress(bool, int) override {}
  void processEvents() override {}
  bool cancelRequested() override { return false; }
  bool hasCancelButton() const override { return false; }
  bool ask(const convert::Message&) override { return false; }
  void tell(const convert::Message& message) override { told_ = message.detail; }
  std::string chooseDxfFile(const convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

  const std::string& told() const { return told_; }

 private:
  std::string told_;
};

/// What the child reports to its parent.
struct Answer {
  bool converted = false;
  double seconds = 0.0;
  std::uint64_t commands = 0;
};

[[noreturn]] void runChild(const convert::ConversionJob& job, int answerTo) {
  SilentHost host;
  convert::Surroundings surroundings;
  surroundings.limits = {};
  const Clock::time_point start = Clock::now();
  std::error_code none;
  const std::uintmax_t size = std::filesystem::file_size(job.dxfFile, none);
  if (!none) headless::expectDrawing(size);  // as the program does
  const convert::ConversionResult result = convert::convertDXF(job, host, surroundings);
  const Answer answer{result.outcome == convert::Outcome::Converted, secondsSince(start),
                      result.commandCount};
  if (!answer.converted) std::fprintf(stderr, "%s\n", host.told().c_str());
  const bool sent = write(answerTo, &answer, sizeof answer) == sizeof answer;
  _exit(sent ? 0 : 1);
}

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

std::size_t peakOf(const rusage& usage) {
#ifdef __APPLE__
  constexpr std::size_t kUnit = 1;
#else
  constexpr std::size_t kUnit = 1024;
#endif
  return static_cast<std::size_t>(usage.ru_maxrss) * kUnit;
}

}  // namespace

Floor readAndSplit(const std::string& path) {
  std::vector<char> buffer(std::size_t{256} << 10);
  const Clock::time_point start = Clock::now();
  const int file = open(path.c_str(), O_RDONLY);
  if (file < 0) failWith(path);
  Floor floor;
  std::size_t kept = 0;  // start of an incomplete line
  for (;;) {
    if (kept == buffer.size()) buffer.resize(2 * kept);
    const ssize_t got = read(file, buffer.data() + kept, buffer.size() - kept);
    if (got < 0) failWith(path);
    if (got == 0) break;
    const char* line = buffer.data();
    const char* const end = line + kept + got;
    const auto left = [&] { return static_cast<std::size_t>(end - line); };
    while (const void* const found = std::memchr(line, '\n', left())) {
      const char* const stop = static_cast<const char*>(found);
      ++floor.lines;
      floor.characters += static_cast<std::size_t>(stop - line);
      line = stop + 1;
    }
    kept = left();
    std::memmove(buffer.data(), line, kept);
  }
  if (kept != 0) ++floor.lines;
  floor.characters += kept;
  close(file);
  floor.seconds = secondsSince(start);
  return floor;
}

Conversion convertApart(const convert::ConversionJob& job) {
  int ends[2];
  if (pipe(ends) != 0) failWith("pipe");
  const pid_t child = fork();
  if (child < 0) failWith("fork");
  if (child == 0) runChild(job, ends[1]);
  close(ends[1]);
  Answer answer;
  const bool answered = read(ends[0], &answer, sizeof answer) == sizeof answer;
  close(ends[0]);
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) failWith("wait4");
  if (!answered || status != 0 || !answer.converted || answer.commands == 0) {
    throw std::runtime_error(job.dxfFile + " was not converted");
  }
  return {answer.seconds, secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), peakOf(usage),
          answer.commands};
}

Spread spreadOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return {values.front(), values[values.size() / 2], values.back()};
}

}  // namespace quillon::bench

// Measures what surrounds the conversion of small drawings: the program from its start to its end
// with one of them, against a C program that copies as many bytes, and with thousands of them,
// against copying and renaming them.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "measuring.h"
#include "program.h"
#include "support/temp_folder.h"

extern "C" char** environ;

namespace quillon::bench {
namespace {

namespace fs = std::filesystem;

/// Maximum time, as a multiple of what is done for the same bytes without converting them.
constexpr double kMostTime = 1.5;

struct Options {
  std::size_t rounds = 5;
  std::size_t starts = 200;
  std::size_t drawings = 2000;
  std::string folder;  ///< where to work; empty: the system's temporary folder
  bool check = false;
};

/// Lets a program's messages, here of what a drawing has that is left out, go nowhere.
class Silence {
 public:
  Silence() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  ~Silence() { posix_spawn_file_actions_destroy(&actions_); }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

double secondsOf(const std::vector<std::string>& command) {
  static const Silence silence;
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  const int reason = posix_spawnp(&child, words[0], silence.get(), nullptr, words.data(), environ);
  if (reason != 0) throw std::system_error(reason, std::generic_category(), command[0]);
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) {
    throw std::runtime_error(command[0] + " failed");
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Both alternate, so that they see the same load of the machine.
struct Times {
  std::vector<double> own;
  std::vector<double> least;
  std::vector<double> ratios;

  void add(double ownTime, double leastTime) {
    own.push_back(ownTime);
    least.push_back(leastTime);
    ratios.push_back(ownTime / leastTime);
  }
};

/// Prints how often one takes the time of the other; true within the limit.
bool print(const char* what, const Times& times) {
  constexpr double kMilliseconds = 1e3;
  const Spread ratios = spreadOf(times.ratios);
  const bool isWithin = ratios.median <= kMostTime;
  std::printf("%s: %.3f ms, against %.3f ms\n", what, spreadOf(times.own).median * kMilliseconds,
              spreadOf(times.least).median * kMilliseconds);
  std::printf("  times as long: best %.2f  median %.2f  worst %.2f  limit %.1f%s\n", ratios.best,
              ratios.median, ratios.worst, kMostTime, isWithin ? "" : "  OVER THE LIMIT");
  return isWithin;
}

/// The programs, copied as an installation does it: a linker writes a file in pieces, and the
/// system then takes longer to map it.
struct Programs {
  explicit Programs(const fs::path& folder)
      : convert(folder / "quillon-convert"), copyFile(folder / "copy_file") {
    fs::copy_file(QUILLON_CONVERT, convert);
    fs::copy_file(fs::path(QUILLON_CONVERT).replace_filename("quillon.cfh"),
                  folder / "quillon.cfh");
    fs::copy_file(QUILLON_COPY_FILE, copyFile);
  }

  std::string convert;
  std::string copyFile;
};

bool measureStart(const Options& options, const Programs& programs, const fs::path& folder) {
  const std::string drawing = folder / "one.dxf";
  const std::string script = folder / "one.scr";
  const std::string copy = folder / "one.copy";
  fs::copy_file(QUILLON_EXAMPLES "/lid.dxf", drawing);
  Times times;
  for (std::size_t round = 0; round < options.rounds; ++round) {
    std::vector<double> own;
    std::vector<double> least;
    for (std::size_t i = 0; i < options.starts; ++i) {
      least.push_back(secondsOf({programs.copyFile, drawing, copy}));
      own.push_back(secondsOf({programs.convert, "--no-config", "--quiet", "--force", "--unit",
                               "mm", "-o", script, drawing}));
    }
    times.add(spreadOf(own).median, spreadOf(least).median);
  }
  return print("One drawing, from start to end", times);
}

void renameAll(const fs::path& folder) {
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".dxf") {
      fs::rename(entry.path(), fs::path(entry.path()).replace_extension(".scr"));
    }
  }
}

bool measureMany(const Options& options, const Programs& programs, const fs::path& folder) {
  const fs::path drawings = folder / "in";
  fs::create_directory(drawings);
  for (std::size_t i = 0; i < options.drawings; ++i) {
    fs::copy_file(QUILLON_EXAMPLES "/relay-symbol.dxf", drawings / (std::to_string(i) + ".dxf"));
  }
  Times times;
  for (std::size_t round = 0; round < options.rounds; ++round) {
    const fs::path copies = folder / ("copies" + std::to_string(round));
    const fs::path scripts = folder / ("scripts" + std::to_string(round));
    double least = secondsOf({"cp", "-r", drawings, copies});
    const auto start = std::chrono::steady_clock::now();
    renameAll(copies);
    least += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const double own = secondsOf({programs.convert, "--no-config", "--quiet", "--unit", "mm",
                                  "--jobs", "2", "-o", scripts, drawings});
    times.add(own, least);
    fs::remove_all(copies);
    fs::remove_all(scripts);
  }
  return print((std::to_string(options.drawings) + " drawings with two jobs").c_str(), times);
}

int run(int argc, char** argv) {
  Options options;
  CLI::App app("Measures the time that small drawings take apart from their conversion.");
  addRounds(app, options.rounds);
  app.add_option("--starts", options.starts, "Starts of the program in each round")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  app.add_option("--drawings", options.drawings, "Drawings that are converted together")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  app.add_option("--folder", options.folder, "Where to make files, for example on a tmpfs");
  app.add_flag("--check", options.check, "Fail where a limit is not kept");
  CLI11_PARSE(app, argc, argv);
  const testing::TempFolder installed;
  const Programs programs(installed.path());
  if (!options.folder.empty()) setenv("TMPDIR", options.folder.c_str(), 1);
  const testing::TempFolder folder;
  const bool startIsWithin = measureStart(options, programs, folder.path());
  const bool manyAreWithin = measureMany(options, programs, folder.path());
  return options.check && !(startIsWithin && manyAreWithin) ? 1 : 0;
}

}  // namespace
}  // namespace quillon::bench

int main(int argc, char** argv) {
  return quillon::bench::exitCodeOf("small_drawings",
                                    [&] { return quillon::bench::run(argc, argv); });
}

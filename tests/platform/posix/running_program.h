#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform.h"
#include "support/program_call.h"
#include "support/temp_folder.h"

namespace quillon::testing {

/// A program running in a child process. Standard input is a pipe, the other two streams are files
/// outside the program's working folder.
class RunningProgram {
 public:
  explicit RunningProgram(const ProgramCall& call) {
    int input[2];
    if (pipe2(input, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    input_ = input[1];
    std::vector<std::string> words = call.arguments;
    words.insert(words.begin(), call.program);
    std::vector<std::string> environment = call.environment;
    for (const char* const name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
      if (const char* const value = std::getenv(name)) {
        environment.push_back(std::string(name) + "=" + value);
      }
    }
    if (call.unprivileged) {
      // A coverage build writes its counts here at exit.
      std::filesystem::permissions(streams_.path(), std::filesystem::perms::all);
      environment.push_back("GCOV_PREFIX=" + streams_.path().string());
    }
    const std::vector<char*> argv = pointers(words);
    const std::vector<char*> envp = pointers(environment);
    const std::string output = streams_.file("output");
    const std::string error = streams_.file("error");
    process_ = fork();
    if (process_ == 0) {
      const int outputStream = call.outputStream >= 0 ? call.outputStream : openForWriting(output);
      const int errorStream = call.errorStream >= 0 ? call.errorStream : openForWriting(error);
      const bool ready = dup2(input[0], STDIN_FILENO) >= 0 &&
                         dup2(outputStream, STDOUT_FILENO) >= 0 &&
                         dup2(errorStream, STDERR_FILENO) >= 0 && chdir(call.folder.c_str()) == 0 &&
                         limitFiles(call.largestFile) && closeStreams(call.closedStreams) &&
                         (!call.unprivileged || geteuid() != 0 || setuid(kNobody) == 0);
      if (ready) execve(argv[0], argv.data(), envp.data());
      _exit(127);
    }
    close(input[0]);
    if (process_ < 0) throw std::runtime_error("no process");
  }
  ~RunningProgram() {
    closeInput();
    if (process_ > 0) {
      kill(process_, SIGKILL);
      waitpid(process_, nullptr, 0);
    }
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void write(std::string_view bytes) const {
    const auto old = std::signal(SIGPIPE, SIG_IGN);  // the program may exit before it reads all
    while (!bytes.empty()) {
      const ssize_t written = ::write(input_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) break;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    std::signal(SIGPIPE, old);
  }
  void closeInput() {
    if (input_ >= 0) close(input_);
    input_ = -1;
  }
  void interrupt() const { signal(SIGINT); }
  void signal(int number) const { kill(process_, number); }
  /// Where a descriptor of the program leads; empty when it has no such descriptor.
  std::string streamTarget(int descriptor) const {
    std::error_code error;
    const std::string link =
        "/proc/" + std::to_string(process_) + "/fd/" + std::to_string(descriptor);
    return std::filesystem::read_symlink(link, error).string();
  }

  ProgramResult finish() {
    closeInput();
    int status = 0;
    rusage used{};
    while (wait4(process_, &status, 0, &used) < 0 && errno == EINTR) {
    }
    process_ = -1;
    const int exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    const auto kilobytes = static_cast<std::size_t>(used.ru_maxrss);
    return {exitCode, streams_.read("output"), streams_.read("error"), kilobytes << 10};
  }

 private:
  static std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> out;
    out.reserve(texts.size() + 1);
    for (std::string& text : texts) out.push_back(text.data());
    out.push_back(nullptr);
    return out;
  }
  static bool limitFiles(std::uint64_t most) {
    const rlimit limit{most, most};
    return most == 0 || setrlimit(RLIMIT_FSIZE, &limit) == 0;
  }
  static bool closeStreams(const std::vector<int>& streams) {
    for (const int stream : streams) {
      if (close(stream) != 0) return false;
    }
    return true;
  }
  static int openForWriting(const std::string& path) {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  }

  TempFolder streams_;
  int input_ = -1;
  pid_t process_ = -1;
};

}  // namespace quillon::testing

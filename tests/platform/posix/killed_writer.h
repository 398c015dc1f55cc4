#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "files/output_file.h"

namespace quillon::testing {

/// Leaves a killed writer's temporary file in a folder.
inline void killAWriter(const std::filesystem::path& folder) {
  const pid_t writer = fork();
  if (writer == 0) {
    files::OutputFile file(folder / "killed.scr");
    file.write("half of it");
    kill(getpid(), SIGKILL);
  }
  int status = 0;
  if (writer < 0 || waitpid(writer, &status, 0) != writer || !WIFSIGNALED(status)) {
    throw std::runtime_error("no writer was killed");
  }
}

}  // namespace quillon::testing

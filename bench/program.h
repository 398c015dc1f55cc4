#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <cstdio>
#include <exception>

namespace quillon::bench {

inline void addRounds(CLI::App& app, std::size_t& rounds) {
  app.add_option("--rounds", rounds, "Number of rounds")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
}

/// What a program returns: run() decides, or 2 after it has said what went wrong.
template <typename Run>
int exitCodeOf(const char* program, const Run& run) {
  try {
    return run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", program, error.what());
    return 2;
  }
}

}  // namespace quillon::bench

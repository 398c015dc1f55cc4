#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace quillon::headless {

/// Lays out --help within 100 columns: each option with what the user types for its value, and its
/// description beside it.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

  std::string make_usage(const CLI::App* app, std::string name) const override;
  std::string make_positionals(const CLI::App* app) const override;
  std::string make_group(std::string group, bool isPositional,
                         std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
};

}  // namespace quillon::headless

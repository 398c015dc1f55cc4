// Prints what makes a shell complete the command line of quillon-convert: part of the build, not of
// what is installed.

#include <cstdio>
#include <string>

#include "app/completion/completion.h"

int main(int argc, char** argv) {
  const std::string shell = argc == 2 ? argv[1] : "";
  const auto make = shell == "bash"   ? quillon::completion::bashCompletion
                    : shell == "fish" ? quillon::completion::fishCompletion
                    : shell == "zsh"  ? quillon::completion::zshCompletion
                                      : nullptr;
  if (make == nullptr) {
    std::fputs("Usage: quillon-completion bash|fish|zsh\n", stderr);
    return 2;
  }
  const std::string text = make("quillon-convert", quillon::headless::listOptions());
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  return written && std::fflush(stdout) == 0 ? 0 : 1;
}

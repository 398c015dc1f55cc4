#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform.h"
#include "support/dxf_builder.h"
#include "support/program_run.h"
#include "support/temp_folder.h"

namespace quillon::headless {

/// Runs of the real program in an empty folder with a clean environment.
class ProgramTest : public ::testing::Test {
 protected:
  using Strings = std::vector<std::string>;

  ProgramTest() {
    call.program = QUILLON_CONVERT;
    call.folder = folder.path();
  }

  testing::ProgramResult run(Strings arguments, std::string_view input = {}) {
    call.arguments = std::move(arguments);
    testing::ProgramResult result = testing::runProgram(call, input);
    result.error = testing::withSlashes(result.error);
    return result;
  }

  /// Lets the program run without root's rights, which override permissions: as a copy in the
  /// folder, since the one that was built may lie where only root can go.
  void dropRights() {
    namespace fs = std::filesystem;
    fs::permissions(folder.path(), fs::perms(0777));
    call.program = folder.file("program");
    fs::copy_file(QUILLON_CONVERT, call.program);
    fs::permissions(call.program, fs::perms(0755));
    call.unprivileged = true;
  }

  /// The line (0 0) to (1 2).
  static testing::DxfBuilder oneLine() {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    return dxf;
  }
  /// A drawing with nested blocks that multiply to endless work without output.
  static testing::DxfBuilder endless() {
    testing::DxfBuilder dxf;
    for (int level = 0; level < 14; ++level) {
      dxf.beginBlock("L" + std::to_string(level));
      for (int i = 0; i < 10; ++i) {
        dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}});
      }
      dxf.endBlock();
    }
    dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
    return dxf;
  }
  std::string write(std::string_view name, const testing::DxfBuilder& dxf) const {
    return folder.write(name, dxf.text());
  }

  /// The script of oneLine() for a board of that name, or for no board without a name.
  static std::string lineScript(const std::string& name) {
    const std::string open = name.empty() ? "" : "Write;\r\nEdit '" + name + ".brd';\r\n";
    return open + framed(
                      "Layer  20 ;\r\n"
                      "Wire 0.0000000 (R0.0000000 0.0000000) (R1.0000000 2.0000000);\r\n");
  }
  static std::string framed(std::string_view content) {
    return "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\nSet Optimizing off;\r\n"
           "Set Undo_Log off;\r\n" +
           std::string(content) + "Set Undo_Log on;\r\nWindow Fit;\r\n";
  }

  /// The program's summary of one drawing that it converted to a script in its folder.
  std::string summary(const std::string& drawing, int entities, const std::string& script,
                      int lines) const {
    return summaryLines(drawing, entities, script, lines) + "In EAGLE type: SCRIPT '" +
           std::filesystem::canonical(folder.path()).generic_string() + "/" + script + "'\n";
  }
  /// The same for one of several drawings.
  std::string summaryLines(const std::string& drawing, int entities, const std::string& script,
                           int lines) const {
    // Standard input is always oneLine().
    const std::string text = drawing == "-" ? oneLine().text() : folder.read(drawing);
    return drawing + ": " + std::to_string(entities) + " entities converted from " +
           std::to_string(std::count(text.begin(), text.end(), '\n')) + " lines\n" + script + ": " +
           std::to_string(lines) + " lines written\n";
  }
  static std::string errorLine(const std::string& text) {
    return "quillon-convert: error: " + text + "\n";
  }

  /// Paths of everything in the folder, sorted.
  Strings files() const {
    Strings out;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
      out.push_back(entry.path().lexically_relative(folder.path()).generic_string());
    }
    std::sort(out.begin(), out.end());
    return out;
  }

  testing::TempFolder folder;
  testing::ProgramCall call;
};

inline void expectResult(const testing::ProgramResult& result, int exitCode,
                         std::string_view output, std::string_view error) {
  EXPECT_EQ(result.exitCode, exitCode);
  EXPECT_EQ(result.output, output);
  EXPECT_EQ(result.error, testing::withSlashes(std::string(error)));
}

}  // namespace quillon::headless

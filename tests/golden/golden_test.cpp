// Converts every drawing in this folder with the real program and compares the script byte for
// byte. A script that differs stays in the build folder, to be inspected and, if right, copied
// here.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "convert/script_frame.h"
#include "support/program_run.h"
#include "support/script_grammar.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

const fs::path kFolder = QUILLON_GOLDEN_FOLDER;
const fs::path kOutput = QUILLON_GOLDEN_OUTPUT;

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Names of the files with this extension, without it, sorted.
std::vector<std::string> namesOf(const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(kFolder)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Splits at blanks; quotation marks keep words together.
std::vector<std::string> splitWords(const std::string& line) {
  std::vector<std::string> words;
  bool quoted = false;
  bool open = false;
  for (const char c : line) {
    if (c == '\n' || (c == ' ' && !quoted)) {
      open = false;
      continue;
    }
    if (!open) words.emplace_back();
    open = true;
    if (c == '"') {
      quoted = !quoted;
    } else {
      words.back() += c;
    }
  }
  return words;
}

/// The first line in which two texts differ, and its number.
std::string firstDifference(const std::string& expected, const std::string& actual) {
  const auto [in, out] =
      std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  const auto lineAt = [](const std::string& text, std::string::const_iterator position) {
    const std::size_t offset = static_cast<std::size_t>(position - text.begin());
    const std::size_t before = offset == 0 ? std::string::npos : text.rfind('\n', offset - 1);
    const std::size_t start = before == std::string::npos ? 0 : before + 1;
    return text.substr(start, text.find('\n', offset) - start);
  };
  return "line " + std::to_string(1 + std::count(expected.begin(), in, '\n')) +
         "\n  expected: " + lineAt(expected, in) + "\n  actual:   " + lineAt(actual, out);
}

void expectSameFile(const fs::path& expected, const fs::path& actual, const std::string& text) {
  const std::string wanted = readFile(expected);
  if (text == wanted) {
    fs::remove(actual);
    return;
  }
  ADD_FAILURE() << actual << " differs from " << expected << " in "
                << firstDifference(wanted, text);
}

class Golden : public ::testing::TestWithParam<std::string> {};

TEST_P(Golden, DrawingGivesItsScript) {
  const std::string& name = GetParam();
  const fs::path script = kOutput / (name + ".scr");
  const fs::path report = kOutput / (name + ".txt");
  fs::create_directories(kOutput);
  testing::ProgramCall call;
  call.program = QUILLON_CONVERT;
  call.folder = kFolder;
  call.arguments = {name + ".dxf", "--force", "-o", script.string(), "--report", report.string()};
  for (const std::string& word : splitWords(readFile(kFolder / (name + ".args")))) {
    call.arguments.push_back(word);
  }
  const testing::ProgramResult result = testing::runProgram(call);
  ASSERT_EQ(result.exitCode, 0) << result.error;
  expectSameFile(kFolder / (name + ".scr"), script, readFile(script));

  const fs::path expectedReport = kFolder / (name + ".txt.golden");
  std::string text = readFile(report);
  if (!fs::exists(expectedReport)) {
    fs::remove(report);
    return;
  }
  const std::size_t time = text.find(": ") + 2;  // the first field of a report is the time
  text.replace(time, text.find("\r\n", time) - time, "<time>");
  text.replace(text.find(script.string()), script.string().size(), "<script>");
  std::ofstream(report, std::ios::binary) << text;
  expectSameFile(expectedReport, report, text);
}

INSTANTIATE_TEST_SUITE_P(Drawings, Golden, ::testing::ValuesIn(namesOf(".dxf")),
                         [](const ::testing::TestParamInfo<std::string>& drawing) {
                           std::string name = drawing.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(GoldenFolder, HasOptionsAndAScriptForEveryDrawingAndNothingElse) {
  EXPECT_GE(namesOf(".dxf").size(), 150U);
  EXPECT_EQ(namesOf(".args"), namesOf(".dxf"));
  EXPECT_EQ(namesOf(".scr"), namesOf(".dxf"));
}

TEST(GoldenFolder, HasScriptsWhoseEveryLineEndsInCrLf) {
  for (const std::string& name : namesOf(".scr")) {
    const std::string text = readFile(kFolder / (name + ".scr"));
    std::ptrdiff_t pairs = 0;
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += 2) ++pairs;
    EXPECT_TRUE(text.ends_with("\r\n")) << name;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), pairs) << name;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), pairs) << name;
  }
}

/// The value of an option among a drawing's words, or "".
std::string optionOf(const std::vector<std::string>& words, const std::string& option) {
  const auto found = std::find(words.begin(), words.end(), option);
  return found == words.end() || found + 1 == words.end() ? "" : found[1];
}

TEST(GoldenFolder, HasScriptsOfKnownLinesAlone) {
  for (const std::string& name : namesOf(".scr")) {
    const std::vector<std::string> words = splitWords(readFile(kFolder / (name + ".args")));
    // The grammar is that of classic scripts.
    if (optionOf(words, "--rules") == "exact") continue;
    const std::string frame = optionOf(words, "--frame");
    const convert::ScriptFrame lines = convert::parseFrame(
        frame.empty() ? convert::defaultFrameText() : readFile(kFolder / frame));
    const testing::ScriptFacts facts = testing::checkScript(
        readFile(kFolder / (name + ".scr")),
        {optionOf(words, "--eagle") != "3.5", lines.startBlock, lines.endBlock});
    EXPECT_EQ(facts.fault, "") << name;
    EXPECT_GT(facts.lines, 0U) << name;
  }
}

}  // namespace
}  // namespace quillon

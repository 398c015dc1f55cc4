// The program that runs inside EAGLE and calls this one.
#include <fstream>
#include <regex>
#include <sstream>

#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

class EagleUlpTest : public ProgramTest {
 protected:
  static std::string ulp() {
    std::ifstream file(QUILLON_PACKAGING "/eagle/quillon.ulp", std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  static Strings all(const std::string& text, const std::string& pattern) {
    Strings found;
    const std::regex expression(pattern);
    for (std::sregex_iterator it(text.begin(), text.end(), expression), end; it != end; ++it) {
      found.push_back((*it)[1].str());
    }
    return found;
  }
};

TEST_F(EagleUlpTest, AllItsOptionsAreThere) {
  const Strings options = all(ulp(), R"re([ "](--?[a-z-]+)(?=[ "]))re");
  const Strings known = {"--no-config", "--quiet",        "--force",           "--rules",
                         "--unit",      "--language",     "--eagle",           "--target",
                         "--name",      "--drawing-unit", "--closed-as-areas", "-o"};
  EXPECT_EQ(options, known);
}

TEST_F(EagleUlpTest, WhatItChoosesIsConverted) {
  const std::string text = ulp();
  const Strings targets = all(text, "target = \"([a-z]+)\"");
  EXPECT_EQ(targets, (Strings{"board", "schematic", "package", "symbol"}));
  const Strings lists = all(text, "unitWords\\[\\] = \\{ ([^}]*)\\}");
  ASSERT_EQ(lists.size(), 1U);
  const Strings units = all(lists[0], "\"([a-z]+)\"");
  EXPECT_EQ(units.size(), 4U);
  write("part.dxf", oneLine());
  for (const std::string& target : targets) {
    for (const std::string& unit : units) {
      const auto result = run({"--no-config",
                               "--quiet",
                               "--force",
                               "--rules",
                               "exact",
                               "--unit",
                               "mm",
                               "--language",
                               "en",
                               "--eagle",
                               "6",
                               "--target",
                               target,
                               "--name",
                               "",
                               "--drawing-unit",
                               unit,
                               "--closed-as-areas",
                               "-o",
                               folder.file("part.scr"),
                               folder.file("part.dxf")});
      EXPECT_EQ(result.exitCode, 0) << target << ' ' << unit << '\n' << result.error;
      const std::string script = folder.read("part.scr");
      EXPECT_NE(script.find("Wire "), std::string::npos) << target;
      EXPECT_EQ(script.find("Edit "), std::string::npos) << target;
    }
  }
}

TEST_F(EagleUlpTest, HasAsManyClosingBracketsAsOpeningOnes) {
  // Neither texts nor comments count.
  std::string text =
      std::regex_replace(ulp(), std::regex(R"("(\\.|[^"\\])*"|'(\\.|[^'\\])'|//[^\n]*)"), "");
  for (const auto& [opening, closing] : {std::pair('(', ')'), {'{', '}'}, {'[', ']'}}) {
    EXPECT_EQ(std::count(text.begin(), text.end(), opening),
              std::count(text.begin(), text.end(), closing))
        << opening;
  }
  EXPECT_EQ(text.find('"'), std::string::npos);
}

}  // namespace
}  // namespace quillon::headless

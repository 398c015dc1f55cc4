// Pictures of scripts on the command line.
#include <array>
#include <filesystem>
#include <random>
#include <regex>
#include <set>

#include "app/json_value.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::DxfBuilder;
using testing::JsonValue;
using testing::ProgramResult;

class PreviewProgramTest : public ProgramTest {
 protected:
  static bool has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
  }
};

TEST_F(PreviewProgramTest, IsWrittenBesideTheScript) {
  write("part.dxf", oneLine());
  const ProgramResult result = run({"part.dxf", "--unit", "mm", "--preview", "part.svg"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(has(result.error, "part.svg: picture written\n")) << result.error;
  EXPECT_TRUE(has(result.error, "part.scr: ")) << result.error;
  EXPECT_TRUE(folder.has("part.scr"));
  EXPECT_TRUE(has(folder.read("part.svg"), "<g id=\"layer-20\" fill=\"none\" stroke=\"#000000\">"));
}

TEST_F(PreviewProgramTest, DarkPicturesHaveTheOtherColours) {
  write("part.dxf", oneLine());
  run({"part.dxf", "--preview", "part.svg", "--preview-theme", "dark"});
  EXPECT_TRUE(has(folder.read("part.svg"), "stroke=\"#ffffff\""));
  EXPECT_TRUE(has(folder.read("part.svg"), "fill=\"#101418\""));
  EXPECT_TRUE(has(run({"part.dxf", "--preview", "p.svg", "--preview-theme", "blue"}).error,
                  "\"blue\" is not one of light|dark"));
}

TEST_F(PreviewProgramTest, IsWrittenAloneWithoutAScript) {
  write("part.dxf", oneLine());
  const ProgramResult result = run({"part.dxf", "--no-script", "--preview", "part.svg"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_FALSE(folder.has("part.scr"));
  EXPECT_TRUE(folder.has("part.svg"));
  EXPECT_FALSE(has(result.error, "SCRIPT")) << result.error;
}

TEST_F(PreviewProgramTest, AScriptThatIsThereStaysWithoutOne) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "mine");
  EXPECT_EQ(run({"part.dxf", "--no-script", "--preview", "part.svg"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), "mine");
}

TEST_F(PreviewProgramTest, NeedsSomethingToWriteAndNoContradiction) {
  write("part.dxf", oneLine());
  const auto error = [&](const Strings& arguments) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2);
    return result.error;
  };
  EXPECT_TRUE(has(error({"part.dxf", "--no-script"}), "--no-script needs --preview"));
  EXPECT_TRUE(has(error({"part.dxf", "--no-script", "--preview", "p.svg", "-o", "p.scr"}),
                  "-o and --no-script exclude each other"));
  EXPECT_TRUE(has(error({"part.dxf", "--no-script", "--preview", "p.svg", "--newer"}),
                  "--newer needs scripts"));
  EXPECT_TRUE(has(error({"part.dxf", "--preview", ""}), "the name of the preview is empty"));
}

TEST_F(PreviewProgramTest, AnExistingPictureIsReplacedOnlyWithForce) {
  write("part.dxf", oneLine());
  folder.write("part.svg", "mine");
  const ProgramResult refused = run({"part.dxf", "--preview", "part.svg"});
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(has(refused.error, "part.svg exists already. Use --force to replace it."))
      << refused.error;
  EXPECT_EQ(folder.read("part.svg"), "mine");
  EXPECT_FALSE(folder.has("part.scr"));
  EXPECT_EQ(run({"part.dxf", "--preview", "part.svg", "--force"}).exitCode, 0);
  EXPECT_TRUE(has(folder.read("part.svg"), "</svg>"));
}

TEST_F(PreviewProgramTest, ReplacesNoInputAndNoOtherResult) {
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"part.dxf", "--preview", "part.dxf", "--force"}).exitCode, 2);
  EXPECT_EQ(run({"part.dxf", "--preview", "part.scr", "--force"}).exitCode, 2);
}

TEST_F(PreviewProgramTest, SeveralDrawingsHaveAFolderOfPictures) {
  write("a.dxf", oneLine());
  write("b.dxf", oneLine());
  EXPECT_EQ(run({"a.dxf", "b.dxf", "--no-script", "--preview", "pictures"}).exitCode, 0);
  EXPECT_TRUE(folder.has("pictures/a.svg"));
  EXPECT_TRUE(folder.has("pictures/b.svg"));
  EXPECT_FALSE(folder.has("a.scr"));
}

TEST_F(PreviewProgramTest, WhatCannotBeWrittenIsAnError) {
  write("part.dxf", oneLine());
  const ProgramResult result = run({"part.dxf", "--preview", "nofolder/part.svg"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(has(result.error, "part.svg")) << result.error;
  EXPECT_FALSE(has(result.error, "picture written"));
}

TEST_F(PreviewProgramTest, JsonNamesThePicture) {
  write("part.dxf", oneLine());
  const ProgramResult result =
      run({"part.dxf", "--json", "--quiet", "--no-script", "--preview", "part.svg"});
  const JsonValue value =
      JsonValue::parse(std::string_view(result.output).substr(0, result.output.find('\n')));
  EXPECT_EQ(std::filesystem::path(value.at("preview").text()).filename(), "part.svg");
  EXPECT_TRUE(value.at("script").isNull());
}

/// Ends of all straight wires of a script, in thousandths of a unit, sorted.
std::multiset<std::array<long, 4>> wiresOf(const std::string& script) {
  static const std::regex wire(
      R"(Wire +[\d.]+ \(R?(-?[\d.]+) (-?[\d.]+)\) \(R?(-?[\d.]+) (-?[\d.]+)\);)");
  std::multiset<std::array<long, 4>> wires;
  for (std::sregex_iterator i(script.begin(), script.end(), wire), end; i != end; ++i) {
    std::array<long, 4> points{};
    for (std::size_t k = 0; k < 4; ++k) points[k] = std::lround(std::stod((*i)[k + 1]) * 1000.0);
    wires.insert(points);
  }
  return wires;
}

/// The same of the groups of a picture's layers, whose y grow downwards.
std::multiset<std::array<long, 4>> linesOf(const std::string& svg) {
  std::multiset<std::array<long, 4>> lines;
  const std::string layers = svg.substr(0, svg.find("<g id=\"scale\""));
  static const std::regex path(R"(<path stroke-width="[\d.]+" d="([^"]*)\"/>\n)");
  static const std::regex step(R"(([ML])(-?[\d.]+) (-?[\d.]+))");
  for (std::sregex_iterator i(layers.begin(), layers.end(), path), end; i != end; ++i) {
    const std::string steps = (*i)[1];
    std::array<long, 2> pen{};
    for (std::sregex_iterator s(steps.begin(), steps.end(), step); s != end; ++s) {
      const std::array<long, 2> to{std::lround(std::stod((*s)[2]) * 1000.0),
                                   std::lround(std::stod((*s)[3]) * -1000.0)};
      if ((*s)[1] == "L") lines.insert({pen[0], pen[1], to[0], to[1]});
      pen = to;
    }
  }
  return lines;
}

TEST_F(PreviewProgramTest, ItsLinesAreThoseOfTheScript) {
  DxfBuilder dxf;
  std::mt19937 dice(7);
  std::uniform_int_distribution<int> thousandths(-90'000, 90'000);
  for (int i = 0; i < 500; ++i) {
    const auto number = [&] { return std::to_string(thousandths(dice) / 1000.0); };
    const std::string layer = i % 3 == 0 ? "A" : "B";
    dxf.entity("LINE",
               {{8, layer}, {10, number()}, {20, number()}, {11, number()}, {21, number()}});
  }
  write("part.dxf", dxf);
  ASSERT_EQ(run({"part.dxf", "--unit", "mm", "--preview", "part.svg"}).exitCode, 0);
  const auto wires = wiresOf(folder.read("part.scr"));
  EXPECT_EQ(wires.size(), 500U);
  EXPECT_EQ(linesOf(folder.read("part.svg")), wires);
}

}  // namespace
}  // namespace quillon::headless

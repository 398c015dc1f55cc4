// --help: short, in groups, and in words that a user types.
#include <array>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

class HelpTest : public ProgramTest {
 protected:
  struct Entry {
    std::string group;
    std::string value;  ///< what follows the names
    std::string text;   ///< the description, in one line
  };

  HelpTest() : help(run({"--help"}).output) {
    std::istringstream lines(help);
    std::string group;
    Entry* last = nullptr;
    const std::regex option("^  (?:-[a-z], |    )(--[a-z-]+)(?: ([^ ]+))?(?:  +(.*))?$");
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
      if (!line.empty() && line.front() != ' ' && line.back() == ':') {
        group = line.substr(0, line.size() - 1);
        last = nullptr;
      } else if (std::regex_match(line, match, option)) {
        last = &entries[match[1]];
        *last = {group, match[2], match[3]};
      } else if (last != nullptr && line.starts_with("          ")) {
        last->text += " " + line.substr(line.find_first_not_of(' '));
      } else {
        last = nullptr;
      }
    }
  }

  std::string help;
  std::map<std::string, Entry> entries;
  std::set<std::string> covered;
};

TEST_F(HelpTest, HasNoLineLongerThanAHundredColumns) {
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
}

TEST_F(HelpTest, NamesNoTypesOfTheProgram) {
  for (const char* const word :
       {"UINT", "INT", "FLOAT", "BOOLEAN", "ENUM", "STRING", "VECTOR", ":{", "INT in", "->"}) {
    EXPECT_EQ(help.find(word), std::string::npos) << word;
  }
  const std::regex inner(" [A-Z]+:[A-Z{]");
  EXPECT_FALSE(std::regex_search(help, inner));
}

TEST_F(HelpTest, ListsEveryOptionBelowAHeadingWithADescription) {
  EXPECT_GE(entries.size(), 50U);
  for (const auto& [name, entry] : entries) {
    EXPECT_NE(entry.group, "") << name;
    EXPECT_NE(entry.group, "Options") << name;
    EXPECT_NE(entry.text, "") << name;
  }
  // Nothing that looks like an option escapes this test.
  const std::regex any("\n +(?:-[a-z], )?--[a-z]");
  const auto listed =
      std::distance(std::sregex_iterator(help.begin(), help.end(), any), std::sregex_iterator());
  EXPECT_EQ(static_cast<std::size_t>(listed), entries.size());
}

TEST_F(HelpTest, ShowsWhatIsTypedForAValueAndItsDefault) {
  for (const auto& [name, value, text] : std::vector<std::array<std::string, 3>>{
           {"--blocks", "draw|used|all", "draw"},
           {"--config", "FILE", "quillon-convert.toml of the user"},
           {"--drawing-unit", "UNIT", "auto"},
           {"--eagle", "3.5|4|6", "4"},
           {"--files-from", "FILE", "none"},
           {"--fill-width", "NUMBER", "0"},
           {"--frame", "FILE.cfh", "built in"},
           {"--hatch", "lines|border|solid|none", "lines"},
           {"--hole-diameters", "MIN..MAX", "0.2..6.5"},
           {"--holes", "LAYER[,LAYER...]", "none"},
           {"--jobs", "N", "1"},
           {"--join", "MM", "0.01"},
           {"--language", "de|en", "of the locale"},
           {"--layer", "TEXT-OR-NUMBER", "20 Dimension (B)"},
           {"--layers", "FILE.lay", "none"},
           {"--line-types", "solid|style|dashes", "solid"},
           {"--line-width", "NUMBER", "0"},
           {"--max-input", "SIZE", "4G from a pipe"},
           {"--max-lines", "N", "20000000"},
           {"--max-steps", "N", "50000000"},
           {"--name", "TEXT", "file name"},
           {"--offset-x", "NUMBER", "0"},
           {"--offset-y", "NUMBER", "0"},
           {"--output", "FILE", "beside the drawing"},
           {"--place", "keep|lower-left|centre", "keep"},
           {"--points", "glyph|dot|none|hole:D", "glyph"},
           {"--poly", "wire0|wire|polyline|-1", "polyline"},
           {"--poly-width", "NUMBER", "0"},
           {"--preview", "FILE.svg", "none"},
           {"--preview-theme", "light|dark", "light"},
           {"--report", "FILE", "none"},
           {"--rules", "classic|exact", "classic"},
           {"--scale", "NUMBER", "1.000"},
           {"--space", "model|paper|both", "model"},
           {"--target", "board|schematic|package|symbol", "board"},
           {"--tolerance", "MM", "0.001"},
           {"--unit", "mic|mm|mil|inch", "mil"},
           {"--wide-lines", "auto|wires|areas", "auto"}}) {
    ASSERT_TRUE(entries.contains(name)) << name;
    EXPECT_EQ(entries[name].value, value) << name;
    EXPECT_TRUE(entries[name].text.ends_with(" [" + text + "]"))
        << name << ": " << entries[name].text;
    covered.insert(name);
  }
  // A new option with a value has a place in this list.
  for (const auto& [name, entry] : entries) {
    EXPECT_EQ(!entry.value.empty(), covered.contains(name)) << name;
  }
}

TEST_F(HelpTest, StartsWithWhatTheProgramIsFor) {
  EXPECT_TRUE(
      help.starts_with("Turns DXF drawings into scripts for the EAGLE PCB editor.\n"
                       "Usage: quillon-convert [OPTIONS] DRAWING.dxf...\n"
                       "\n"
                       "  DRAWING.dxf...                DXF drawings, or folders of them; - reads "
                       "standard input\n"
                       "\n"
                       "Drawings:\n"))
      << help;
}

}  // namespace
}  // namespace quillon::headless

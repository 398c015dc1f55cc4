// The system's profile functions and ours give the same results and write the same bytes. Built
// where the system has such functions.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "convert/layer_file.h"
#include "files/ini_file.h"
#include "settings/own_profile.h"
#include "settings/profile.h"
#include "support/temp_folder.h"

namespace quillon::settings {
namespace {

namespace fs = std::filesystem;

struct NastyFile {
  const char* name;
  std::string bytes;
  /// Unchanged lines stay as they are with ours, while Wine rewrites them without blanks and empty
  /// lines. If set, these are ignored in the comparison.
  bool untidy = false;
};

std::string trimmed(const std::string& text) {
  const std::size_t start = text.find_first_not_of(" \t");
  return start == std::string::npos ? std::string()
                                    : text.substr(start, text.find_last_not_of(" \t") + 1 - start);
}

/// Bytes without empty lines, blanks around names and values, and anything after a section's
/// bracket.
std::string tidied(const std::string& bytes) {
  std::istringstream lines(bytes);
  std::string out;
  for (std::string line; std::getline(lines, line);) {
    line = trimmed(line.substr(0, line.find('\r')));
    const std::size_t equals = line.find('=');
    if (line.empty()) continue;
    if (line.front() == '[') {
      line = "[" + trimmed(line.substr(1, line.rfind(']') - 1)) + "]";
    } else if (equals != std::string::npos) {
      line = trimmed(line.substr(0, equals)) + "=" + trimmed(line.substr(equals + 1));
    }
    out += line + "\r\n";
  }
  return out;
}

void PrintTo(const NastyFile& file, std::ostream* out) { *out << file.name; }

std::string longText(char c, std::size_t size) { return std::string(size, c); }

/// Files as left by editors, other programs and accidents.
std::vector<NastyFile> nastyFiles() {
  return {
      {"Empty", ""},
      {"Plain", "[dxf]\r\nkey=1\r\nother=2\r\n[global]\r\nlanguage=0\r\n"},
      {"NoFinalLineEnd", "[dxf]\r\nkey=1"},
      {"SectionWithoutFinalLineEnd", "[dxf]\r\nkey=1\r\n[global]"},
      {"UnixLineEnds", "[dxf]\nkey=1\nother=2\n"},
      {"Comments", "; first\r\n[dxf]\r\n;key=0\r\nkey=1 ; behind\r\n# no comment=3\r\n"},
      {"EmptyLines", "\r\n\r\n[dxf]\r\n\r\nkey=1\r\n\r\n\r\n[global]\r\nlanguage=1\r\n\r\n", true},
      {"DuplicateSections", "[dxf]\r\nkey=1\r\n[global]\r\nkey=g\r\n[dxf]\r\nkey=2\r\nother=3\r\n"},
      {"DuplicateKeys", "[dxf]\r\nkey=1\r\nkey=2\r\nKEY=3\r\n"},
      {"Case", "[DXF]\r\nKey=1\r\nOTHER=2\r\n"},
      {"BlanksAroundNames", "[dxf]\r\n  key  =  1  \r\n\tother\t=\t2\t\r\n", true},
      {"BlanksAroundSections", "  [dxf]  \r\nkey=1\r\n[ global ]\r\nkey=2\r\n", true},
      {"Quotes",
       "[dxf]\r\nkey=\"quoted\"\r\nother='single'\r\nthird=\"\"twice\"\"\r\n"
       "fourth=\"open\r\nfifth=\"mixed'\r\nsixth=\"  blanks  \"\r\nseventh=\"\r\n"},
      {"EmptyValues", "[dxf]\r\nkey=\r\nother=   \r\nthird=\"\"\r\n", true},
      {"EmptyKeys", "[dxf]\r\n=1\r\nkey=3\r\n"},
      {"NoEqualsSign", "[dxf]\r\nkey\r\nother\r\nkey=1\r\n"},
      {"TwoEqualsSigns", "[dxf]\r\nkey=a=b=c\r\nother==x\r\n"},
      {"KeysBeforeAnySection", "key=0\r\n[dxf]\r\nkey=1\r\n"},
      {"UnclosedSection", "[dxf\r\nkey=1\r\n[global]\r\nkey=2\r\n"},
      {"BracketsInSection", "[d[x]f]\r\nkey=1\r\n[dxf] tail\r\nkey=2\r\n", true},
      {"LongLine", "[dxf]\r\nkey=" + longText('x', 5000) + "\r\nother=2\r\n"},
      {"ValueOf254", "[dxf]\r\nkey=" + longText('x', 254) + "\r\n"},
      {"ValueOf255", "[dxf]\r\nkey=" + longText('x', 255) + "\r\n"},
      {"BlankAtTheLimit", "[dxf]\r\nkey=" + longText('x', 253) + " y\r\n"},
      {"Umlauts",
       "[dxf]\r\nkey=Geh\xE4use\r\n\xDC"
       "ber=\x80 5\r\n"},
      {"UmlautCase", "[\xC4]\r\n\xD6=1\r\n"},
      {"PathValues", "[dxf]\r\nkey=C:\\Temp\\a b.dxf\r\nother=\\\\server\\share\\x\r\n"},
  };
}

struct Question {
  const char* section;
  const char* key;
};

/// UTF-8.
const std::vector<Question>& questions() {
  static const std::vector<Question> all = {
      {"dxf", "key"},    {"dxf", "other"},    {"dxf", "third"},        {"dxf", "fourth"},
      {"dxf", "fifth"},  {"dxf", "sixth"},    {"dxf", "seventh"},      {"DXF", "KEY"},
      {"dxf", "Über"},   {"dxf", "none"},     {"dxf", "# no comment"}, {"global", "language"},
      {"global", "key"}, {" global ", "key"}, {"none", "key"},         {"d[x]f", "key"},
      {"Ä", "Ö"},        {"ä", "ö"}};
  return all;
}

class ProfileConformance : public ::testing::TestWithParam<NastyFile> {
 protected:
  void expectSameAnswers(const std::string& file, const std::string& step) {
    for (const auto& [section, key] : questions()) {
      EXPECT_EQ(readOwnProfile(file, section, key), readProfile(file, section, key))
          << step << " [" << section << "] " << key;
    }
  }

  testing::TempFolder folder;
};

TEST_P(ProfileConformance, ReadsAsTheSystemDoes) {
  expectSameAnswers(folder.write("a.ini", GetParam().bytes), "read");
}

TEST_P(ProfileConformance, WritesAsTheSystemDoes) {
  const std::string theirs = folder.write("theirs.ini", GetParam().bytes);
  const std::string own = folder.write("own.ini", GetParam().bytes);
  struct Step {
    const char* section;
    const char* key;
    const char* value;
  };
  const std::vector<Step> steps = {{"dxf", "key", "new"},     {"DXF", "OTHER", "C:\\Ä.dxf"},
                                   {"dxf", "added", ""},      {"global", "language", "10000"},
                                   {"fresh", "first", "a=b"}, {"dxf", "third", "with blank"},
                                   {"dxf", "key", "€ 2"}};
  for (const auto& [section, key, value] : steps) {
    ASSERT_TRUE(writeProfile(theirs, section, {{key, value}}));
    ASSERT_TRUE(writeOwnProfile(own, section, {{key, value}}));
    const std::string step = std::string("[") + section + "] " + key + "=" + value;
    const std::string written = folder.read("own.ini");
    EXPECT_EQ(GetParam().untidy ? tidied(written) : written, folder.read("theirs.ini")) << step;
    expectSameAnswers(own, step);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, ProfileConformance, ::testing::ValuesIn(nastyFiles()),
                         [](const auto& file) { return std::string(file.param.name); });

TEST(LayerFileConformance, IsReadAndWrittenAsTheSystemWouldDoIt) {
  const testing::TempFolder folder;
  const std::string before = "[notes]\r\nby=me\r\n[1]\r\nlayername=OLD\r\nlayernr=20\r\n";
  const std::string theirs = folder.write("theirs.lay", before);
  const std::string own = folder.write("own.lay", before);
  convert::saveLayerRows(own, {{"Gehäuse", "21"}, {"\"quoted\"", "999"}, {"A=B ; C", "16"}});
  const auto write = [&theirs](const char* section, const char* key, const char* value) {
    ASSERT_NE(WritePrivateProfileStringA(section, key, value, theirs.c_str()), 0);
  };
  write("1", nullptr, nullptr);
  write("1", "layername", "Geh\xE4use");
  write("1", "layernr", "21");
  write("2", "layername", "\"\"quoted\"\"");
  write("2", "layernr", "999");
  write("3", "layername", "A=B ; C");
  write("3", "layernr", "16");
  EXPECT_EQ(folder.read("own.lay"), folder.read("theirs.lay"));
  const files::IniFile file = files::IniFile::read(own);
  for (const char* const section : {"1", "2", "3", "4", "notes"}) {
    for (const char* const key : {"layername", "layernr", "by"}) {
      char buffer[255];
      GetPrivateProfileStringA(section, key, "", buffer, sizeof buffer, own.c_str());
      EXPECT_EQ(file.value(section, key), buffer) << section << " " << key;
    }
  }
}

}  // namespace
}  // namespace quillon::settings

// Any bytes are an INI file: a value that is set can be read back, all others stay.
#include <string>
#include <string_view>

#include "files/ini_document.h"
#include "files/ini_file.h"
#include "files/ini_line.h"
#include "parts.h"
#include "run_once.h"
#include "settings/profile_text.h"

namespace {

using quillon::files::IniDocument;
using quillon::files::IniFile;
using quillon::fuzz::require;

}  // namespace

void quillon::fuzz::runOnce(std::string_view data) {
  const std::string_view value = quillon::fuzz::takePart(data);
  const IniFile before(data);

  IniDocument document(data);
  document.set("dxf", "scr", value);
  const IniFile after(document.text());
  // Reading trims and unquotes, as for a line with the same text.
  std::string line = "scr=" + std::string(value);
  for (char& c : line) c = c == '\r' || c == '\n' ? ' ' : c;
  require(after.wholeValue("DXF", "Scr") == quillon::files::parseIniLine(line).value,
          "a value that is set is read back");
  for (const char* key : {"dxffile", "unit", "layername"}) {
    for (const char* section : {"dxf", "global", "1"}) {
      require(after.wholeValue(section, key) == before.wholeValue(section, key),
              "every other value stays");
    }
  }
  require(IniDocument(document.text()).text() == document.text(), "a document is stable");

  const std::string utf8 = quillon::settings::decodeProfile(data);
  require(quillon::settings::decodeProfile(quillon::settings::encodeProfile(utf8)) == utf8,
          "a settings file is read as it was written");
}

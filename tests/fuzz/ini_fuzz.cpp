// Any bytes are an INI file: a value that is set is read back, every other one stays.
#include <cstdlib>
#include <string>
#include <string_view>

#include "convert/ini_document.h"
#include "convert/ini_file.h"
#include "convert/ini_line.h"
#include "parts.h"
#include "ui/settings/profile_text.h"

namespace {

using quillon::convert::IniDocument;
using quillon::convert::IniFile;

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  std::string_view data(reinterpret_cast<const char*>(bytes), size);
  const std::string_view value = quillon::fuzz::takePart(data);
  const IniFile before(data);

  IniDocument document(data);
  document.set("dxf", "scr", value);
  const IniFile after(document.text());
  // Reading trims and takes quotes off, as it does with a line that says the same.
  std::string line = "scr=" + std::string(value);
  for (char& c : line) c = c == '\r' || c == '\n' ? ' ' : c;
  require(after.wholeValue("DXF", "Scr") == quillon::convert::parseIniLine(line).value);
  for (const char* key : {"dxffile", "unit", "layername"}) {
    for (const char* section : {"dxf", "global", "1"}) {
      require(after.wholeValue(section, key) == before.wholeValue(section, key));
    }
  }
  require(IniDocument(document.text()).text() == document.text());

  const std::string utf8 = quillon::settings::decodeProfile(data);
  require(quillon::settings::decodeProfile(quillon::settings::encodeProfile(utf8)) == utf8);
  return 0;
}

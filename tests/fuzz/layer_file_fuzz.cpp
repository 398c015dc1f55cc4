// Any bytes are a layer assignment file: saving what was read gives a file that reads the same.
#include <sys/stat.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "base/number_text.h"
#include "convert/layer_file.h"
#include "convert/layer_table.h"
#include "files/paths.h"
#include "memory_folder.h"
#include "parts.h"
#include "run_once.h"

namespace {

using quillon::convert::LayerRow;
using quillon::fuzz::require;

/// The rows that a saved file must hold.
std::vector<LayerRow> savedRows(const std::vector<LayerRow>& rows) {
  std::vector<LayerRow> saved;
  for (const LayerRow& row : rows) {
    if (quillon::convert::isSaved(row)) saved.push_back(row);
  }
  return saved;
}

/// False for a name with quotes or control characters that do not survive saving.
bool isPlain(const std::string& name) {
  return name.find_first_of("\"'\r\n") == std::string::npos && name.find('\0') == std::string::npos;
}

}  // namespace

using quillon::files::readFile;

void quillon::fuzz::runOnce(std::string_view data) {
  static const quillon::fuzz::MemoryFolder folder;
  const std::string path = folder.write("a.lay", data);
  const std::vector<LayerRow> rows = quillon::convert::readLayerRows(path);
  std::size_t bytes = 0;
  for (const LayerRow& row : rows) {
    bytes += row.name.size();
    require(!quillon::base::trimBlanks(row.name).empty(), "a row has a name");
    require(row.layer == quillon::base::numberText(quillon::base::numberValue(row.layer)),
            "a layer is a plain number");
    require(quillon::convert::fitsLayerFile(row.name), "what was read can be written");
  }
  require(bytes <= 3 * data.size() && rows.size() <= data.size(),
          "the rows are no more than the file");

  try {
    quillon::convert::saveLayerRows(path, rows);
  } catch (const quillon::convert::NotALayerFile&) {
    require(readFile(path) == data, "a file of another kind stays as it was");
    return;
  }
  const std::vector<LayerRow> expected = savedRows(rows);
  const std::vector<LayerRow> again = quillon::convert::readLayerRows(path);
  require(again.size() == expected.size(), "all saved rows are read again");
  for (std::size_t i = 0; i < again.size(); ++i) {
    require(again[i].layer == expected[i].layer, "a layer is read as it was saved");
    if (!isPlain(expected[i].name)) continue;
    require(again[i].name == expected[i].name, "a name is read as it was saved");
  }
  const quillon::convert::LayerTable table =
      quillon::convert::layerTableOf(quillon::convert::readLayerRows(path));
  require(table.size() == again.size(), "the table has all rows");
  for (const LayerRow& row : again) {
    require(
        table.find(quillon::base::upperCase(row.name, quillon::base::Encoding::Utf8)) != nullptr,
        "every layer is found");
  }
}

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "convert/layer_file_kind.h"

namespace quillon::convert {

/// One assignment of a layer assignment file.
struct LayerRow {
  std::string name;       ///< the DXF layer, UTF-8, as typed
  std::string layer;      ///< text that begins with the number of the EAGLE layer
  std::string text = {};  ///< what a file has for the layer, UTF-8
};

/// Assignments would have to go into a file of another kind, which stays as it is.
class NotALayerFile : public std::runtime_error {
 public:
  explicit NotALayerFile(LayerFileKind kind)
      : std::runtime_error("not a layer assignment file"), kind_(kind) {}
  LayerFileKind kind() const { return kind_; }

 private:
  LayerFileKind kind_;
};

/// The rows of sections 1, 2, 3, … until one has no name; their layers are plain decimal numbers.
/// An empty path, or one where no file can be read, gives no rows.
std::vector<LayerRow> readLayerRows(const std::string& path);

/// The same for a file that has been named: throws ReadError when it cannot be read.
std::vector<LayerRow> readNamedLayerRows(const std::string& path);

/// True when a text begins with the number of an EAGLE layer, rounded from 1 to 255, or 999.
bool isEagleLayer(std::string_view text);

/// True when a number in a file is none of EAGLE's layers. A text without a number is not meant: it
/// counts as layer 0.
bool isForeignLayer(const LayerRow& row);

/// True when a text has no number, or its number goes straight on into something else ("20,5"). A
/// name may follow after a blank ("20 Dimension (B)").
bool isCutLayer(std::string_view text);

/// True for a row that is saved: it has a name, and a layer from 1 to 255, or 999.
bool isSaved(const LayerRow& row);

/// True when a name can be written as it is: the file has the characters of Windows-1252 alone.
bool fitsLayerFile(const std::string& name);

/// Replaces the assignments in a file by those of the rows that are saved, in their order; sections
/// whose name is no number are kept. The file is complete or as it was. Characters that
/// Windows-1252 lacks become "?". Throws ReadError, NotALayerFile, or WriteError, also for a file
/// in a folder that does not exist.
void saveLayerRows(const std::string& path, const std::vector<LayerRow>& rows);

}  // namespace quillon::convert

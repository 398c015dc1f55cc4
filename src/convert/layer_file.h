#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "convert/layer_file_kind.h"

namespace quillon::convert {

/// One assignment of a layer assignment file.
struct LayerRow {
  std::string name;   ///< the DXF layer, UTF-8, as typed
  std::string layer;  ///< text that begins with the number of the EAGLE layer
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

/// True for a row that is saved: it has a name, and a layer from 1 to 255, or 999.
bool isSaved(const LayerRow& row);

/// True when a name can be written as it is: the file has the characters of Windows-1252 alone.
bool fitsLayerFile(const std::string& name);

/// Replaces the assignments in a file by those of the rows that are saved, in their order; sections
/// whose name is no number are kept. The file is complete or as it was. Characters that
/// Windows-1252 lacks become "?". Throws ReadError, WriteError or NotALayerFile.
void saveLayerRows(const std::string& path, const std::vector<LayerRow>& rows);

}  // namespace quillon::convert

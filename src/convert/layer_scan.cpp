#include "convert/layer_scan.h"

#include <unordered_set>
#include <utility>

#include "base/encoding.h"
#include "base/run_monitor.h"
#include "convert/drawing_input.h"
#include "dxf/drawing.h"
#include "dxf/entity_reader.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"

namespace quillon::convert {
namespace {

/// Shows nothing: tables are at the start of a drawing.
class ScanMonitor : public base::RunMonitor {
 public:
  explicit ScanMonitor(const std::function<bool()>& cancelled) : cancelled_(cancelled) {}

  void setStatus(base::ReadPhase, std::uint64_t) override {}
  void setProgress(bool, std::uint64_t, std::uint64_t) override {}
  bool cancelRequested() override { return cancelled_(); }
  void waitForUser() override {}

 private:
  const std::function<bool()>& cancelled_;
};

/// Lists each layer when it is first used.
class UsedLayers : public dxf::EntitySink {
 public:
  explicit UsedLayers(dxf::Drawing& drawing) : drawing_(drawing), reader_(drawing) {}

  void takeEntity(dxf::DxfEntity& entity) override {
    reader_.complete(entity);
    // Layers are numbered in order of first use.
    if (entity.layer == nullptr || entity.layer->number < uses_) return;
    ++uses_;
    std::string name = base::toUtf8(entity.layer->name, drawing_.encoding);
    if (name.empty() || !known_.insert(name).second) return;
    names_.push_back(std::move(name));
  }

  void takeBlocks() {
    for (const dxf::BlockRec& block : drawing_.blocks) {
      dxf::EntityCursor items(drawing_.store, block.items);
      for (dxf::DxfEntity item; items.next(item);) takeEntity(item);
    }
  }

  std::vector<std::string> names() && { return std::move(names_); }

 private:
  dxf::Drawing& drawing_;
  dxf::EntityReader reader_;
  std::size_t uses_ = 0;  ///< spellings seen, including the empty one
  std::unordered_set<std::string> known_;
  std::vector<std::string> names_;
};

std::vector<std::string> usedLayers(dxf::LineReader& reader) {
  dxf::Drawing drawing;
  reader.rewind();
  dxf::readDefinitions(drawing, reader);
  UsedLayers layers(drawing);
  layers.takeBlocks();
  dxf::readContents(drawing, reader, layers, true);
  return std::move(layers).names();
}

}  // namespace

std::vector<std::string> layersOfText(dxf::TextSource& text,
                                      const std::function<bool()>& cancelled) {
  ScanMonitor monitor(cancelled);
  dxf::LineReader reader(text, monitor);
  reader.rewind();
  dxf::Drawing drawing;
  dxf::readHeaderAndTables(drawing, reader);
  if (drawing.layers.empty()) return usedLayers(reader);
  std::vector<std::string> names;
  names.reserve(drawing.layers.size());
  for (const dxf::LayerRec& layer : drawing.layers) {
    names.push_back(base::toUtf8(layer.name, drawing.encoding));
  }
  return names;
}

std::vector<std::string> layerScanDXF(const std::string& path) {
  const std::filesystem::path found = files::findExisting(path);
  if (path.empty() || !files::namesFile(found)) return {};
  const std::function<bool()> never = [] { return false; };
  const DrawingInput input = DrawingInput::openFile(found, never);
  if (input.kind() != InputKind::Text) return {};
  dxf::TextSource text = input.text(never);
  return layersOfText(text, never);
}

}  // namespace quillon::convert

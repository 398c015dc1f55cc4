#include "convert/layer_scan.h"

#include "convert/drawing_input.h"
#include "dxf/drawing.h"
#include "dxf/encoding.h"
#include "dxf/line_reader.h"
#include "dxf/run_monitor.h"
#include "dxf/section_walker.h"

namespace quillon::convert {
namespace {

/// Nobody watches a scan: tables stand at the start of a drawing.
class NoMonitor : public dxf::RunMonitor {
 public:
  void setStatus(dxf::ReadPhase, std::uint64_t) override {}
  void setProgress(bool, std::uint64_t, std::uint64_t) override {}
  bool cancelRequested() override { return false; }
  void waitForUser() override {}
};

}  // namespace

std::vector<std::string> layerScanDXF(const std::string& path) {
  std::vector<std::string> names;
  const std::filesystem::path found = findExisting(path);
  if (path.empty() || !namesFile(found)) return names;
  const auto never = [] { return false; };
  const DrawingInput input = DrawingInput::openFile(found, never);
  if (input.kind() != InputKind::Text) return names;
  const std::unique_ptr<dxf::TextSource> text = input.text(never);
  NoMonitor monitor;
  dxf::LineReader reader(*text, monitor);
  dxf::Drawing drawing;
  dxf::readHeaderAndTables(drawing, reader);
  names.reserve(drawing.layers.size());
  for (const dxf::LayerRec& layer : drawing.layers) {
    names.push_back(dxf::toUtf8(layer.name, drawing.encoding));
  }
  return names;
}

}  // namespace quillon::convert

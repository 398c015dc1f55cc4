#include "convert/report.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/number_text.h"

namespace quillon::convert {
namespace {

using dxf::EntityKind;

struct CountLine {
  std::string_view label;
  EntityKind kind;
};

/// One line per counter, in the report's order.
constexpr std::array<CountLine, 18> kCountLines = {{
    {"ARC           :", EntityKind::Arc},
    {"ATTDEF        :", EntityKind::Attdef},
    {"ATTRIB        :", EntityKind::Attrib},
    {"INSERT(Blocks):", EntityKind::Insert},
    {"CIRCLE        :", EntityKind::Circle},
    {"DIMENSION     :", EntityKind::Dimension},
    {"ELLIPSE       :", EntityKind::Ellipse},
    {"3DFACE        :", EntityKind::Face3d},
    {"3DLINE        :", EntityKind::Line3d},
    {"LINE          :", EntityKind::Line},
    {"LWPOLYLINE    :", EntityKind::LwPolyline},
    {"SPLINE        :", EntityKind::Spline},
    {"POINT         :", EntityKind::Point},
    {"POLYLINE      :", EntityKind::Polyline},
    {"SHAPE         :", EntityKind::Shape},
    {"SOLID         :", EntityKind::Solid},
    {"TEXT          :", EntityKind::Text},
    {"TRACE         :", EntityKind::Trace},
}};

constexpr int kFirstPolyText = 950;
constexpr int kFirstBlockText = 953;
constexpr int kListLength = 3;

/// A report under construction.
class ReportText {
 public:
  explicit ReportText(const texts::Texts& texts) : texts_(texts) {}

  /// Adds a line and returns its size in bytes.
  std::size_t line(std::string_view text) {
    out_.append("\r\n").append(text);
    return text.size() + 2;
  }
  void blank() { line(""); }
  /// A label of the string table and its value.
  void field(int id, std::string_view value) {
    line(texts_(id));
    out_.append(value);
  }
  void field(int id) { line(texts_(id)); }
  std::string_view onOff(bool on) const { return texts_(on ? 2911 : 2912); }
  std::string_view listText(int firstId, int index) const {
    return index >= 0 && index < kListLength ? texts_(firstId + index) : std::string_view{};
  }

  std::string take() { return std::move(out_); }

 private:
  const texts::Texts& texts_;
  std::string out_;
};

/// Limits lines that only repeat a name: entries of the same name look the same, and with thousands
/// of them a report could become many times as long as the drawing.
class Repetitions {
 public:
  /// Whether to write the line of an entry; `first`: its name is new.
  bool admit(bool first) {
    first_ = first;
    if (first || bytes_ < kMostBytes) return true;
    ++left_;
    return false;
  }
  /// Counts an admitted line that has been written.
  void count(std::size_t bytes) {
    if (!first_) bytes_ += bytes;
  }
  /// Writes how many lines are missing.
  void close(ReportText& text, const texts::Texts& texts) const {
    if (left_ > 0) text.line(texts(3081, {std::to_string(left_)}));
  }

 private:
  /// Ordinary drawings have few blocks or layers of the same name, if any.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 10;

  bool first_ = true;
  std::size_t bytes_ = 0;
  std::size_t left_ = 0;
};

int nameLabel(int targetKind) {
  switch (targetKind) {
    case kBoard:
      return 2904;
    case kSchematic:
      return 2906;
    default:
      return 2905;
  }
}

void putSettings(ReportText& text, const ConversionJob& job, const ConversionResult& result,
                 const files::LocalTime& now) {
  text.field(2900);
  text.field(2934);
  text.blank();
  text.field(2901, now.date + "    " + now.time);
  text.field(2902, result.dxfFile);
  text.field(2903, result.scriptFile);
  text.field(nameLabel(job.targetKind), job.drawingName);
  text.blank();
  text.field(2907, versionText(job.version));
  text.field(2908, base::trimBlanks(job.scaleText));
  text.field(2909, unitText(job.unit));
  text.field(2910, text.onOff(job.dotted));
  text.field(2913, text.onOff(job.ellipses));
  text.field(2914, text.listText(kFirstPolyText, job.poly));
  text.field(2915, text.listText(kFirstBlockText, job.blocks));
  text.blank();
}

void putLayers(ReportText& text, const ConversionJob& job, dxf::Drawing& drawing,
               const LayerAssignment& layers, const texts::Texts& texts) {
  text.field(2916, job.layerFile.empty() ? texts(2917) : std::string_view(job.layerFile));
  text.field(2918, job.defaultLayer);
  text.blank();
  text.blank();
  text.field(2919);
  text.blank();
  text.field(2920);
  text.field(2935);
  Repetitions repetitions;
  for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
    dxf::LayerRec& layer = drawing.layers[i];
    layer.used = true;  // looking up a layer marks it as used
    if (!repetitions.admit(drawing.isFirstLayer(i))) continue;
    repetitions.count(text.line(base::toUtf8(layer.name, drawing.encoding) + " ==> " +
                                std::string(layers.lookupLayer(layer.name))));
  }
  repetitions.close(text, texts);
}

std::string blockLine(const dxf::BlockRec& block, const ConversionJob& job,
                      const dxf::Drawing& drawing, const BlockLibrary& library,
                      const texts::Texts& texts) {
  std::string line(texts(library.wasInserted(block.name) ? 2923 : 2924));
  line += base::toUtf8(block.name, drawing.encoding) + " ==> ";
  for (const std::string& part : library.partNames(block.name)) {
    line.append(part);
    if (job.targetKind == kBoard) {
      line.append(".pac; ");
    } else {
      line.append(".sym (").append(part).append(".dev ); ");
    }
  }
  return line;
}

void putBlocks(ReportText& text, const ConversionJob& job, const dxf::Drawing& drawing,
               const BlockLibrary& library, const texts::Texts& texts) {
  text.blank();
  text.field(2921);
  text.blank();
  text.field(2922);
  text.field(2935);
  if (job.blocks == kDrawBlocks) text.field(2925);
  if (job.blocks != kUsedBlocksAsParts && job.blocks != kAllBlocksAsParts) return;
  Repetitions repetitions;
  for (std::size_t i = 0; i < drawing.blocks.size(); ++i) {
    const dxf::BlockRec& block = drawing.blocks[i];
    if (!repetitions.admit(dxf::findBlock(drawing, block.name) == i)) continue;
    repetitions.count(text.line(blockLine(block, job, drawing, library, texts)));
  }
  repetitions.close(text, texts);
}

void putCounts(ReportText& text, const ConversionResult& result, const texts::Texts& texts) {
  text.blank();
  text.field(2926);
  text.blank();
  text.field(2927);
  text.field(2935);
  for (const auto& [label, kind] : kCountLines) {
    text.line(std::string(label) + std::to_string(result.counts[static_cast<std::size_t>(kind)]));
  }
  text.field(2935);
  text.line(std::to_string(result.linesRead) + " " + std::string(texts(2928)));
  text.line(std::to_string(result.commandCount) + " " + std::string(texts(2929)));
  text.line("  ");
}

}  // namespace

std::string buildReport(const ConversionJob& job, const ConversionResult& result,
                        dxf::Drawing& drawing, const LayerAssignment& layers,
                        const BlockLibrary& library, const texts::Texts& texts,
                        const files::LocalTime& now) {
  ReportText text(texts);
  putSettings(text, job, result, now);
  putLayers(text, job, drawing, layers, texts);
  putBlocks(text, job, drawing, library, texts);
  putCounts(text, result, texts);
  return text.take();
}

}  // namespace quillon::convert

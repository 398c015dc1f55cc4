#include "convert/report.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/number_text.h"
#include "convert/findings.h"

namespace quillon::convert {
namespace {

using texts::TextId;

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

constexpr texts::TextRow kPolyTexts =
    texts::textRow(TextId::PolylinesWithoutWidth, TextId::PolylinesAsPolygons);
constexpr texts::TextRow kBlockTexts = texts::textRow(TextId::BlocksDrawn, TextId::BlocksAll);

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
  void field(TextId id, std::string_view value) {
    line(texts_(id));
    out_.append(value);
  }
  void field(TextId id) { line(texts_(id)); }
  std::string_view onOff(bool on) const {
    return texts_(on ? TextId::ReportOn : TextId::ReportOff);
  }
  std::string_view listText(texts::TextRow list, int index) const {
    return index >= 0 && index < std::ssize(list) ? texts_(list[static_cast<std::size_t>(index)])
                                                  : std::string_view{};
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
    if (left_ > 0) text.line(texts(TextId::ReportMoreLines, {std::to_string(left_)}));
  }

 private:
  /// Ordinary drawings have few blocks or layers of the same name, if any.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 10;

  bool first_ = true;
  std::size_t bytes_ = 0;
  std::size_t left_ = 0;
};

TextId nameLabel(int targetKind) {
  switch (targetKind) {
    case kBoard:
      return TextId::ReportBoardName;
    case kSchematic:
      return TextId::ReportSheetName;
    default:
      return TextId::ReportLibraryName;
  }
}

void putSettings(ReportText& text, const ConversionJob& job, const ConversionResult& result,
                 const files::LocalTime& now) {
  text.field(TextId::ReportTitle);
  text.field(TextId::ReportDoubleRule);
  text.blank();
  text.field(TextId::ReportTime, now.date + "    " + now.time);
  text.field(TextId::ReportDrawing, result.dxfFile);
  text.field(TextId::ReportScript, result.scriptFile);
  text.field(nameLabel(job.targetKind), job.drawingName);
  text.blank();
  text.field(TextId::ReportVersion, versionText(job.version));
  text.field(TextId::ReportScale, base::trimBlanks(job.scaleText));
  text.field(TextId::ReportUnit, unitText(job.unit));
  text.field(TextId::ReportDottedLines, text.onOff(job.dotted));
  text.field(TextId::ReportEllipses, text.onOff(job.ellipses));
  text.field(TextId::ReportPolylines, text.listText(kPolyTexts, job.poly));
  text.field(TextId::ReportBlocks, text.listText(kBlockTexts, job.blocks));
  text.blank();
}

void putLayers(ReportText& text, const ConversionJob& job, const dxf::Drawing& drawing,
               const LayerAssignment& layers, const texts::Texts& texts) {
  text.field(TextId::ReportLayerFile, job.layerFile.empty() ? texts(TextId::ReportNoLayerFile)
                                                            : std::string_view(job.layerFile));
  text.field(TextId::ReportStandardLayer, job.defaultLayer);
  text.blank();
  text.blank();
  text.field(TextId::ReportLayersTitle);
  text.blank();
  text.field(TextId::ReportLayersHeader);
  text.field(TextId::ReportRule);
  Repetitions repetitions;
  for (std::size_t i = 0; i < drawing.layers.size(); ++i) {
    const dxf::LayerRec& layer = drawing.layers[i];
    if (!repetitions.admit(drawing.isFirstLayer(i))) continue;
    repetitions.count(text.line(base::toUtf8(layer.name, drawing.encoding) + " ==> " +
                                std::string(layers.lookupLayer(layer.name))));
  }
  repetitions.close(text, texts);
}

std::string blockLine(const dxf::BlockRec& block, const ConversionJob& job,
                      const dxf::Drawing& drawing, const BlockLibrary& library,
                      const texts::Texts& texts) {
  std::string line(
      texts(library.wasInserted(block.name) ? TextId::ReportBlockUsed : TextId::ReportBlockUnused));
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
  text.field(TextId::ReportBlocksTitle);
  text.blank();
  text.field(TextId::ReportBlocksHeader);
  text.field(TextId::ReportRule);
  if (job.blocks == kDrawBlocks) text.field(TextId::ReportBlocksDrawn);
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
  text.field(TextId::ReportEntriesTitle);
  text.blank();
  text.field(TextId::ReportEntriesHeader);
  text.field(TextId::ReportRule);
  for (const auto& [label, kind] : kCountLines) {
    text.line(std::string(label) + std::to_string(result.counts[static_cast<std::size_t>(kind)]));
  }
  text.field(TextId::ReportRule);
  text.line(std::to_string(result.linesRead) + " " + std::string(texts(TextId::ReportLinesRead)));
  text.line(std::to_string(result.commandCount) + " " +
            std::string(texts(TextId::ReportLinesWritten)));
  text.line("  ");
}

/// An appendix after the report's own text.
void putFindings(ReportText& text, const ConversionResult& result, const texts::Texts& texts) {
  if (!result.exact) return;
  text.blank();
  text.field(TextId::FindingsTitle);
  text.field(TextId::ReportRule);
  for (const std::string& line : allFindingLines(result, texts)) text.line(line);
}

}  // namespace

std::string buildReport(const ConversionJob& job, const ConversionResult& result,
                        const dxf::Drawing& drawing, const LayerAssignment& layers,
                        const BlockLibrary& library, const texts::Texts& texts,
                        const files::LocalTime& now) {
  ReportText text(texts);
  putSettings(text, job, result, now);
  putLayers(text, job, drawing, layers, texts);
  putBlocks(text, job, drawing, library, texts);
  putCounts(text, result, texts);
  putFindings(text, result, texts);
  return text.take();
}

}  // namespace quillon::convert

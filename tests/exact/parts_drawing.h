#pragma once

#include <map>
#include <string>
#include <string_view>

#include "dxf/section_walker.h"
#include "eagle/script_commands.h"
#include "exact/rule_set.h"
#include "exact_drawing.h"
#include "support/script_capture.h"

namespace quillon::testing {

/// Names the parts of a block B "B_1", "B_2" and so on across all blocks; the library is LIB.
class PartFrameOfTest : public exact::PartFrame {
 public:
  PartFrameOfTest(eagle::Commands& commands, const dxf::Drawing& drawing)
      : commands_(commands), drawing_(drawing) {}

  std::string_view libraryName() const override { return library; }
  void noteInsertion(std::size_t) override { ++insertions; }
  std::string openPart(std::size_t blockIndex) override {
    const std::string name =
        std::string(drawing_.blocks[blockIndex].name) + "_" + std::to_string(++parts);
    commands_.edit(name, ".pac");
    return name;
  }
  void closePart(std::string_view) override {}
  void returnToDrawing() override { commands_.edit("LIB", ".brd"); }

  std::string library = "LIB";
  int insertions = 0;
  int parts = 0;

 private:
  eagle::Commands& commands_;
  const dxf::Drawing& drawing_;
};

/// A drawing under the exact rules with its blocks as parts: the script without settings.
class PartsDrawing {
 public:
  explicit PartsDrawing(const DxfBuilder& dxf, const exact::Options& options = {}, bool all = false,
                        LayersOfTest layers = {}, const eagle::Coordinates& coordinates = kPlain,
                        std::string_view library = "LIB")
      : PartsDrawing(dxf.text(), options, all, std::move(layers), coordinates, library) {}
  explicit PartsDrawing(const std::string& dxf, exact::Options options = {}, bool all = false,
                        LayersOfTest layers = {}, const eagle::Coordinates& coordinates = kPlain,
                        std::string_view library = "LIB")
      : script_(sink_, coordinates, eagle::PointForm::Plain) {
    options.parts = true;
    dxf::TextSource source(dxf);
    TestMonitor monitor;
    dxf::LineReader reader(source, monitor);
    drawing_.everyKind = true;
    dxf::readDefinitions(drawing_, reader);
    rules::CancelPoll poll(monitor);
    eagle::ScriptCommands commands(script_);
    exact::RuleSet rules(options, commands, drawing_, layers, poll,
                         geometry::Affine::scaling(options.factor, options.factor));
    PartFrameOfTest frame(commands, drawing_);
    frame.library = library;
    rules.setPartFrame(frame, all);
    rules.beginScript();
    dxf::readContents(drawing_, reader, rules, true);
    rules.finish();
    const rules::LossList losses = rules.takeLosses();
    for (const rules::Loss& loss : losses.all()) {
      losses_ += std::string(rules::wordOf(loss.rule)) + " " + std::to_string(loss.count) + " (" +
                 shortNumber(loss.at.x) + " " + shortNumber(loss.at.y) + ")\n";
    }
    gaps_ = rules.outlines().gaps;
    gapCount_ = rules.outlines().gapCount;
    script_.flush();
    parts_ = frame.parts;
    insertions_ = frame.insertions;
  }

  /// The script with short numbers, without the settings at the start of a drawing or part.
  std::string script() const {
    std::string text;
    std::string_view rest = sink_.text;
    while (!rest.empty()) {
      std::string line(rest.substr(0, rest.find("\r\n")));
      rest.remove_prefix(line.size() + 2);
      if (line.starts_with("Change ")) continue;
      for (std::size_t at = 0; (at = line.find(".0000000")) != std::string::npos;)
        line.erase(at, 8);
      text += line + "\n";
    }
    return text;
  }
  const std::string& wholeScript() const { return sink_.text; }
  const eagle::ScriptWriter& writer() const { return script_; }
  const std::string& losses() const { return losses_; }
  const std::vector<exact::OpenEnd>& gaps() const { return gaps_; }
  std::size_t gapCount() const { return gapCount_; }
  int parts() const { return parts_; }
  int insertions() const { return insertions_; }

 private:
  static constexpr eagle::Coordinates kPlain{.unit = base::Unit::Mm};

  dxf::Drawing drawing_;
  StringSink sink_;
  eagle::ScriptWriter script_;
  std::string losses_;
  std::vector<exact::OpenEnd> gaps_;
  std::size_t gapCount_ = 0;
  int parts_ = 0;
  int insertions_ = 0;
};

}  // namespace quillon::testing

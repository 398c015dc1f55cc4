// The stages of a conversion, each including the previous ones: finding lines, reading,
// translating.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

#include "classic/translator.h"
#include "convert/layer_table.h"
#include "drawings.h"
#include "dxf/line_reader.h"
#include "dxf/section_walker.h"
#include "dxf/text_source.h"
#include "eagle/script_commands.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kDrawingSize = std::size_t{16} << 20;

class SilentMonitor : public base::RunMonitor {
 public:
  void setStatus(base::ReadPhase, std::uint64_t) override {}
  void setProgress(bool, std::uint64_t, std::uint64_t) override {}
  bool cancelRequested() override { return false; }
  void waitForUser() override {}
};

class CountingSink : public base::ByteSink {
 public:
  void write(std::string_view block) override { size += block.size(); }
  std::size_t size = 0;
};

class EntityCounter : public dxf::EntitySink {
 public:
  void takeEntity(dxf::DxfEntity&) override { ++count; }
  std::uint64_t count = 0;
};

/// A generated drawing in an unnamed file.
class DrawingFile {
 public:
  explicit DrawingFile(const DrawingKind& kind) : file_(std::tmpfile(), &std::fclose) {
    if (file_ == nullptr) throw std::runtime_error("no temporary file");
    DrawingText drawing([this](std::string_view block) {
      if (std::fwrite(block.data(), 1, block.size(), stream()) != block.size()) {
        throw std::runtime_error("the temporary file cannot be written");
      }
    });
    kind.make(drawing, kDrawingSize);
    size_ = drawing.size();
  }

  std::FILE* stream() const { return file_.get(); }
  std::size_t size() const { return size_; }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
  std::size_t size_ = 0;
};

std::uint64_t findLines(std::FILE* file) {
  SilentMonitor monitor;
  dxf::TextSource source(file, {});
  dxf::LineReader reader(source, monitor);
  std::uint64_t characters = 0;
  while (!reader.atEnd()) characters += reader.readDxfLine(false).size();
  return characters;
}

std::uint64_t readEntities(std::FILE* file) {
  SilentMonitor monitor;
  dxf::TextSource source(file, {});
  dxf::LineReader reader(source, monitor);
  dxf::Drawing drawing;
  EntityCounter entities;
  dxf::readDefinitions(drawing, reader);
  dxf::readContents(drawing, reader, entities, true);
  return entities.count;
}

std::uint64_t translate(std::FILE* file) {
  SilentMonitor monitor;
  dxf::TextSource source(file, {});
  dxf::LineReader reader(source, monitor);
  dxf::Drawing drawing;
  dxf::readDefinitions(drawing, reader);
  CountingSink sink;
  eagle::ScriptWriter script(sink, {});
  eagle::ScriptCommands commands(script);
  rules::CancelPoll cancelled(monitor);
  const classic::Context context{commands, script.area(), {}, cancelled};
  const convert::LayerTable noLayers;
  convert::LayerAssignment layers(noLayers, "20 Dimension (B)", drawing.encoding);
  classic::Translator translator(context, drawing, layers);
  dxf::readContents(drawing, reader, translator, true);
  translator.endOfEntities();
  script.flush();
  return sink.size;
}

template <std::uint64_t (*stage)(std::FILE*)>
void run(benchmark::State& state) {
  const DrawingKind& kind = kDrawingKinds[static_cast<std::size_t>(state.range(0))];
  const DrawingFile file(kind);
  for (auto _ : state) {
    const std::uint64_t result = stage(file.stream());
    if (result == 0) state.SkipWithError("nothing came out");
    benchmark::DoNotOptimize(result);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
  state.SetLabel(std::string(kind.name));
}

void allKinds(benchmark::internal::Benchmark* bench) {
  bench->DenseRange(0, kDrawingKinds.size() - 1)->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(run, findLines)->Apply(allKinds);
BENCHMARK_TEMPLATE(run, readEntities)->Apply(allKinds);
BENCHMARK_TEMPLATE(run, translate)->Apply(allKinds);

}  // namespace
}  // namespace quillon::bench

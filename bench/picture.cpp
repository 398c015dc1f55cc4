// Measures how long the window takes until it shows the picture of a drawing, relative to the
// conversion of the same drawing, and how long a frame takes while the picture is dragged.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "convert/driver.h"
#include "dice.h"
#include "drawing_file.h"
#include "drawings.h"
#include "measuring.h"
#include "preview/scene.h"
#include "program.h"
#include "support/conversion.h"
#include "support/temp_folder.h"
#include "windows/picture_view.h"

namespace quillon::bench {
namespace {

/// The first picture may take this many times as long as the conversion.
constexpr double kMostRatio = 3.0;
constexpr double kMostFrame = 16.0;  // milliseconds

struct Options {
  std::size_t segments = 1'000'000;
  std::size_t rounds = 5;
  std::string drawing;  ///< instead of a generated one
  std::string save;     ///< where the picture is saved as PNG; empty: nowhere
  bool dark = false;
};

/// Half of the segments in polylines that wind about, half as lines, all over a square.
void makeSegments(DrawingText& drawing, std::size_t count) {
  constexpr std::size_t kVertices = 1000;
  constexpr double kSide = 800.0;
  Dice dice(5);
  writeHeader(drawing);
  writeTables(drawing);
  drawing.beginSection("BLOCKS").endSection().beginSection("ENTITIES");
  for (std::size_t i = 0; i < count / 2; ++i) {
    const double x = dice.measure(0.0, kSide);
    const double y = dice.measure(0.0, kSide);
    drawing.beginEntity("LINE", kLayers[dice.below(kLayers.size())]).group(100, "AcDbLine");
    drawing.point(10, x, y).point(11, x + dice.measure(-4.0, 4.0), y + dice.measure(-4.0, 4.0));
  }
  for (std::size_t i = 0; i < count / 2; i += kVertices) {
    double x = dice.measure(0.0, kSide);
    double y = dice.measure(0.0, kSide);
    drawing.beginEntity("LWPOLYLINE", kLayers[dice.below(kLayers.size())]);
    drawing.group(100, "AcDbPolyline").integer(90, kVertices + 1).integer(70, 0);
    for (std::size_t vertex = 0; vertex <= kVertices; ++vertex) {
      drawing.number(10, x).number(20, y);
      x += dice.measure(-2.0, 2.0);
      y += dice.measure(-2.0, 2.0);
    }
  }
  drawing.endSection();
  writeEnd(drawing);
}

double secondsOf(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

convert::ConversionResult convertDrawing(const convert::ConversionJob& job, bool record) {
  // On some file systems, replacing a file forces it to disk at once.
  std::filesystem::remove(job.scriptFile);
  testing::RecordingHost host;
  convert::Surroundings surroundings = testing::fixedSurroundings();
  surroundings.record = record;
  convert::ConversionResult result = convert::convertDXF(job, host, surroundings);
  if (result.outcome != convert::Outcome::Converted) throw std::runtime_error("not converted");
  return result;
}

struct FirstPicture {
  double converting = 0.0;
  double scene = 0.0;
  double tiles = 0.0;

  double all() const { return converting + scene + tiles; }
};

void waitUntilSharp(const windows::PictureView& view) {
  while (!view.isSharp()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

FirstPicture showPicture(windows::PictureView& view, const convert::ConversionJob& job,
                         std::shared_ptr<const preview::Scene>& scene) {
  FirstPicture took;
  QElapsedTimer timer;
  timer.start();
  const convert::ConversionResult result = convertDrawing(job, true);
  took.converting = secondsOf(timer);
  timer.start();
  scene = preview::makeScene(*result.recording);
  took.scene = secondsOf(timer);
  timer.start();
  view.setScenes({scene, nullptr, nullptr});
  waitUntilSharp(view);
  view.repaint();
  took.tiles = secondsOf(timer);
  return took;
}

void drag(windows::PictureView& view, QEvent::Type type, QPointF at) {
  const bool isMove = type == QEvent::MouseMove;
  QMouseEvent event(type, at, view.mapToGlobal(at), isMove ? Qt::NoButton : Qt::MiddleButton,
                    Qt::MiddleButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&view, &event);
}

/// The milliseconds of each frame of a drag to and fro, whose tiles are there already.
std::vector<double> dragFrames(windows::PictureView& view) {
  constexpr int kFrames = 100;
  const QPointF middle(view.width() / 2.0, view.height() / 2.0);
  view.zoomBy(2.0, middle);
  std::vector<double> frames;
  for (const bool isWarm : {false, true}) {
    drag(view, QEvent::MouseButtonPress, middle);
    for (int i = 0; i < kFrames; ++i) {
      const double way = 2.0 * (i < kFrames / 2 ? i : kFrames - i);
      QElapsedTimer timer;
      timer.start();
      drag(view, QEvent::MouseMove, middle + QPointF(way, way));
      view.repaint();
      if (isWarm) frames.push_back(1e3 * secondsOf(timer));
      if (!isWarm) waitUntilSharp(view);
    }
    drag(view, QEvent::MouseButtonRelease, middle);
  }
  return frames;
}

void print(const char* what, const std::vector<double>& values, const char* unit) {
  const Spread spread = spreadOf(values);
  std::printf("  %-22s best %8.3f  median %8.3f  worst %8.3f %s\n", what, spread.best,
              spread.median, spread.worst, unit);
}

bool measure(const Options& options) {
  testing::TempFolder folder;
  convert::ConversionJob job;
  job.dxfFile = options.drawing;
  if (job.dxfFile.empty()) {
    job.dxfFile = folder.file("segments.dxf");
    makeFile(job.dxfFile, makeSegments, options.segments);
  }
  job.scriptFile = folder.file("segments.scr");
  job.unit = base::Unit::Mm;
  job.drawingName = "segments";
  windows::PictureView view;
  view.setTheme(options.dark ? preview::Theme::Dark : preview::Theme::Light);
  view.resize(1200, 900);
  view.show();
  std::shared_ptr<const preview::Scene> scene;
  std::vector<double> conversions, ratios, scenes, tiles, recordings;
  for (std::size_t i = 0; i < options.rounds; ++i) {
    QElapsedTimer timer;
    timer.start();
    convertDrawing(job, false);
    conversions.push_back(secondsOf(timer));
    const FirstPicture picture = showPicture(view, job, scene);
    recordings.push_back(picture.converting);
    scenes.push_back(picture.scene);
    tiles.push_back(picture.tiles);
    ratios.push_back(picture.all() / conversions.back());
  }
  if (!options.save.empty()) view.grab().save(QString::fromStdString(options.save));
  const std::vector<double> frames = dragFrames(view);
  std::printf("%zu segments, %.1f bytes each in the scene\n", scene->segmentCount(),
              static_cast<double>(scene->bytes()) / static_cast<double>(scene->segmentCount()));
  print("convert", conversions, "s");
  print("convert and record", recordings, "s");
  print("scene", scenes, "s");
  print("tiles", tiles, "s");
  print("picture / convert", ratios, "");
  print("frame of a drag", frames, "ms");
  const bool good = spreadOf(ratios).median <= kMostRatio && spreadOf(frames).median <= kMostFrame;
  std::printf("  picture at most %.1f, frame at most %.0f ms: %s\n", kMostRatio, kMostFrame,
              good ? "kept" : "NOT KEPT");
  return good;
}

}  // namespace
}  // namespace quillon::bench

int main(int argc, char** argv) {
  quillon::bench::Options options;
  CLI::App commands("Measures the first picture of a drawing.");
  commands.add_option("--segments", options.segments, "Segments of the generated drawing")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  quillon::bench::addRounds(commands, options.rounds);
  commands.add_option("--drawing", options.drawing, "A drawing instead of a generated one");
  commands.add_option("--save", options.save, "Where the picture is saved");
  commands.add_flag("--dark", options.dark, "On the dark background");
  CLI11_PARSE(commands, argc, argv);
  return quillon::bench::exitCodeOf("picture", [&] {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return quillon::bench::measure(options) ? 0 : 1;
  });
}

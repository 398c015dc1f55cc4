#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "convert/host.h"
#include "convert/job.h"
#include "convert/run_control.h"
#include "convert/script_frame.h"
#include "dxf/text_source.h"
#include "eagle/recording.h"
#include "eagle/script_writer.h"
#include "exact/outlines.h"
#include "files/local_time.h"
#include "geometry/box.h"
#include "rules/cancel_poll.h"
#include "rules/losses.h"
#include "rules/translation.h"
#include "texts/string_table.h"

namespace quillon::convert {

/// Limits well above real drawings: 150 megabytes of polylines reach a quarter of the lines and a
/// fifteenth of the steps. Endless work reaches them within seconds.
inline constexpr rules::WorkLimits kUsualLimits{.lines = 20'000'000, .steps = 50'000'000};

/// Input from a pipe is held in memory, so it must be limited.
inline constexpr dxf::InputLimits kUsualInput{.pipe = std::uint64_t{4} << 30};

class HeldDrawing;

/// What the calling program adds to a job.
struct Surroundings {
  /// The drawing, held in memory: the job's path is not looked at. Null to read the job's file.
  HeldDrawing* held = nullptr;
  int languageOffset = texts::kEnglish;
  FrameSource frame;
  /// Refuse a text without any section of a drawing; otherwise it converts to the bare frame.
  bool refuseWithoutSections = false;
  /// A given layer file or frame file that cannot be read ends the run; otherwise a warning says
  /// what is used instead.
  bool refuseUnreadableFiles = false;
  bool readStandardInput = false;    ///< instead of the drawing's path
  bool writeStandardOutput = false;  ///< instead of the script's path
  /// No script at all: the job's path is not looked at, and no question about it is asked.
  bool discardScript = false;
  /// ConversionResult::recording gets what the script draws.
  bool record = false;
  dxf::InputLimits input = kUsualInput;
  /// Limits after which the host is asked whether to go on.
  rules::WorkLimits limits = kUsualLimits;
  /// When a limit ends a conversion, keep its script with the closing commands instead of asking.
  bool keepPartial = false;
  /// Remove temporary files that killed runs left beside the script. Switched off by callers that
  /// convert many drawings into one folder and do it once.
  bool clearAbandoned = true;
  files::LocalTime (*now)() = files::currentLocalTime;
  RunControl::Clock::duration updateInterval = RunControl::kInterval;
};

enum class Outcome : std::uint8_t {
  Converted,
  Cancelled,  ///< by the user or a limit; the script, if any, is well-formed but incomplete
  Ended,      ///< the job or drawing was refused, or an error ended the run; the host was told
};

/// What a rule left out, simplified or cleaned, of one kind of entity on one layer; see
/// rules::Loss.
struct NamedLoss {
  rules::LossRule rule;
  std::string kind;   ///< UTF-8
  std::string layer;  ///< of the drawing, UTF-8
  std::string name;   ///< of what is missing, e.g. a block, UTF-8; mostly ""
  std::uint64_t count = 0;
  std::uint64_t line = 0;  ///< of the first one
  geometry::Point at{};    ///< of the first one, in the script
  double most = 0.0;
};

/// What only the exact rules find out.
struct ExactFindings {
  UnitChoice unit;            ///< of the drawing
  geometry::Point movedBy{};  ///< by the place that was asked for, before the offsets
  double scriptUnit = 1.0;    ///< millimetres in a unit of the script
  double limit = 0.0;         ///< EAGLE's largest coordinate, in units of the script
  geometry::Box bounds;       ///< around everything that is drawn, in the script
  geometry::Point offsets{};  ///< of the job, which the script contains
  /// Converted entities of kinds that ConversionResult::counts knows as None alone, and such that
  /// are on layers that are not converted; names as UTF-8.
  std::map<std::string, std::uint64_t> otherCounts;
  std::map<std::string, std::uint64_t> otherLeftOut;
  bool namedSignals = false;      ///< wires and polygons on copper got the name of a signal
  exact::OutlineReport outlines;  ///< with places in the script
  bool drewPaperSpace = false;    ///< as the model space is empty
};

/// The result of a conversion.
struct ConversionResult {
  Outcome outcome = Outcome::Ended;
  std::string dxfFile;              ///< as found
  std::string scriptFile;           ///< "" when a cancel left none, or none was wanted
  std::uint64_t linesRead = 0;      ///< as the report counts them
  std::uint64_t fileLinesRead = 0;  ///< lines of the drawing read, each counted once
  std::uint64_t commandCount = 0;
  std::uint64_t steps = 0;  ///< as counted by the limits
  /// By the exact rules: what the drawing says of its unit, as a code; 0 for nothing.
  double insUnits = 0.0;
  rules::EntityCounts counts{};
  rules::EntityCounts leftOut{};  ///< of these, on layers that are not converted
  std::map<std::string, std::uint64_t> unknownKinds;  ///< names as UTF-8
  dxf::DroppedEntities dropped;                       ///< because the drawing is damaged
  eagle::Extents extents;
  bool rangeWarning = false;
  std::vector<NamedLoss> losses;       ///< in the order of first occurrence
  std::optional<ExactFindings> exact;  ///< by the exact rules
  std::optional<eagle::Recording> recording;
  std::string report;  ///< UTF-8; "" when none was wanted or the run ended before
};

/// Runs one conversion: checks the job, reads the drawing, writes the script and, where the job
/// wants it, builds the report. Every message goes to the host. What is wrong with the job, a file
/// or the drawing, and lack of memory, is a message; anything else that is thrown, by the host as
/// well, is a fault of the program: it leaves the function, and the script is as it was.
ConversionResult convertDXF(const ConversionJob& job, ConversionHost& host,
                            const Surroundings& surroundings);

}  // namespace quillon::convert

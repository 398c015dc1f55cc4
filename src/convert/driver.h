#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "convert/host.h"
#include "convert/job.h"
#include "convert/run_control.h"
#include "convert/script_frame.h"
#include "eagle/script_writer.h"
#include "rules/translation.h"
#include "ui/resources/string_table.h"

namespace quillon::convert {

/// Date and time of a report, in the system's short formats.
struct ReportTime {
  std::string date;
  std::string time;
};
/// The present date and time in the formats of the process's time locale.
ReportTime currentReportTime();

/// What a program adds to a job.
struct Surroundings {
  int languageOffset = resources::kEnglish;
  FrameSource frame;
  /// A text in which no section of a drawing is found is refused; otherwise it converts to the
  /// frame alone.
  bool refuseWithoutSections = false;
  bool readStandardInput = false;    ///< instead of the drawing's path
  bool writeStandardOutput = false;  ///< instead of the script's path
  /// Lines after which a script ends as if the user had cancelled; 0 for no such limit.
  std::uint64_t maxLines = 0;
  /// Looks beside the script for temporary files that killed runs left. Who converts many drawings
  /// into one folder does that once.
  bool clearAbandoned = true;
  ReportTime (*now)() = currentReportTime;
  RunControl::Clock::duration updateInterval = RunControl::kInterval;
};

enum class Outcome : std::uint8_t {
  Converted,
  Cancelled,  ///< by the user or the limit of lines; the script is well-formed but incomplete
  Ended,      ///< the job or the drawing was refused, or an error ended the run; the host was told
};

/// What came out of a conversion.
struct ConversionResult {
  Outcome outcome = Outcome::Ended;
  std::string dxfFile;  ///< as found
  std::string scriptFile;
  std::uint64_t linesRead = 0;
  std::uint64_t commandCount = 0;
  rules::EntityCounts counts{};
  rules::EntityCounts leftOut{};                       ///< of these, on layers assigned to 999
  std::map<std::string, std::uint64_t> unknownKinds;  ///< names as UTF-8
  dxf::DroppedEntities dropped;                       ///< because the drawing is damaged
  eagle::Extents extents;
  bool rangeWarning = false;
  std::string report;  ///< UTF-8; "" when the run ended before
};

/// Runs one conversion: checks the job, reads the drawing, writes the script and builds the report.
/// Every message goes to the host; nothing is thrown.
ConversionResult convertDXF(const ConversionJob& job, ConversionHost& host,
                            const Surroundings& surroundings);

}  // namespace quillon::convert

#include "convert/driver.h"

#include <new>
#include <string>
#include <utility>

#include "base/read_error.h"
#include "base/run_time_error.h"
#include "convert/conversion.h"
#include "convert/preparation.h"
#include "convert/run.h"
#include "files/file_system.h"
#include "files/output_file.h"
#include "texts/error_texts.h"

namespace quillon::convert {
namespace {

void tellFailure(Conversion& conversion, std::string detail) {
  conversion.host.tell(
      conversion.messages.scriptError(conversion.result.scriptFile, std::move(detail)));
}

/// True when an error is a cancel: what the conversion waited for has been given up, and with it
/// the script, as nobody may be there to read even its last lines.
bool wasCancelled(Conversion& conversion, int reason) {
  if (!files::isBrokenWait(reason) || !conversion.control.cancelRequested()) return false;
  ConversionResult& result = conversion.result;
  result.outcome = Outcome::Cancelled;
  result.scriptFile.clear();
  result.fileLinesRead = 0;
  conversion.host.tell(conversion.messages.cancelled(result.dxfFile, result.linesRead));
  return true;
}

/// Runs the steps of a conversion and tells the errors that end it. They have closed the files and
/// dropped the script by then.
void convertAndTell(Conversion& conversion) {
  const Messages& messages = conversion.messages;
  const texts::Texts& texts = conversion.texts;
  const ConversionResult& result = conversion.result;
  try {
    PreparedFiles files = prepare(conversion);
    run(conversion, files);
  } catch (const EndOfConversion&) {
    // The reason has been told.
  } catch (const ScriptFailure& failure) {
    tellFailure(conversion, failure.detail);
  } catch (const NoStandardLayer& error) {
    conversion.host.tell(messages.standardLayerMissing(error.layer()));
  } catch (const base::RunTimeError& error) {
    tellFailure(conversion, texts::faultText(error, result.dxfFile, texts));
  } catch (const files::WriteError& error) {
    if (wasCancelled(conversion, error.reason())) return;
    tellFailure(conversion,
                messages.unwritableText(result.scriptFile, conversion.scriptPath, error.reason()));
  } catch (const base::ReadError& error) {
    if (wasCancelled(conversion, error.reason())) return;
    tellFailure(conversion,
                messages.unreadableText(result.dxfFile, texts::reasonText(error.reason(), texts)));
  } catch (const std::bad_alloc&) {
    tellFailure(conversion, texts::outOfMemoryText(texts));
  }
}

}  // namespace

ConversionResult convertDXF(const ConversionJob& job, ConversionHost& host,
                            const Surroundings& surroundings) {
  Conversion conversion(job, host, surroundings);
  convertAndTell(conversion);
  return std::move(conversion.result);
}

}  // namespace quillon::convert

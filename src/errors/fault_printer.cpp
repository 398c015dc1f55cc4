#include "errors/fault_printer.h"

#include "base/quotable.h"
#include "files/paths.h"

namespace quillon::errors {
namespace {

using texts::TextId;

std::string quotedFile(const ProgramIdentity& program) {
  return base::quotable(files::fromPath(program.protocolFile()));
}

}  // namespace

Continuation FaultPrinter::show(const FaultReport& report) {
  const texts::Texts texts(languageOffset_);
  const std::string prefix = program_.fileName + ": ";
  const std::string place = report.values[1] + "." + report.values[2];
  const std::string protocol = report.protocol();
  std::string lines =
      prefix + texts(TextId::ErrorInProgram, {report.values[0], place, report.fault.description}) +
      "\n" + protocol;
  std::erase(lines, '\r');
  if (saveProtocol(program_, protocol)) {
    lines += prefix + texts(TextId::ErrorProtocolWritten, {quotedFile(program_)}) + "\n";
  }
  print_(lines);
  return kLeave;
}

std::string crashNotice(const ProgramIdentity& program, int languageOffset) {
  return program.fileName + ": " +
         texts::Texts(languageOffset)(TextId::ProgramCrashed, {quotedFile(program)}) + "\n";
}

}  // namespace quillon::errors

#include "app/unattended/unattended_host.h"

#include <algorithm>

#include "base/quotable.h"
#include "convert/messages.h"

namespace quillon::unattended {
namespace {

using texts::TextId;

/// The lines of a message box in one, however long: what comes from a drawing was cut before.
std::string oneLine(std::string_view lines) {
  std::string text;
  while (true) {
    const std::size_t stop = std::min(lines.find('\r'), lines.size());
    text += base::quotable(lines.substr(0, stop), std::string_view::npos);
    if (stop == lines.size()) break;
    text += ' ';
    lines.remove_prefix(stop + 1);
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace

bool UnattendedHost::ask(const convert::Message& question) {
  print(question);
  console_.printError("  " + std::string(texts_(TextId::AnswerIsNo)) + "\n");
  return false;
}

void UnattendedHost::tell(const convert::Message& message) {
  // The box says what is wrong, the detail where and what to do; often one contains the other.
  const std::string text = oneLine(message.text);
  if (message.detail.ends_with(text)) {
    console_.printError("quillon: " + message.title + ": " + message.detail + "\n");
    return;
  }
  print(message);
  console_.printError("  " + message.detail + "\n");
}

bool UnattendedHost::goOnPastLimit(const convert::Message& limit) {
  convert::Message refusal = limit;
  refusal.text = refusal.detail += " " + std::string(texts_(TextId::ConvertInWindow));
  tell(refusal);
  return false;
}

void UnattendedHost::showReport(std::string_view report) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::string lines;
  while (true) {
    const std::size_t stop = report.find(kLineEnd);
    lines.append(base::withoutControls(report.substr(0, stop))).append("\n");
    if (stop == std::string_view::npos) break;
    report.remove_prefix(stop + kLineEnd.size());
  }
  console_.printError(lines);
}

void UnattendedHost::print(const convert::Message& message) {
  console_.printError("quillon: " + message.title + ": " + oneLine(message.text) + "\n");
}

}  // namespace quillon::unattended

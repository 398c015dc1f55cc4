#include "app/unattended/unattended_host.h"

#include <algorithm>

#include "convert/messages.h"

namespace quillon::unattended {

bool UnattendedHost::ask(const convert::Message& question) {
  print(question);
  console_.printError("  " + std::string(texts_(3120)) + "\n");
  return false;
}

void UnattendedHost::tell(const convert::Message& message) {
  print(message);
  // The box says what is wrong, the detail where and what to do.
  if (message.detail != message.text) console_.printError("  " + message.detail + "\n");
}

void UnattendedHost::showReport(std::string_view report) {
  std::string lines(report);
  std::erase(lines, '\r');
  console_.printError(lines + "\n");
}

void UnattendedHost::print(const convert::Message& message) {
  std::string text = "quillon: " + message.title + ": ";
  std::string_view rest = message.text;
  while (true) {
    const std::size_t stop = std::min(rest.find('\r'), rest.size());
    text += convert::quotable(rest.substr(0, stop));
    if (stop == rest.size()) break;
    text += ' ';
    rest.remove_prefix(stop + 1);
  }
  text.erase(text.find_last_not_of(' ') + 1);
  console_.printError(text + "\n");
}

}  // namespace quillon::unattended

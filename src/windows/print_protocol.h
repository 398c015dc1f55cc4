#pragma once

#include <QPrinter>
#include <QString>

namespace quillon::windows {

/// Prints a protocol in a monospaced font, on as many pages as it takes.
void printProtocol(const QString& protocol, QPrinter& printer);

}  // namespace quillon::windows

#pragma once

#include <QPrinter>
#include <QString>

namespace quillon::windows {

/// Prints a protocol in a monospaced font, over as many pages as needed.
void printProtocol(const QString& protocol, QPrinter& printer);

}  // namespace quillon::windows

#include "windows/print_protocol.h"

#include <QFontDatabase>
#include <QTextDocument>

namespace quillon::windows {

void printProtocol(const QString& protocol, QPrinter& printer) {
  constexpr int kPointSize = 10;
  QTextDocument document;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(kPointSize);
  document.setDefaultFont(font);
  document.setPlainText(QString(protocol).remove('\r'));
  document.print(&printer);
}

}  // namespace quillon::windows

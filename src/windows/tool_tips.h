#pragma once

#include <QString>
#include <QWidget>
#include <string_view>
#include <vector>

namespace quillon::windows {

/// The tool tips of the program's windows, as the string table has them.
class ToolTipTable {
 public:
  /// Removes all tool tips.
  void clear();
  /// Gives a control of the window its tool tip; an entry without "|", or for a control that the
  /// window does not have, is skipped. An entry for a control array as a whole goes to all of it.
  void add(QWidget& window, std::string_view entry);

  struct Row {
    QString window;   ///< name of the window
    QString control;  ///< name of the control
    QString text;     ///< lines separated by CR LF
  };
  const std::vector<Row>& rows() const { return rows_; }

 private:
  std::vector<Row> rows_;
};

}  // namespace quillon::windows

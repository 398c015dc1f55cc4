#pragma once

#include <QString>
#include <QWidget>
#include <string_view>
#include <vector>

namespace quillon::windows {

/// The tool tips of the program's windows, from the string table.
class ToolTipTable {
 public:
  /// Removes all tool tips.
  void clear();
  /// Sets a control's tool tip. An entry without "|", or for a control that the window lacks, is
  /// ignored. An entry for a whole control array applies to all its elements.
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

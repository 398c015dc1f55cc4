#pragma once

#include <QString>
#include <QWidget>
#include <string>

#include "errors/fault_info.h"
#include "errors/source_line.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// A document or program could not be opened.
class ShellError : public errors::NumberedError {
 public:
  ShellError(int result, const std::string& description, errors::SourceLine line = __builtin_LINE())
      : NumberedError(static_cast<std::int32_t>(0x80040418U) + result, "Quillon.GShell",
                      description, line),
        result_(result) {}

  /// The system's result, 0 to 32.
  int result() const { return result_; }

 private:
  int result_;
};

/// The text for an error result of the system's shell.
std::string_view shellErrorText(int result, const texts::Texts& texts);

inline constexpr int kShowNormal = 1;
inline constexpr int kShowDefault = 10;

/// How a document is to be opened.
struct ShellRequest {
  QString file;  ///< a document, a program, or a URL
  int showCommand = kShowNormal;
  QString parameters;
  QString folder;
  QString operation = "open";
};

/// Opens a document or URL with its default program. True on success; throws ShellError.
bool ShellEx(const AppContext& context, const ShellRequest& request, QWidget* owner);

}  // namespace quillon::windows

#include "texts/error_texts.h"

#include <cerrno>
#include <system_error>

#include "base/encoding.h"
#include "base/quotable.h"

namespace quillon::texts {
namespace {

/// In the order of the faults.
constexpr TextRow kFaultTexts = textRow(TextId::FaultBadGroupCode, TextId::FaultBadDash);
static_assert(kFaultTexts.size() == static_cast<std::size_t>(base::Fault::BadDashLength) + 1);

}  // namespace

std::string faultText(const base::RunTimeError& error, std::string_view drawing,
                      const Texts& texts) {
  std::string place = base::quotable(drawing);
  if (error.line() > 0) place += ":" + std::to_string(error.line());
  const TextId id = kFaultTexts[static_cast<std::size_t>(error.fault())];
  const std::string subject = base::quotable(base::toUtf8(error.subject(), base::Encoding::Utf8));
  if (!place.empty()) place += ": ";
  return place + texts(id, {subject});
}

std::string reasonText(int reason, const Texts& texts) {
  switch (reason) {
    case ENOENT:
      return std::string(texts(TextId::ReasonNotFound));
    case EACCES:
    case EPERM:
      return std::string(texts(TextId::ReasonNoPermission));
    case EISDIR:
      return std::string(texts(TextId::ReasonIsDirectory));
    case ENOSPC:
      return std::string(texts(TextId::ReasonNoSpace));
    case EROFS:
      return std::string(texts(TextId::ReasonReadOnly));
    default:
      return std::generic_category().message(reason);
  }
}

std::string outOfMemoryText(const Texts& texts) { return std::string(texts(TextId::OutOfMemory)); }

}  // namespace quillon::texts

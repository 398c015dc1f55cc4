#include "texts/error_texts.h"

#include <cerrno>
#include <system_error>

#include "base/encoding.h"
#include "base/quotable.h"

namespace quillon::texts {
namespace {

constexpr int kFirstFaultText = 3020;

}  // namespace

std::string faultText(const base::RunTimeError& error, std::string_view drawing,
                      const Texts& texts) {
  std::string place = base::quotable(drawing);
  if (error.line() > 0) place += ":" + std::to_string(error.line());
  const int id = kFirstFaultText + static_cast<int>(error.fault());
  const std::string subject = base::quotable(base::toUtf8(error.subject(), base::Encoding::Utf8));
  if (!place.empty()) place += ": ";
  return place + texts(id, {subject});
}

std::string reasonText(int reason, const Texts& texts) {
  switch (reason) {
    case ENOENT:
      return std::string(texts(3040));
    case EACCES:
    case EPERM:
      return std::string(texts(3041));
    case EISDIR:
      return std::string(texts(3042));
    case ENOSPC:
      return std::string(texts(3043));
    case EROFS:
      return std::string(texts(3044));
    default:
      return std::generic_category().message(reason);
  }
}

std::string outOfMemoryText(const Texts& texts) { return std::string(texts(3028)); }

}  // namespace quillon::texts

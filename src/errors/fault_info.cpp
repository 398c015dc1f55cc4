#include "errors/fault_info.h"

#include <cerrno>
#include <new>
#include <system_error>

#include "base/read_error.h"
#include "base/run_time_error.h"
#include "files/output_file.h"
#include "texts/error_texts.h"

namespace quillon::errors {
namespace {

using texts::TextId;

std::int32_t numberOf(base::Fault fault) {
  switch (fault) {
    case base::Fault::BadGroupCode:
      return kTypeMismatch;
    case base::Fault::TextEndsTooEarly:
      return kEndOfFile;
    case base::Fault::TooManyPoints:
      return kOutOfRange;
    case base::Fault::NestingTooDeep:
      return kOutOfStack;
    case base::Fault::BadNumber:
    case base::Fault::BadLayerNumber:
    case base::Fault::BadDashLength:
      break;
  }
  return kOverflow;
}

/// The number for a reason of the system (errno).
std::int32_t numberOfReason(int reason) {
  switch (reason) {
    case ENOENT:
      return kFileNotFound;
    case ENOTDIR:
      return kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return kPermissionDenied;
    case ENOSPC:
    case EFBIG:
      return kDiskFull;
    case EIO:
      return kDeviceError;
    case ENOMEM:
      return kOutOfMemory;
    default:
      return kFileAccess;
  }
}

}  // namespace

FaultInfo describe(const std::exception_ptr& error, const texts::Texts& texts) {
  try {
    if (error != nullptr) std::rethrow_exception(error);
  } catch (const NumberedError& e) {
    return {e.number(), e.what(), e.line()};
  } catch (const base::RunTimeError& e) {
    return {numberOf(e.fault()), texts::faultText(e, {}, texts)};
  } catch (const base::ReadError& e) {
    return {numberOfReason(e.reason()), texts::reasonText(e.reason(), texts)};
  } catch (const files::WriteError& e) {
    return {numberOfReason(e.reason()), texts::reasonText(e.reason(), texts)};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, texts::outOfMemoryText(texts)};
  } catch (const std::system_error& e) {
    return {numberOfReason(e.code().value()), e.what()};
  } catch (const std::out_of_range& e) {
    return {kOutOfRange, e.what()};
  } catch (const std::exception& e) {
    return {kInvalidCall, e.what()};
  } catch (...) {
    return {kInvalidCall, std::string(texts(TextId::UnknownError))};
  }
  return {kInvalidCall, std::string(texts(TextId::UnknownError))};
}

}  // namespace quillon::errors

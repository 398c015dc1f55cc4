#include "errors/fault_info.h"

#include <cerrno>
#include <new>
#include <system_error>

#include "convert/messages.h"
#include "convert/output_file.h"
#include "dxf/run_time_error.h"
#include "dxf/text_source.h"

namespace quillon::errors {
namespace {

constexpr int kUnknownError = 3511;

std::int32_t numberOf(dxf::Fault fault) {
  switch (fault) {
    case dxf::Fault::BadGroupCode:
      return kTypeMismatch;
    case dxf::Fault::TextEndsTooEarly:
      return kEndOfFile;
    case dxf::Fault::TooManyPoints:
      return kOutOfRange;
    case dxf::Fault::NestingTooDeep:
      return kOutOfStack;
    case dxf::Fault::BadNumber:
    case dxf::Fault::BadLayerNumber:
    case dxf::Fault::BadDashLength:
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

FaultInfo describe(const std::exception_ptr& error, const resources::Texts& texts) {
  const convert::Messages messages(texts);
  try {
    if (error != nullptr) std::rethrow_exception(error);
  } catch (const NumberedError& e) {
    return {e.number(), e.what(), e.line()};
  } catch (const dxf::RunTimeError& e) {
    return {numberOf(e.fault()), messages.faultText(e, {})};
  } catch (const dxf::ReadError& e) {
    return {numberOfReason(e.reason()), messages.reasonText(e.reason())};
  } catch (const convert::WriteError& e) {
    return {numberOfReason(e.reason()), messages.reasonText(e.reason())};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, messages.outOfMemoryText()};
  } catch (const std::system_error& e) {
    return {numberOfReason(e.code().value()), e.what()};
  } catch (const std::out_of_range& e) {
    return {kOutOfRange, e.what()};
  } catch (const std::exception& e) {
    return {kInvalidCall, e.what()};
  } catch (...) {
    return {kInvalidCall, std::string(texts(kUnknownError))};
  }
  return {kInvalidCall, std::string(texts(kUnknownError))};
}

}  // namespace quillon::errors

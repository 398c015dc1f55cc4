#include "errors/fault_info.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <system_error>

#include "base/read_error.h"
#include "base/run_time_error.h"
#include "errors/system_info.h"
#include "files/output_file.h"

namespace quillon::errors {
namespace {

template <typename Error>
FaultInfo described(const Error& error, int language = texts::kEnglish) {
  return describe(std::make_exception_ptr(error), texts::Texts(language));
}

TEST(FaultInfo, OfANumberedErrorHasItsNumberTextAndLine) {
  const NumberedError error(-2147220456, "Quillon.GShell", "No such program");
  const SourceLine line = __LINE__ - 1;
  const FaultInfo info = described(error);
  EXPECT_EQ(info.number, -2147220456);
  EXPECT_EQ(info.description, "No such program");
  EXPECT_EQ(info.line, line);
  EXPECT_EQ(error.source(), "Quillon.GShell");
}

TEST(FaultInfo, OfARunTimeErrorTellsItsFault) {
  using base::Fault;
  using base::RunTimeError;
  EXPECT_EQ(described(RunTimeError(Fault::BadGroupCode, "x")).number, kTypeMismatch);
  EXPECT_EQ(described(RunTimeError(Fault::TextEndsTooEarly, "")).number, kEndOfFile);
  EXPECT_EQ(described(RunTimeError(Fault::TooManyPoints, "")).number, kOutOfRange);
  EXPECT_EQ(described(RunTimeError(Fault::BadNumber, "")).number, kOverflow);
  EXPECT_EQ(described(RunTimeError(Fault::BadLayerNumber, "")).number, kOverflow);
  EXPECT_EQ(described(RunTimeError(Fault::NestingTooDeep, "")).number, kOutOfStack);
  EXPECT_EQ(described(RunTimeError(Fault::BadDashLength, "")).number, kOverflow);
  const std::string text = described(RunTimeError(Fault::BadGroupCode, "12x")).description;
  EXPECT_NE(text.find("12x"), std::string::npos) << text;
  EXPECT_NE(text.front(), ':') << text;
}

TEST(FaultInfo, OfAFileErrorTellsTheReasonInTheLanguageAskedFor) {
  EXPECT_EQ(described(base::ReadError(ENOENT)).number, kFileNotFound);
  EXPECT_EQ(described(files::WriteError(EACCES)).number, kPermissionDenied);
  EXPECT_EQ(described(files::WriteError(EROFS)).number, kPermissionDenied);
  EXPECT_EQ(described(files::WriteError(ENOSPC)).number, kDiskFull);
  EXPECT_EQ(described(files::WriteError(ENOTDIR)).number, kPathNotFound);
  EXPECT_EQ(described(base::ReadError(EIO)).number, kDeviceError);
  EXPECT_EQ(described(base::ReadError(EISDIR)).number, kFileAccess);
  EXPECT_EQ(described(std::system_error(ENOENT, std::generic_category())).number, kFileNotFound);
  EXPECT_NE(described(files::WriteError(ENOSPC)).description,
            described(files::WriteError(ENOSPC), texts::kGerman).description);
}

TEST(FaultInfo, OfTheLibrarysErrorsTellsWhatTheySay) {
  EXPECT_EQ(described(std::bad_alloc()).number, kOutOfMemory);
  EXPECT_EQ(described(std::out_of_range("vector")).number, kOutOfRange);
  EXPECT_EQ(described(std::out_of_range("vector")).description, "vector");
  EXPECT_EQ(described(std::logic_error("odd")).number, kInvalidCall);
  EXPECT_EQ(described(std::logic_error("odd")).description, "odd");
}

TEST(FaultInfo, OfAnythingElseIsAnUnknownError) {
  EXPECT_EQ(described(42).description, "Unknown error");
  EXPECT_EQ(described(42, texts::kGerman).description, "Unbekannter Fehler");
  EXPECT_EQ(describe(nullptr, texts::Texts(texts::kEnglish)).description, "Unknown error");
}

TEST(LpstrToString, EndsAtTheFirstNul) {
  EXPECT_EQ(LpstrToString({"abc\0def", 7}), "abc");
  EXPECT_EQ(LpstrToString("abc"), "abc");
  EXPECT_EQ(LpstrToString({"\0abc", 4}), "");
  EXPECT_EQ(LpstrToString(""), "");
}

TEST(SystemInfo, NamesThisSystem) {
  const SystemInfo info = systemInfo();
  EXPECT_FALSE(info.platform.empty());
  EXPECT_NE(info.version.find('.'), std::string::npos) << info.version;
  EXPECT_FALSE(info.build.empty());
}

}  // namespace
}  // namespace quillon::errors

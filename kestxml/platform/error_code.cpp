#include "kestxml/platform/error_code.h"

#include <cerrno>

namespace KestXmlLib20::platform {
namespace {

struct Translation {
  int systemError;
  ErrorCode code;
};

// clang-format off
constexpr Translation kTranslations[] = {
    {0,            kErrorNone},
    {ENOENT,       kErrorFileNotFound},
    {ENOTDIR,      kErrorPathNotFound},
    {EMFILE,       kErrorTooManyOpenFiles},
    {ENFILE,       kErrorTooManyOpenFiles},
    {EACCES,       kErrorAccessDenied},
    {EPERM,        kErrorAccessDenied},
    {EISDIR,       kErrorAccessDenied},
    {ENOMEM,       kErrorNotEnoughMemory},
    {EROFS,        kErrorReadOnly},
    {EBUSY,        kErrorInUse},
    {ETXTBSY,      kErrorInUse},
    {EEXIST,       kErrorFileExists},
    {EINVAL,       kErrorInvalidParameter},
    {ENOSPC,       kErrorDiskFull},
    {EDQUOT,       kErrorDiskFull},
    {ENAMETOOLONG, kErrorNameTooLong},
    {EFBIG,        kErrorFileTooLarge},
    {EOVERFLOW,    kErrorFileTooLarge},
};
// clang-format on

}  // namespace

ErrorCode ErrorCodeOf(int systemError) {
  for (Translation const& row : kTranslations) {
    if (row.systemError == systemError) return row.code;
  }
  return kErrorGeneralFailure;
}

}  // namespace KestXmlLib20::platform

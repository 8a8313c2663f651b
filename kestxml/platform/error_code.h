// The 32-bit codes by which messages name a failure of the operating system.
#pragma once

#include <cstdint>

#include "kestxml/platform/api.h"

namespace KestXmlLib20::platform {

/// 0 is success. Messages print the number, so it is the same on every system.
using ErrorCode = std::uint32_t;

inline constexpr ErrorCode kErrorNone = 0;
inline constexpr ErrorCode kErrorFileNotFound = 2;
inline constexpr ErrorCode kErrorPathNotFound = 3;
inline constexpr ErrorCode kErrorTooManyOpenFiles = 4;
inline constexpr ErrorCode kErrorAccessDenied = 5;
inline constexpr ErrorCode kErrorNotEnoughMemory = 8;
inline constexpr ErrorCode kErrorReadOnly = 19;
inline constexpr ErrorCode kErrorGeneralFailure = 31;
inline constexpr ErrorCode kErrorInUse = 32;
inline constexpr ErrorCode kErrorHandleEof = 38;
inline constexpr ErrorCode kErrorFileExists = 80;
inline constexpr ErrorCode kErrorInvalidParameter = 87;
inline constexpr ErrorCode kErrorDiskFull = 112;
inline constexpr ErrorCode kErrorNameTooLong = 206;
inline constexpr ErrorCode kErrorFileTooLarge = 223;
inline constexpr ErrorCode kErrorIoPending = 997;  ///< not a failure: the request has been started

/// The code for an `errno` value; kErrorGeneralFailure for those without one of their own.
KESTXML_API ErrorCode ErrorCodeOf(int systemError);

}  // namespace KestXmlLib20::platform

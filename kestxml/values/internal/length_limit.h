// The bound that 32-bit lengths put on input and output.
#pragma once

namespace KestXmlLib20::internal {

/// Throws the CKestException for what 32 bits can't count the bytes of.
[[noreturn]] void ThrowTooManyBytes();

}  // namespace KestXmlLib20::internal

// The bound that 32-bit lengths put on input and output.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Throws the CKestException for input or output of 4 GiB or more, whose bytes 32 bits can't count.
[[noreturn]] KESTXML_API void ThrowTooManyBytes();

}  // namespace KestXmlLib20

// The bound that 32-bit lengths put on input and output.
#pragma once

namespace KestXmlLib20 {

/// Throws the CKestException for input or output of 4 GiB or more, whose bytes 32 bits can't count.
[[noreturn]] void ThrowTooManyBytes();

}  // namespace KestXmlLib20

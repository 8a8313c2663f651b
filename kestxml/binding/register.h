// How generated code says which version of the generator it comes from.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Stores the version of the generator that made the process's classes; generated code calls it
/// before it makes any object. Only 20, 0 fits this library. With another pair, or without a call,
/// the first object of the process puts a "Version Mismatch Error" on the message channel
/// (standard error unless replaced), and every To... and From... operation of an object does the
/// same and throws CKestException.
KESTXML_API void Register(int generatorMajor, int generatorMinor);

}  // namespace KestXmlLib20

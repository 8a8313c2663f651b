// What the classes that write files have in common.
#pragma once

#include <string>

#include "kestxml/document/output_form.h"
#include "kestxml/platform/error_code.h"
#include "kestxml/platform/file.h"

namespace KestXmlLib20::internal {

/// Makes the file, or empties it, and writes the byte order mark of @p encoding, if it has one.
/// @throws CKestException, as ThrowWriteFailed does.
platform::File CreateOutputFile(std::u16string const& fileName, XmlEncoding encoding);

[[noreturn]] void ThrowWriteFailed(std::u16string const& fileName, platform::ErrorCode error);

}  // namespace KestXmlLib20::internal

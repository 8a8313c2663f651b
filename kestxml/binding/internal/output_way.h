// How text output takes its way to bytes and files, whatever its format.
#pragma once

#include <functional>

#include "kestxml/document/output_form.h"
#include "kestxml/values/compression_type.h"

namespace KestXmlLib20 {
class CBinaryData;
class CTextStream;
}  // namespace KestXmlLib20

namespace KestXmlLib20::internal {

/// The bytes of what @p write writes, without a byte order mark.
/// @throws CKestException for an encoding without a byte form, after the writing; and when
/// compression does not make them fewer.
CBinaryData BytesOf(XmlEncoding encoding, CompressionType compression,
                    std::function<void(CTextStream& stream)> const& write);

/// Whether a file is written while its document is produced; else its bytes are made first.
/// @throws CKestException for CompressionType_ZLib, which files don't have.
bool GrowsAsItIsWritten(CompressionType compression);

}  // namespace KestXmlLib20::internal

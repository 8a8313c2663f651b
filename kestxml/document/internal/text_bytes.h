// The byte form of output text.
#pragma once

#include <string_view>

#include "kestxml/document/output_form.h"

namespace KestXmlLib20 {

class CBinaryData;
class CStringBuffer;
class CUtf8Encoder;

namespace internal {

/// Whether @p encoding has a byte form at all.
bool HasByteForm(XmlEncoding encoding);
/// @throws CKestException when @p encoding has no byte form.
void TestByteForm(XmlEncoding encoding);

/// What a file in @p encoding begins with; empty for most. Output in memory never has one.
std::string_view ByteOrderMark(XmlEncoding encoding);

/// Appends the bytes of @p text, one piece of a longer text. A surrogate pair may be cut between
/// two pieces: @p utf8 keeps what is left over.
/// @throws CKestException when @p encoding has no byte form.
void AppendBytes(CStringBuffer const& text, XmlEncoding encoding, CUtf8Encoder& utf8,
                 CBinaryData& bytes);
/// Appends what the end of the text shows to be a surrogate without its partner.
void FinishBytes(CUtf8Encoder& utf8, CBinaryData& bytes);

}  // namespace internal
}  // namespace KestXmlLib20

// Text written as character data or as an attribute value.
#pragma once

#include <string_view>

namespace KestXmlLib20 {
class CStringBuffer;
}

namespace KestXmlLib20::internal {

// Both append @p text up to its first null unit and write "&amp;", "&lt;" and "&gt;" for those
// characters. A carriage return becomes "&#xD;" if GetPreserveCharacterRefCR is true; else it is
// left out. All else goes unchecked: tabs, other controls, lone surrogates.

/// A line feed becomes @p lineEnd; a quotation mark stays.
void AppendCharacterData(CStringBuffer& out, std::u16string_view text, std::u16string_view lineEnd);

/// Whether AppendCharacterData would append all of @p text as it stands.
bool IsPlainCharacterData(std::u16string_view text);

/// With the equals sign and the quotation marks around the value. A line feed becomes "&#xA;", a
/// quotation mark "&quot;". A tab stays, so a reader makes a blank of it.
void AppendAttributeValue(CStringBuffer& out, std::u16string_view text);

}  // namespace KestXmlLib20::internal

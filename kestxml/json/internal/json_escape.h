// Text written as a JSON string.
#pragma once

#include <string_view>

namespace KestXmlLib20 {
class CStringBuffer;
}

namespace KestXmlLib20::internal {

/// Appends @p text without quotation marks. A line feed becomes @p lineEnd, a carriage return is
/// left out, and other controls become "\u00XX". A quotation mark, a backslash, a backspace, a tab
/// and a form feed stay as they are, though no strict reader takes them back: readers of this
/// output rely on it.
void AppendJsonText(CStringBuffer& out, std::u16string_view text, std::u16string_view lineEnd);

/// Whether AppendJsonText would append @p text as it is.
bool IsPlainJsonText(std::u16string_view text);

}  // namespace KestXmlLib20::internal

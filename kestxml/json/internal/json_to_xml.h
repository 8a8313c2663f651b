// JSON text to XML text.
#pragma once

#include <string_view>

namespace KestXmlLib20 {
class CBinaryData;
class CSerializationContext;
}  // namespace KestXmlLib20

namespace KestXmlLib20::internal {

/// The XML document, in UTF-8 and indented with tabs, that stands for @p text, which holds no null
/// unit. Nothing tests that it is well-formed: a text with two outermost members gives two roots.
/// @throws CKestException of the reader, for what has no XML, for an element that is left open, and
/// beyond the limits of @p context.
CBinaryData JsonToXml(std::u16string_view text, CSerializationContext const& context);

}  // namespace KestXmlLib20::internal

#include "kestxml/binding/internal/nil_text.h"

#include <algorithm>

#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20::internal {
namespace {

char16_t LowerAscii(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool IsWord(std::u16string_view text, std::u16string_view lowerWord) {
  return std::ranges::equal(text, lowerWord, {}, LowerAscii);
}

}  // namespace

std::optional<bool> ReadNilText(std::u16string_view text) {
  if (IsWord(text, u"true") || text == u"1") return true;
  if (IsWord(text, u"false") || text == u"0") return false;
  return std::nullopt;
}

void ThrowNotNillable(CXmlElement const& element) {
  throw CKestValidationException(u"Invalid use of 'nil' attribute in non-nillable element.",
                                 element.GetXPath());
}

void ThrowUnexpectedNilText(CXmlAttribute const& attribute) {
  throw CKestValidationException(
      FormatString(u"Unexpected Value [%s] for 'nil' Attribute found.", attribute.GetValue()),
      attribute.GetXPath());
}

}  // namespace KestXmlLib20::internal

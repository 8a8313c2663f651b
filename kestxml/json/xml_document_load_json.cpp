// The loads of CXmlDocument from JSON. They stand here so that document/ need not know JSON.

#include <algorithm>
#include <string_view>

#include "kestxml/document/xml_document.h"
#include "kestxml/json/internal/json_to_xml.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

// JSON text has no null unit, so the first one ends it.
std::u16string Widen(std::string_view text) {
  return FromUtf8(text.substr(0, text.find('\0')));
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

}  // namespace

CBinaryData CXmlDocument::LoadJsonFile(char16_t const* fileName) {
  Cleanup();
  return ParseJson(ReadFile(fileName ? fileName : u""));
}

CBinaryData CXmlDocument::LoadJsonStream(unsigned char const* data, std::uint32_t length) {
  Cleanup();
  if (!data || length == 0) throw CKestException(u"JSON Stream is empty!");
  return ParseJson({data, length});
}

CBinaryData CXmlDocument::LoadJson(char const* text) {
  Cleanup();
  if (!text || !*text) throw CKestException(u"JSON String is empty!");
  return internal::JsonToXml(Widen(text), *m_context);
}

CBinaryData CXmlDocument::LoadJson(char16_t const* text) {
  Cleanup();
  if (!text || !*text) throw CKestException(u"JSON String is empty!");
  return internal::JsonToXml(text, *m_context);
}

// What does not inflate is read as it stands.
CBinaryData CXmlDocument::ParseJson(std::span<unsigned char const> bytes) const {
  CBinaryData inflated;
  if (Inflate(inflated, bytes.data(), static_cast<std::uint32_t>(bytes.size()),
              m_context->GetLimits().GetMaxInflatedBytes())) {
    bytes = {inflated.GetData(), inflated.GetLength()};
  }
  std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
  return internal::JsonToXml(Widen(WithoutByteOrderMark(text)), *m_context);
}

}  // namespace KestXmlLib20

// The loads of CXmlDocument from JSON. They stand here so that document/ need not know JSON.

#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

#include "kestxml/document/xml_document.h"
#include "kestxml/json/internal/json_to_xml.h"
#include "kestxml/platform/large_pages.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/compression.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

// UTF-8 as wide text. A long one lies in large pages, which are cheap to touch for the first time.
class WideText {
 public:
  explicit WideText(std::string_view text)
      : m_units(static_cast<char16_t*>(
            platform::MallocInLargePages((text.size() + 1) * sizeof(char16_t)))) {
    if (!m_units) throw std::bad_alloc();
    m_length = static_cast<std::size_t>(FromUtf8(text, m_units.get()) - m_units.get());
  }

  std::u16string_view View() const { return {m_units.get(), m_length}; }

 private:
  struct Free {
    void operator()(char16_t* units) const { std::free(units); }
  };
  std::unique_ptr<char16_t, Free> m_units;
  std::size_t m_length = 0;
};

// JSON text has no null unit, so the first one ends it.
CBinaryData BytesToXml(std::string_view text, CSerializationContext const& context) {
  return internal::JsonToXml(WideText(text.substr(0, text.find('\0'))).View(), context);
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
  return BytesToXml(text, *m_context);
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
  return BytesToXml(WithoutByteOrderMark(text), *m_context);
}

}  // namespace KestXmlLib20

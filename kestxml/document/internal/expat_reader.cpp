#include "kestxml/document/internal/expat_reader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "kestxml/platform/large_pages.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20::internal {
namespace {

static_assert(sizeof(XML_Char) == sizeof(char16_t));

// Stands between URI and local name in the names that Expat reports. No XML text can hold it, and
// unlike "|" it is one that Expat lets a document's own URIs live beside.
constexpr XML_Char kSeparator[] = {1, 0};
constexpr XML_Char kUtf16[] = {'U', 'T', 'F', '-', '1', '6', 0};
// The parser copies what it parses: a large document costs fewer page faults so.
constexpr XML_Memory_Handling_Suite kMemory = {platform::MallocInLargePages, std::realloc,
                                               std::free};
// A parser that has seen no more, in bytes or in units of names, holds little memory.
constexpr std::uint64_t kLittleForParser = std::uint64_t{64} * 1024;

// Called for every name and attribute value, so the usual short text takes few steps.
std::size_t Length(XML_Char const* text) {
  for (std::size_t length = 0;; length += 4) {
    if (!text[length]) return length;
    if (!text[length + 1]) return length + 1;
    if (!text[length + 2]) return length + 2;
    if (!text[length + 3]) return length + 3;
  }
}

std::u16string Copy(XML_Char const* text) {
  if (!text) return {};
  std::u16string copy(Length(text), u'\0');
  std::memcpy(copy.data(), text, copy.size() * sizeof(char16_t));
  return copy;
}

// A name reads as URI, "|" and local name, and is cut at its first "|": a URI that holds one loses
// its rest to the local name.
NameTable::Spelling CutAtFirstBar(std::u16string_view uri, std::u16string_view localName) {
  std::size_t const bar = uri.find(u'|');
  std::u16string rest(uri.substr(bar + 1));
  return {std::u16string(uri.substr(0, bar)), rest.append(u"|").append(localName)};
}

bool BeginsWithByteOrderMark(std::span<unsigned char const> head) {
  return head.size() >= 2 && head[0] == 0xFF && head[1] == 0xFE;
}

}  // namespace

CExpatReader::CExpatReader(CXmlTree& tree, ExpatReaderOptions options)
    : m_tree(tree), m_options(options) {}

CExpatReader::~CExpatReader() {
  bool const isSmall = m_parsedBytes <= kLittleForParser && m_namedUnits <= kLittleForParser;
  if (m_isComplete && m_options.namespaces && isSmall) SpareParser::Keep(std::move(m_parser));
}

CExpatReader::Parser CExpatReader::TakeParser(bool namespaces, XML_Char const* encoding) {
  if (!namespaces) return Parser(XML_ParserCreate_MM(encoding, &kMemory, nullptr));
  Parser spare = SpareParser::Take();
  if (spare && XML_ParserReset(spare.get(), encoding)) return spare;
  return Parser(XML_ParserCreate_MM(encoding, &kMemory, kSeparator));
}

template <auto Event, typename... Arguments>
void CExpatReader::Call(void* reader, Arguments... arguments) {
  auto& self = *static_cast<CExpatReader*>(reader);
  if (self.m_failure) return;
  try {
    (self.*Event)(arguments...);
  } catch (...) {
    self.m_failure = std::current_exception();
    XML_StopParser(self.m_parser.get(), XML_FALSE);
  }
}

// Text that begins with the mark FF FE is UTF-16 whatever its declaration says. Expat refuses a
// declaration that disagrees, unless the caller vouches for the encoding.
void CExpatReader::Initialise(std::span<unsigned char const> head) {
  m_parser = TakeParser(m_options.namespaces, BeginsWithByteOrderMark(head) ? kUtf16 : nullptr);
  if (!m_parser) throw std::bad_alloc();
  XML_Parser const parser = m_parser.get();
  XML_SetUserData(parser, this);
  XML_SetElementHandler(parser,
                        Call<&CExpatReader::OnStartElement, XML_Char const*, XML_Char const**>,
                        Call<&CExpatReader::OnEndElement, XML_Char const*>);
  // A binding that ends stays in the document's alias map, so its end is not listened to.
  XML_SetStartNamespaceDeclHandler(
      parser, Call<&CExpatReader::OnStartNamespace, XML_Char const*, XML_Char const*>);
  XML_SetCharacterDataHandler(parser, Call<&CExpatReader::OnCharacterData, XML_Char const*, int>);
  if (m_options.stripCDATA) return;
  XML_SetCdataSectionHandler(parser, Call<&CExpatReader::OnStartCdataSection>,
                             Call<&CExpatReader::OnEndCdataSection>);
}

void CExpatReader::ParseBuffer(unsigned char const* data, std::uint32_t length, bool isFinal) {
  if (!m_parser) Initialise({data, length});
  std::uint32_t parsed = 0;
  do {
    std::uint32_t const piece = std::min(length - parsed, kLargestPiece);
    bool const isLast = isFinal && parsed + piece == length;
    Finish(XML_Parse(m_parser.get(), reinterpret_cast<char const*>(data + parsed),
                     static_cast<int>(piece), isLast),
           piece, isLast);
    parsed += piece;
  } while (parsed != length);
}

void* CExpatReader::GetBuffer(std::span<unsigned char const> head, std::uint32_t length) {
  if (!m_parser) Initialise(head);
  void* const buffer = XML_GetBuffer(m_parser.get(), static_cast<int>(length));
  if (!buffer) ThrowFailure();
  return buffer;
}

void CExpatReader::ParseFilledBuffer(std::uint32_t length, bool isFinal) {
  Finish(XML_ParseBuffer(m_parser.get(), static_cast<int>(length), isFinal), length, isFinal);
}

void CExpatReader::Finish(XML_Status status, std::uint32_t length, bool isFinal) {
  if (m_failure) std::rethrow_exception(m_failure);
  if (status == XML_STATUS_ERROR) ThrowFailure();
  m_parsedBytes += length;
  m_isComplete = isFinal;
}

void CExpatReader::ThrowFailure() const {
  XML_Parser const parser = m_parser.get();
  throw CKestException(FormatString(u"%S at line %d", XML_ErrorString(XML_GetErrorCode(parser)),
                                    XML_GetCurrentLineNumber(parser)));
}

bool CExpatReader::IsInLatest(XML_Char const* name) const {
  if (!m_latest.uri) return false;
  for (char16_t const unit : m_latest.uri->text) {
    if (*name++ != unit) return false;
  }
  return *name == kSeparator[0];
}

// The separator stands behind the URI; a name in no namespace has none.
XmlName const* CExpatReader::InternName(XML_Char const* name) {
  if (!IsInLatest(name)) {
    std::size_t units = 0;
    while (name[units] && name[units] != kSeparator[0]) ++units;
    if (!name[units]) {
      if (!m_none.uri) m_none.uri = m_tree.InternUri(u"", 0);
      return Intern(m_none, name);
    }
    m_latest.uri = m_tree.InternUri(name, units);
    m_latest.spell =
        m_latest.uri->text.find(u'|') == std::u16string_view::npos ? nullptr : CutAtFirstBar;
  }
  return Intern(m_latest, name + m_latest.uri->text.size() + 1);
}

XmlName const* CExpatReader::Intern(Namespace const& ns, XML_Char const* localName) {
  std::size_t const units = Length(localName);
  m_namedUnits += ns.uri->text.size() + units;
  return m_tree.InternName(ns.uri, localName, units, ns.spell);
}

void CExpatReader::OnStartElement(XML_Char const* name, XML_Char const** attributes) {
  m_attributes.clear();
  for (; *attributes; attributes += 2) {
    m_attributes.push_back({InternName(attributes[0]), attributes[1],
                            static_cast<std::uint32_t>(Length(attributes[1]))});
  }
  m_tree.AddElement(InternName(name), m_attributes);
}

// What is thrown away takes its names along.
void CExpatReader::OnEndElement(XML_Char const* /*name*/) {
  if (m_tree.EndElement()) m_none = m_latest = {};
}

void CExpatReader::OnStartNamespace(XML_Char const* prefix, XML_Char const* uri) {
  m_tree.AddAlias(Copy(prefix), Copy(uri));
}

void CExpatReader::OnCharacterData(XML_Char const* text, int length) {
  if (length != 0) m_tree.AppendTextExcludingCR(text, static_cast<std::uint32_t>(length));
}

void CExpatReader::OnStartCdataSection() {
  m_tree.AppendTextExcludingCR(u"<![CDATA[", 9);
}

void CExpatReader::OnEndCdataSection() {
  m_tree.AppendTextExcludingCR(u"]]>", 3);
}

}  // namespace KestXmlLib20::internal

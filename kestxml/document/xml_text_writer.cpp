#include "kestxml/document/xml_text_writer.h"

#include <algorithm>
#include <typeinfo>

#include "kestxml/document/internal/xml_escape.h"
#include "kestxml/document/string_buffer.h"
#include "kestxml/document/text_pieces.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/values/same_text.h"

namespace KestXmlLib20 {

using internal::AppendPieces;
using internal::Piece;

namespace {

constexpr std::u16string_view kSectionStart = u"<![CDATA[";
constexpr std::u16string_view kDeclaration = u" xmlns:";
constexpr std::u16string_view kDefaultDeclaration = u" xmlns=\"";

std::u16string_view EncodingAttribute(XmlEncoding encoding) {
  switch (encoding) {
    case XmlEncoding_UTF8:
      return u" encoding=\"UTF-8\"";
    case XmlEncoding_UTF16:
      return u" encoding=\"UTF-16\"";
    default:
      return u"";
  }
}

}  // namespace

CStringBuffer& CXmlTextWriter::Buffer() const {
  return m_pStream->GetBuffer();
}

std::u16string_view CXmlTextWriter::TagEndAndMargin(std::int32_t depth) {
  std::size_t length = m_tagEndLength;
  // The depth is open to writers of other formats, which may take it below the root.
  if (m_formatted) length += static_cast<std::size_t>(std::max(depth, 0)) * m_indent.size();
  while (m_margin.size() < length) m_margin += m_indent;
  return {m_margin.data(), length};
}

std::u16string_view CXmlTextWriter::Margin(std::int32_t depth) {
  std::u16string_view margin = TagEndAndMargin(depth);
  margin.remove_prefix(m_tagEndLength);
  return margin;
}

std::u16string_view CXmlTextWriter::TagEnd() const {
  return {m_margin.data(), m_tagEndLength};
}

std::u16string_view CXmlTextWriter::LineEnd() const {
  return {m_margin.data() + 1, m_tagEndLength - 1};
}

void CXmlTextWriter::OfferFlush() {
  if (Buffer().GetLength() >= CTextStream::kFlushLength) m_pStream->Flush();
}

CXmlTextWriter::CXmlTextWriter(CTextStream& stream) : m_pStream(&stream) {
  StartMargin();
}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::SetPrettyPrint(bool value) {
  m_formatted = value;
  StartMargin();
}

void CXmlTextWriter::SetIndent(std::u16string_view value) {
  m_indent = value;
  StartMargin();
}

void CXmlTextWriter::SetEOLType(EOLType value) {
  m_newLine = LineEndOf(value);
  m_eolType = value;
  StartMargin();
}

void CXmlTextWriter::WriteXmlDeclaration() {
  Buffer().Append(u"<?xml version=\"1.0\"");
  Buffer().Append(EncodingAttribute(m_pStream->GetEncoding()));
  Buffer().Append(u"?>");
  Buffer().Append(LineEnd());
  OfferFlush();
}

void CXmlTextWriter::OpenWriter() {
  m_pStream->Open();
}

void CXmlTextWriter::CloseWriter() {
  m_pStream->Close();
  CXmlWriter::CloseWriter();
}

void CXmlTextWriter::WriteComment(std::u16string_view text) {
  Buffer().Append(u"<!--");
  internal::AppendCharacterData(Buffer(), text, m_newLine);
  Buffer().Append(u"-->");
  Buffer().Append(LineEnd());
  OfferFlush();
}

void CXmlTextWriter::WriteProcessingInstruction(std::u16string_view text) {
  AppendRaw(text);
  Buffer().Append(LineEnd());
  OfferFlush();
}

void CXmlTextWriter::WriteRawAttributes(std::u16string_view text) {
  Buffer().Append(u' ');
  AppendRaw(text);
  OfferFlush();
}

void CXmlTextWriter::StartElement(std::u16string_view localName, std::u16string_view uri) {
  CXmlWriterContext* const parent = m_pCurrentContext;
  bool const endsTag = parent && parent->m_startTagOpen;
  if (parent) {
    ++parent->m_childCount;
    parent->m_startTagOpen = false;
  }
  CXmlWriterContext& context = *CreateContext(localName, uri);
  auto const margin = endsTag ? TagEndAndMargin(context.m_depth) : Margin(context.m_depth);
  if (NeedsPrefix(context)) {
    Prefix const prefix = FindOrAddPrefix(context, uri);
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), Piece(prefix.text), Piece(u':'),
                 Piece(localName));
    if (prefix.isNew) AppendDeclaration(prefix.text, uri);
  } else {
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), Piece(localName));
  }
  if (!parent) AppendRootDeclarations();
  m_pCurrentContext = &context;
  OfferFlush();
}

void CXmlTextWriter::WriteText(std::u16string_view text, ItemType /*itemType*/,
                               bool isDefaultValue) {
  if (text.empty() || (isDefaultValue && !m_writeDefaultValues)) return;
  if (m_pCurrentContext && m_pCurrentContext->m_startTagOpen) {
    m_pCurrentContext->m_startTagOpen = false;
    Buffer().Append(u'>');
  }
  if (text.starts_with(kSectionStart)) {
    AppendRaw(text);
  } else {
    internal::AppendCharacterData(Buffer(), text, m_newLine);
  }
  OfferFlush();
}

void CXmlTextWriter::EndElement() {
  CXmlWriterContext const& context = RequireOpenElement();
  if (context.m_startTagOpen) {
    AppendPieces(Buffer(), Piece(u'/'), Piece(TagEnd()));
  } else {
    AppendEndTag(context);
  }
  EndContext();
  OfferFlush();
}

void CXmlTextWriter::WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                                    std::u16string_view value, ItemType /*itemType*/) {
  CXmlWriterContext& context = RequireOpenStartTag();
  if (uri.empty()) {
    AppendPieces(Buffer(), Piece(u' '), Piece(localName));
  } else {  // the default namespace is not that of attributes
    Prefix const prefix = FindOrAddPrefix(context, uri);
    if (prefix.isNew) AppendDeclaration(prefix.text, uri);
    AppendPieces(Buffer(), Piece(u' '), Piece(prefix.text), Piece(u':'), Piece(localName));
  }
  internal::AppendAttributeValue(Buffer(), value);
  OfferFlush();
}

// A new prefix is declared with a blank behind it and the attribute brings a blank of its own, so
// two stand there: the bytes of the output are part of the interface.
void CXmlTextWriter::WriteTypeAttribute(std::u16string_view uri, std::u16string_view typeName,
                                        ItemType itemType) {
  CXmlWriterContext& context = RequireOpenStartTag();
  if (uri.empty() || uri == GetEffectiveDefaultNamespace(context)) {
    WriteAttribute(u"type", kXmlSchemaInstanceNamespace, typeName, itemType);
    return;
  }
  Prefix const prefix = FindOrAddPrefix(context, uri);
  if (prefix.isNew) {
    AppendDeclaration(prefix.text, uri);
    Buffer().Append(u' ');
  }
  std::u16string value(prefix.text);
  value.append(u":").append(typeName);
  WriteAttribute(u"type", kXmlSchemaInstanceNamespace, value, itemType);
}

void CXmlTextWriter::WriteNil() {
  RequireOpenStartTag();
  WriteAttribute(u"nil", kXmlSchemaInstanceNamespace, u"true", ItemType_boolean);
}

// Most elements of most documents: nothing to escape, no new prefix. They are never open, so no
// context is made for them. A derived class still gets the three calls.
void CXmlTextWriter::WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                                      std::u16string_view text, ItemType itemType,
                                      bool isDefaultValue) {
  CXmlWriterContext* const parent = m_pCurrentContext;
  bool const hasPrefix =
      !uri.empty() && parent && !IsSameText(uri, GetEffectiveDefaultNamespace(*parent));
  auto const* const prefix = hasPrefix ? FindPrefix(*parent, uri) : nullptr;
  if (!parent || (hasPrefix && !prefix) || !internal::IsPlainCharacterData(text) ||
      typeid(*this) != typeid(CXmlTextWriter)) {
    return CXmlWriter::WriteTextElement(localName, uri, text, itemType, isDefaultValue);
  }
  TestDepthIn(parent);
  std::int32_t const depth = parent->m_depth + 1;
  auto const margin = parent->m_startTagOpen ? TagEndAndMargin(depth) : Margin(depth);
  ++parent->m_childCount;
  parent->m_startTagOpen = false;

  auto const prefixPiece = Piece(prefix ? std::u16string_view(*prefix) : std::u16string_view());
  auto const colon = Piece(u':', hasPrefix);
  auto const name = Piece(localName);
  if (text.empty() || (isDefaultValue && !m_writeDefaultValues)) {
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), prefixPiece, colon, name, Piece(u'/'),
                 Piece(TagEnd()));
  } else {
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), prefixPiece, colon, name, Piece(u'>'),
                 Piece(text), Piece(u'<'), Piece(u'/'), prefixPiece, colon, name, Piece(TagEnd()));
  }
  OfferFlush();
}

void CXmlTextWriter::AppendRaw(std::u16string_view text) {
  Buffer().Append(text.substr(0, text.find(u'\0')));
}

void CXmlTextWriter::StartMargin() {
  m_margin = u'>';
  if (m_formatted) m_margin += m_newLine;
  m_tagEndLength = m_margin.size();
}

void CXmlTextWriter::AppendDeclaration(std::u16string_view prefix, std::u16string_view uri) {
  AppendPieces(Buffer(), Piece(kDeclaration), Piece(prefix), Piece(u'='), Piece(u'"'), Piece(uri),
               Piece(u'"'));
}

void CXmlTextWriter::AppendRootDeclarations() {
  if (!m_defaultNamespace.empty()) {
    AppendPieces(Buffer(), Piece(kDefaultDeclaration), Piece(m_defaultNamespace), Piece(u'"'));
  }
  for (auto const& [uri, prefix] : m_namespaces) {
    if (!IsNeverDeclared(uri)) AppendDeclaration(prefix, uri);
  }
}

void CXmlTextWriter::AppendEndTag(CXmlWriterContext const& context) {
  std::u16string_view const name = context.GetLocalName();
  auto const margin = context.m_childCount > 0 ? Margin(context.m_depth) : std::u16string_view();
  // There is none, either, where the default namespace of the start tag was replaced since.
  auto const* const prefix =
      NeedsPrefix(context) ? FindPrefix(context, context.GetNamespaceURI()) : nullptr;
  if (prefix) {
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), Piece(u'/'), Piece(*prefix), Piece(u':'),
                 Piece(name), Piece(TagEnd()));
  } else {
    AppendPieces(Buffer(), Piece(margin), Piece(u'<'), Piece(u'/'), Piece(name), Piece(TagEnd()));
  }
}

}  // namespace KestXmlLib20

#include "kestxml/json/json_text_writer.h"

#include <algorithm>
#include <typeinfo>

#include "kestxml/document/string_buffer.h"
#include "kestxml/document/text_pieces.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/json/internal/json_escape.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/same_text.h"

namespace KestXmlLib20 {

using internal::AppendPieces;
using internal::Piece;

namespace {

// The states of CXmlWriterContext::m_arrayState.
constexpr std::int32_t kNoArray = 0;
constexpr std::int32_t kArrayMayBegin = 1;
constexpr std::int32_t kArrayIsOpen = 2;
constexpr std::int32_t kArrayEnds = 3;

constexpr bool IsWrittenBare(ItemType type) {
  return (type >= ItemType_i1 && type <= ItemType_r8) ||
         (type >= ItemType_boolean && type <= ItemType_integer);
}

}  // namespace

/// What stands before a value.
struct CJsonTextWriter::Lead {
  char16_t opening = 0;        // the brace or comma before the member; 0 for none
  std::u16string_view margin;  // with the line end
  bool hasName = true;
  std::u16string_view mark = {};  // what the name begins with
  bool hasPrefix = false;
  std::u16string_view prefix = {};
  std::u16string_view name = {};
};

inline CStringBuffer& CJsonTextWriter::Buffer() const {
  return m_pStream->GetBuffer();
}

// The depth counts from 1, and every open array adds one.
inline std::u16string_view CJsonTextWriter::LineAndMargin(std::int32_t depth) {
  if (!m_prettyPrint) return {};
  std::size_t const length =
      m_eol.size() + static_cast<std::size_t>(std::max(depth, 0)) * m_indent.size();
  while (m_margin.size() < length) m_margin += m_indent;
  return {m_margin.data(), length};
}

inline std::u16string_view CJsonTextWriter::Margin(std::int32_t depth) {
  std::u16string_view margin = LineAndMargin(depth);
  margin.remove_prefix(std::min(m_eol.size(), margin.size()));
  return margin;
}

inline void CJsonTextWriter::OfferFlush() {
  if (Buffer().GetLength() >= CTextStream::kFlushLength) m_pStream->Flush();
}

template <typename... Pieces>
inline void CJsonTextWriter::AppendMember(Lead const& lead, Pieces... value) {
  AppendPieces(Buffer(), Piece(lead.opening, lead.opening != 0), Piece(lead.margin),
               Piece(u'"', lead.hasName), Piece(lead.mark), Piece(lead.prefix),
               Piece(u':', lead.hasPrefix), Piece(lead.name, lead.hasName),
               Piece(u'"', lead.hasName), Piece(u':', lead.hasName), Piece(u' ', lead.hasName),
               value...);
}

CJsonTextWriter::CJsonTextWriter(CTextStream& stream) : m_pStream(&stream) {
  StartMargin();
}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::SetIndent(std::u16string_view value) {
  m_indent = value;
  StartMargin();
}

void CJsonTextWriter::SetEOLType(EOLType value) {
  m_eol = LineEndOf(value);
  StartMargin();
}

void CJsonTextWriter::StartMargin() {
  m_margin = m_eol;
}

void CJsonTextWriter::WriteLineEnd() {
  Buffer().Append(LineAndMargin(0));
}

void CJsonTextWriter::OpenWriter() {
  m_pStream->Open();
}

void CJsonTextWriter::CloseWriter() {
  m_pStream->Close();
  CXmlWriter::CloseWriter();
}

void CJsonTextWriter::WriteComment(std::u16string_view text) {
  Buffer().Append(u"/* ");
  internal::AppendJsonText(Buffer(), text, m_eol);
  Buffer().Append(u" */");
  Buffer().Append(m_eol);
  OfferFlush();
}

void CJsonTextWriter::WriteProcessingInstruction(std::u16string_view /*text*/) {}
void CJsonTextWriter::WriteRawAttributes(std::u16string_view /*text*/) {}
void CJsonTextWriter::WriteNil() {}

void CJsonTextWriter::StartElement(std::u16string_view localName, std::u16string_view uri) {
  CXmlWriterContext* const parent = m_pCurrentContext;
  bool const hasName = !parent || parent->m_arrayState != kArrayIsOpen;
  char16_t const opening = parent ? Opening(*parent) : u'\0';
  CXmlWriterContext& context = *CreateContext(localName, uri);
  if (!parent) context.m_depth = 1;
  auto const margin = parent ? LineAndMargin(context.m_depth) : Margin(1);
  bool const isFull = m_roundTrip == JsonRoundTrip_Full;
  Prefix prefix{};
  bool const hasPrefix = hasName && isFull && NeedsPrefix(context);
  if (hasPrefix && parent) prefix.text = RequirePrefix(context, uri, localName);
  if (hasPrefix && !parent) prefix = FindOrAddPrefix(context, uri);
  AppendMember({opening, margin, hasName, {}, hasPrefix, prefix.text, localName});
  m_objectPending = true;
  if (prefix.isNew) AppendDeclaration(context, u"@xmlns:", prefix.text, uri);
  if (isFull && !parent) AppendRootDeclarations(context);
  m_pCurrentContext = &context;
  OfferFlush();
}

// The object stays pending: a child behind the text opens it there.
void CJsonTextWriter::WriteText(std::u16string_view text, ItemType itemType,
                                bool /*isDefaultValue*/) {
  CXmlWriterContext const& context = RequireOpenElement();
  if (m_objectPending) return AppendValue(text, itemType);
  auto const name = m_roundTrip == JsonRoundTrip_None ? u"" : u"#text";
  AppendMemberWithValue(
      {.opening = u',', .margin = LineAndMargin(context.m_depth + 1), .name = name}, text,
      itemType);
}

void CJsonTextWriter::EndElement() {
  CXmlWriterContext& context = RequireOpenElement();
  if (context.m_arrayState == kArrayEnds) CloseArray(context);
  if (!m_objectPending) {
    AppendPieces(Buffer(), Piece(LineAndMargin(context.m_depth)), Piece(u'}'));
  }
  EndContext();
  m_objectPending = false;
}

void CJsonTextWriter::WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                                     std::u16string_view value, ItemType itemType) {
  CXmlWriterContext& context = RequireOpenElement();
  char16_t const opening = Opening(context);
  bool const hasPrefix = !uri.empty() && m_roundTrip == JsonRoundTrip_Full;
  AppendMemberWithValue({.opening = opening,
                         .margin = LineAndMargin(context.m_depth + 1),
                         .mark = m_roundTrip == JsonRoundTrip_None ? u"" : u"@",
                         .hasPrefix = hasPrefix,
                         .prefix = hasPrefix ? RequirePrefix(context, uri, localName) : u"",
                         .name = localName},
                        value, itemType);
  m_objectPending = false;
}

void CJsonTextWriter::WriteTypeAttribute(std::u16string_view uri, std::u16string_view typeName,
                                         ItemType itemType) {
  if (m_roundTrip != JsonRoundTrip_Full) return;
  CXmlWriterContext const& context = RequireOpenElement();
  std::u16string value(typeName);
  if (!uri.empty() && uri != GetEffectiveDefaultNamespace(context)) {
    value.insert(0, u":").insert(0, RequirePrefix(context, uri, typeName));
  }
  WriteAttribute(u"type", kXmlSchemaInstanceNamespace, value, itemType);
}

// Most elements of most documents. They are never open, so no context is made for them. A derived
// class still gets the three calls.
void CJsonTextWriter::WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                                       std::u16string_view text, ItemType itemType,
                                       bool isDefaultValue) {
  CXmlWriterContext* const parent = m_pCurrentContext;
  if (!parent || typeid(*this) != typeid(CJsonTextWriter)) {
    return CXmlWriter::WriteTextElement(localName, uri, text, itemType, isDefaultValue);
  }
  TestDepthIn(parent);
  char16_t const opening = Opening(*parent);
  bool const hasName = parent->m_arrayState != kArrayIsOpen;
  bool const hasPrefix = hasName && m_roundTrip == JsonRoundTrip_Full && !uri.empty() &&
                         !IsSameText(uri, GetEffectiveDefaultNamespace(*parent));
  AppendMemberWithValue({.opening = opening,
                         .margin = LineAndMargin(parent->m_depth + 1),
                         .hasName = hasName,
                         .hasPrefix = hasPrefix,
                         .prefix = hasPrefix ? RequirePrefix(*parent, uri, localName) : u"",
                         .name = localName},
                        text, itemType);
  m_objectPending = false;
  OfferFlush();
}

// What comes before anything that is added inside of @p context.
char16_t CJsonTextWriter::Opening(CXmlWriterContext& context) {
  if (!m_objectPending) return u',';
  CXmlWriterContext const* const parent = context.GetParent();
  if (parent && parent->m_arrayState == kArrayMayBegin) OpenArray(context);
  return u'{';
}

// The first item that has members opens the array; plain values never do.
void CJsonTextWriter::OpenArray(CXmlWriterContext& item) {
  item.GetParent()->m_arrayState = kArrayIsOpen;
  if (m_prettyPrint) {
    for (auto* context = &item; context; context = context->GetParent()) ++context->m_depth;
  }
  AppendPieces(Buffer(), Piece(u'['), Piece(LineAndMargin(item.m_depth)));
}

void CJsonTextWriter::CloseArray(CXmlWriterContext& parent) {
  parent.m_arrayState = kNoArray;
  AppendPieces(Buffer(), Piece(LineAndMargin(parent.m_depth)), Piece(u']'));
  if (!m_prettyPrint) return;
  for (auto* context = &parent; context; context = context->GetParent()) {
    if (context->m_depth > 1) --context->m_depth;
  }
}

void CJsonTextWriter::AppendMemberWithValue(Lead const& lead, std::u16string_view text,
                                            ItemType itemType) {
  bool const isQuoted = !IsWrittenBare(itemType);
  if (isQuoted && !internal::IsPlainJsonText(text)) {
    AppendMember(lead);
    AppendValue(text, itemType);
  } else {
    AppendMember(lead, Piece(u'"', isQuoted), Piece(text), Piece(u'"', isQuoted));
  }
}

// Nothing is escaped.
void CJsonTextWriter::AppendDeclaration(CXmlWriterContext& root, std::u16string_view mark,
                                        std::u16string_view prefix, std::u16string_view uri) {
  char16_t const opening = Opening(root);
  AppendMember(
      {.opening = opening, .margin = LineAndMargin(root.m_depth + 1), .mark = mark, .name = prefix},
      Piece(u'"'), Piece(uri), Piece(u'"'));
  m_objectPending = false;
}

void CJsonTextWriter::AppendRootDeclarations(CXmlWriterContext& root) {
  if (!m_defaultNamespace.empty()) AppendDeclaration(root, u"@xmlns", {}, m_defaultNamespace);
  for (auto const& [uri, prefix] : m_namespaces) {
    if (!IsNeverDeclared(uri)) AppendDeclaration(root, u"@xmlns:", prefix, uri);
  }
}

void CJsonTextWriter::AppendValue(std::u16string_view text, ItemType itemType) {
  if (IsWrittenBare(itemType)) return Buffer().Append(text);
  Buffer().Append(u'"');
  internal::AppendJsonText(Buffer(), text, m_eol);
  Buffer().Append(u'"');
}

std::u16string_view CJsonTextWriter::RequirePrefix(CXmlWriterContext const& context,
                                                   std::u16string_view uri,
                                                   std::u16string_view name) const {
  if (auto const* const prefix = FindPrefix(context, uri)) return *prefix;
  throw CKestException(FormatString(u"Unknown Namespace: %s.", name));
}

}  // namespace KestXmlLib20

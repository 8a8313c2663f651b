#include "kestxml/json/json_text_writer.h"

#include <algorithm>

#include "kestxml/document/string_buffer.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/json/internal/json_escape.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using namespace std::string_view_literals;

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

inline CStringBuffer& CJsonTextWriter::Buffer() const {
  return m_pStream->GetBuffer();
}

// The depth counts from 1, and every open array adds one.
inline void CJsonTextWriter::Indent(std::int32_t depth) {
  if (!m_prettyPrint) return;
  std::size_t const length = static_cast<std::size_t>(std::max(depth, 0)) * m_indent.size();
  while (m_margin.size() < length) m_margin += m_indent;
  Buffer().Append(std::u16string_view(m_margin.data(), length));
}

void CJsonTextWriter::WriteLineEnd() {
  if (m_prettyPrint) Buffer().Append(m_eol);
}

inline void CJsonTextWriter::OfferFlush() {
  if (Buffer().GetLength() >= CTextStream::kFlushLength) m_pStream->Flush();
}

CJsonTextWriter::CJsonTextWriter(CTextStream& stream) : m_pStream(&stream) {}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::SetIndent(std::u16string_view value) {
  m_indent = value;
  m_margin.clear();
}

void CJsonTextWriter::SetEOLType(EOLType value) {
  m_eol = LineEndOf(value);
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
  if (parent) OpenOrSeparate(*parent);
  CXmlWriterContext& context = *CreateContext(localName, uri);
  if (!parent) context.m_depth = 1;
  Indent(context.m_depth);
  m_objectPending = true;
  if (hasName) AppendElementName(context);
  if (!parent && m_roundTrip == JsonRoundTrip_Full) AppendRootDeclarations(context);
  m_pCurrentContext = &context;
  OfferFlush();
}

// The object stays pending: a child behind the text opens it there.
void CJsonTextWriter::WriteText(std::u16string_view text, ItemType itemType,
                                bool /*isDefaultValue*/) {
  CXmlWriterContext const& context = RequireOpenElement();
  if (!m_objectPending) {
    Buffer().Append(u',');
    WriteLineEnd();
    if (m_prettyPrint) Indent(context.m_depth + 1);
    AppendName({m_roundTrip == JsonRoundTrip_None ? u"" : u"#text"});
  }
  AppendValue(text, itemType);
}

void CJsonTextWriter::EndElement() {
  CXmlWriterContext& context = RequireOpenElement();
  if (context.m_arrayState == kArrayEnds) CloseArray(context);
  if (!m_objectPending) {
    WriteLineEnd();
    Indent(context.m_depth);
    Buffer().Append(u'}');
  }
  EndContext();
  m_objectPending = false;
}

void CJsonTextWriter::WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                                     std::u16string_view value, ItemType itemType) {
  CXmlWriterContext& context = RequireOpenElement();
  OpenOrSeparate(context);
  Indent(context.m_depth + 1);
  if (!uri.empty() && m_roundTrip == JsonRoundTrip_Full) {
    AppendName({u"@", RequirePrefix(context, uri, localName), u":", localName});
  } else {
    AppendName({m_roundTrip == JsonRoundTrip_None ? u"" : u"@", localName});
  }
  AppendValue(value, itemType);
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

// To be called before anything is added inside of @p context.
void CJsonTextWriter::OpenOrSeparate(CXmlWriterContext& context) {
  if (m_objectPending) {
    CXmlWriterContext* const parent = context.GetParent();
    if (parent && parent->m_arrayState == kArrayMayBegin) OpenArray(context);
    Buffer().Append(u'{');
  } else {
    Buffer().Append(u',');
  }
  WriteLineEnd();
}

// The first item that has members opens the array; plain values never do.
void CJsonTextWriter::OpenArray(CXmlWriterContext& item) {
  item.GetParent()->m_arrayState = kArrayIsOpen;
  Buffer().Append(u'[');
  if (!m_prettyPrint) return;
  for (auto* context = &item; context; context = context->GetParent()) ++context->m_depth;
  WriteLineEnd();
  Indent(item.m_depth);
}

void CJsonTextWriter::CloseArray(CXmlWriterContext& parent) {
  parent.m_arrayState = kNoArray;
  if (m_prettyPrint) {
    WriteLineEnd();
    Indent(parent.m_depth);
    for (auto* context = &parent; context; context = context->GetParent()) {
      if (context->m_depth > 1) --context->m_depth;
    }
  }
  Buffer().Append(u']');
}

void CJsonTextWriter::AppendName(std::initializer_list<std::u16string_view> pieces) {
  Buffer().Append(u'"');
  for (auto const piece : pieces) Buffer().Append(piece);
  Buffer().Append(u"\": "sv);
}

void CJsonTextWriter::AppendElementName(CXmlWriterContext& context) {
  std::u16string_view const name = context.GetLocalName();
  std::u16string_view const uri = context.GetNamespaceURI();
  if (m_roundTrip != JsonRoundTrip_Full || !NeedsPrefix(context)) {
    AppendName({name});
  } else if (context.GetParent()) {
    AppendName({RequirePrefix(context, uri, name), u":", name});
  } else {
    Prefix const prefix = FindOrAddPrefix(context, uri);
    AppendName({prefix.text, u":", name});
    if (prefix.isNew) AppendDeclaration(context, {u"@xmlns:", prefix.text}, uri);
  }
}

// Nothing is escaped.
void CJsonTextWriter::AppendDeclaration(CXmlWriterContext& root,
                                        std::initializer_list<std::u16string_view> name,
                                        std::u16string_view uri) {
  OpenOrSeparate(root);
  Indent(root.m_depth + 1);
  AppendName(name);
  Buffer().Append(u'"');
  Buffer().Append(uri);
  Buffer().Append(u'"');
  m_objectPending = false;
}

void CJsonTextWriter::AppendRootDeclarations(CXmlWriterContext& root) {
  if (!m_defaultNamespace.empty()) AppendDeclaration(root, {u"@xmlns"}, m_defaultNamespace);
  for (auto const& [uri, prefix] : m_namespaces) {
    if (!IsNeverDeclared(uri)) AppendDeclaration(root, {u"@xmlns:", prefix}, uri);
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

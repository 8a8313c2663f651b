#include "kestxml/document/xml_writer.h"

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/internal/namespace_scopes.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/same_text.h"

namespace KestXmlLib20 {
namespace {

// A copy of @p text that lies in @p storage, which grows and never shrinks.
std::u16string_view Store(std::u16string_view text, std::u16string& storage) {
  if (text.size() > storage.size()) storage.resize(text.size());
  std::char_traits<char16_t>::move(storage.data(), text.data(), text.size());
  return {storage.data(), text.size()};
}

}  // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext() = default;
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

void CXmlWriter::CXmlWriterContext::Begin(CXmlWriterContext* parent, std::u16string_view localName,
                                          std::u16string_view uri,
                                          std::u16string_view firstDefault) {
  m_childCount = 0;
  m_startTagOpen = true;
  m_depth = parent ? parent->m_depth + 1 : 0;
  m_writerState = false;
  m_arrayState = 0;
  m_localName = Store(localName, m_nameStorage);
  m_pParent = parent;
  m_namespaceURI = IsSameText(uri, firstDefault) ? firstDefault : Store(uri, m_uriStorage);
}

CXmlWriter::CXmlWriter()
    : m_scopes(std::make_unique<internal::NamespaceScopes>()),
      m_maxDepth(CSerializationLimits().GetMaxDepth()) {
  m_namespaces.emplace(kXmlNamespace, u"xml");
}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::OpenWriter() {}

void CXmlWriter::CloseWriter() {
  if (m_pCurrentContext) throw CKestException(u"An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(std::u16string_view uri) {
  if (m_pCurrentContext) {
    m_scopes->SetDefault(m_pCurrentContext->m_level, uri);
  } else {
    m_defaultNamespace = uri;
  }
}

void CXmlWriter::AddNamespace(std::u16string_view alias, std::u16string_view uri) {
  if (m_pCurrentContext) {
    AddContextNamespace(*m_pCurrentContext, uri, alias);
  } else {
    m_namespaces.insert_or_assign(std::u16string(uri), alias);
  }
}

CXmlWriter::CXmlWriterContext* CXmlWriter::CreateContext(std::u16string_view localName,
                                                         std::u16string_view uri) {
  TestDepthIn(m_pCurrentContext);
  std::uint32_t const level = m_pCurrentContext ? m_pCurrentContext->m_level + 1 : 0;
  if (level == m_contexts.size()) {
    m_contexts.push_back(std::make_unique<CXmlWriterContext>());
    m_contexts.back()->m_level = level;
  }
  if (level == 0) {
    m_scopes->Begin(m_defaultNamespace, m_namespaces);
  } else {
    m_scopes->End(level);  // what came with a context that never became current
  }
  m_contexts[level]->Begin(m_pCurrentContext, localName, uri, m_scopes->GetFirstDefault());
  return m_contexts[level].get();
}

void CXmlWriter::TestDepthIn(CXmlWriterContext const* parent) const {
  std::uint64_t const depth = parent ? std::uint64_t{parent->m_level} + 2 : 1;
  if (ExceedsLimit(depth, m_maxDepth)) CSerializationLimits::ThrowTooDeep(m_maxDepth, {});
}

void CXmlWriter::WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                                  std::u16string_view text, ItemType itemType,
                                  bool isDefaultValue) {
  StartElement(localName, uri);
  WriteText(text, itemType, isDefaultValue);
  EndElement();
}

void CXmlWriter::EndContext() {
  CXmlWriterContext& ended = RequireOpenElement();
  m_pCurrentContext = ended.m_pParent;
  ended.m_pParent = nullptr;
  m_scopes->End(ended.m_level);
}

CXmlWriter::NamespaceMap CXmlWriter::GetEffectiveNamespaces(
    CXmlWriterContext const& context) const {
  return m_scopes->GetNamespaces(context.m_level);
}

std::u16string const& CXmlWriter::GetEffectiveDefaultNamespace(
    CXmlWriterContext const& context) const {
  return m_scopes->GetDefault(context.m_level);
}

void CXmlWriter::AddContextNamespace(CXmlWriterContext const& context, std::u16string_view uri,
                                     std::u16string_view alias) {
  m_scopes->SetPrefix(context.m_level, uri, alias);
}

std::u16string CXmlWriter::GenerateAlias() const {
  return m_scopes->FirstFreeAlias();
}

std::u16string const* CXmlWriter::FindPrefix(CXmlWriterContext const& context,
                                             std::u16string_view uri) const {
  return m_scopes->FindPrefix(context.m_level, uri);
}

CXmlWriter::Prefix CXmlWriter::FindOrAddPrefix(CXmlWriterContext const& context,
                                               std::u16string_view uri) {
  if (auto const* const prefix = FindPrefix(context, uri)) return {*prefix, false};
  AddContextNamespace(context, uri, GenerateAlias());
  return {*FindPrefix(context, uri), true};
}

bool CXmlWriter::NeedsPrefix(CXmlWriterContext const& context) const {
  std::u16string_view const uri = context.m_namespaceURI;
  std::u16string_view const inForce = GetEffectiveDefaultNamespace(context);
  if (uri.empty() || uri.data() == inForce.data()) return false;
  return !IsSameText(uri, inForce);
}

bool CXmlWriter::IsNeverDeclared(std::u16string_view uri) {
  return uri.starts_with(kXmlNamespace);
}

std::u16string_view CXmlWriter::LineEndOf(EOLType type) {
  switch (type) {
    case EOLType_CRLF:
      return u"\r\n";
    case EOLType_LF:
      return u"\n";
  }
  throw CKestException(u"Invalid EOL type.");
}

CXmlWriter::CXmlWriterContext& CXmlWriter::RequireOpenElement() const {
  if (!m_pCurrentContext) throw CKestException(u"An Element has not been opened.");
  return *m_pCurrentContext;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::RequireOpenStartTag() const {
  if (!m_pCurrentContext || !m_pCurrentContext->m_startTagOpen) {
    throw CKestException(u"Attributes must be added before elements");
  }
  return *m_pCurrentContext;
}

}  // namespace KestXmlLib20

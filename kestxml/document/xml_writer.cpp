#include "kestxml/document/xml_writer.h"

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/internal/namespace_scope.h"
#include "kestxml/document/internal/same_text.h"
#include "kestxml/document/xml_namespaces.h"
#include "kestxml/document/xml_writer_context.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

constexpr std::size_t kLetters = 26;

// The first unit runs on beyond Z: there is no last alias.
std::u16string AliasOfNumber(std::size_t number) {
  return {static_cast<char16_t>(u'A' + number / kLetters),
          static_cast<char16_t>(u'A' + number % kLetters)};
}

constexpr std::size_t kNoAlias = static_cast<std::size_t>(-1);

// The number whose alias @p prefix is.
std::size_t NumberOfAlias(std::u16string_view prefix) {
  if (prefix.size() != 2 || prefix[0] < u'A' || prefix[1] < u'A' || prefix[1] > u'Z') {
    return kNoAlias;
  }
  return static_cast<std::size_t>(prefix[0] - u'A') * kLetters +
         static_cast<std::size_t>(prefix[1] - u'A');
}

// A copy of @p text that lies in @p storage, which grows and never shrinks.
inline std::u16string_view Store(std::u16string_view text, std::u16string& storage) {
  if (text.size() > storage.size()) storage.resize(text.size());
  std::char_traits<char16_t>::move(storage.data(), text.data(), text.size());
  return {storage.data(), text.size()};
}

}  // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext() = default;
CXmlWriter::CXmlWriterContext::~CXmlWriterContext() = default;

inline void CXmlWriter::CXmlWriterContext::Begin(CXmlWriterContext* parent,
                                                 std::u16string_view localName,
                                                 std::u16string_view uri) {
  m_childCount = 0;
  m_startTagOpen = true;
  m_depth = parent ? parent->m_depth + 1 : 0;
  m_writerState = false;
  m_arrayState = 0;
  m_localName = Store(localName, m_nameStorage);
  m_pParent = parent;
  if (parent) {
    m_pOwnScope.reset();
    m_pScope = parent->m_pScope;
  }
  std::u16string_view const inForce = m_pScope->GetDefaultNamespace();
  m_namespaceURI = internal::IsSameText(uri, inForce) ? inForce : Store(uri, m_uriStorage);
}

// To be called before the default namespace changes that m_namespaceURI may be a view of.
inline void CXmlWriter::CXmlWriterContext::KeepURI() {
  m_namespaceURI = Store(m_namespaceURI, m_uriStorage);
}

CXmlWriter::CXmlWriter() : m_maxDepth(CSerializationLimits().GetMaxDepth()) {
  m_namespaces.emplace(kXmlNamespace, u"xml");
}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::OpenWriter() {}

void CXmlWriter::CloseWriter() {
  if (m_pCurrentContext) throw CKestException(u"An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(std::u16string_view uri) {
  if (!m_pCurrentContext) {
    m_defaultNamespace = uri;
    return;
  }
  CXmlWriterContext& current = *m_pCurrentContext;
  GiveOwnScope(current, false);
  for (auto* context = &current; context; context = NextContext(*context)) context->KeepURI();
  current.m_pScope->SetDefaultNamespace(uri);
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
  std::uint32_t const level = m_pCurrentContext ? m_pCurrentContext->m_level + 1 : 0;
  if (ExceedsLimit(std::uint64_t{level} + 1, m_maxDepth))
    CSerializationLimits::ThrowTooDeep(m_maxDepth, {});
  if (level == m_contexts.size()) {
    m_contexts.push_back(std::make_unique<CXmlWriterContext>());
    m_contexts.back()->m_level = level;
  }
  CXmlWriterContext& context = *m_contexts[level];
  if (!m_pCurrentContext) {
    context.m_pOwnScope =
        std::make_unique<internal::NamespaceScope>(m_defaultNamespace, m_namespaces);
    context.m_pScope = context.m_pOwnScope.get();
  }
  context.Begin(m_pCurrentContext, localName, uri);
  return &context;
}

void CXmlWriter::EndContext() {
  CXmlWriterContext& ended = RequireOpenElement();
  m_pCurrentContext = ended.m_pParent;
  ended.m_pParent = nullptr;
  ended.m_pOwnScope.reset();
}

CXmlWriter::NamespaceMap const& CXmlWriter::GetEffectiveNamespaces(
    CXmlWriterContext const& context) {
  return context.m_pScope->GetNamespaces();
}

std::u16string const& CXmlWriter::GetEffectiveDefaultNamespace(CXmlWriterContext const& context) {
  return context.m_pScope->GetDefaultNamespace();
}

void CXmlWriter::AddContextNamespace(CXmlWriterContext& context, std::u16string_view uri,
                                     std::u16string_view alias) {
  GiveOwnScope(context, true);
  context.m_pScope->SetPrefix(uri, alias);
}

std::u16string CXmlWriter::GenerateAlias(NamespaceMap const& namespaces) {
  // One of the first size + 1 aliases is free, so later ones need no note.
  std::vector<bool> isUsed(namespaces.size() + 1);
  for (auto const& [uri, prefix] : namespaces) {
    std::size_t const number = NumberOfAlias(prefix);
    if (number < isUsed.size()) isUsed[number] = true;
  }
  std::size_t number = 0;
  while (isUsed[number]) ++number;
  return AliasOfNumber(number);
}

std::u16string const* CXmlWriter::FindPrefix(CXmlWriterContext const& context,
                                             std::u16string_view uri) {
  return context.m_pScope->FindPrefix(uri);
}

CXmlWriter::Prefix CXmlWriter::FindOrAddPrefix(CXmlWriterContext& context,
                                               std::u16string_view uri) {
  if (auto const* const prefix = FindPrefix(context, uri)) return {*prefix, false};
  AddContextNamespace(context, uri, GenerateAlias(GetEffectiveNamespaces(context)));
  return {*FindPrefix(context, uri), true};
}

bool CXmlWriter::NeedsPrefix(CXmlWriterContext const& context) {
  std::u16string_view const uri = context.m_namespaceURI;
  std::u16string_view const inForce = context.m_pScope->GetDefaultNamespace();
  if (uri.empty() || uri.data() == inForce.data()) return false;
  return !internal::IsSameText(uri, inForce);
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

// Elements share a scope until one of them changes it.
void CXmlWriter::GiveOwnScope(CXmlWriterContext& context, bool keepDefault) {
  if (context.m_pOwnScope) return;
  internal::NamespaceScope const& shared = *context.m_pScope;
  context.m_pOwnScope = std::make_unique<internal::NamespaceScope>(
      keepDefault ? shared.GetDefaultNamespace() : std::u16string(), shared.GetNamespaces());
  for (auto* heir = &context; heir; heir = NextContext(*heir)) {
    if (heir != &context && heir->m_pOwnScope) break;
    heir->m_pScope = context.m_pOwnScope.get();
  }
}

// The context that was made in @p context and has not ended, if any. In @p context being current,
// that is one which a writer has made and not yet made current.
CXmlWriter::CXmlWriterContext* CXmlWriter::NextContext(CXmlWriterContext const& context) const {
  std::size_t const level = std::size_t{context.m_level} + 1;
  if (level >= m_contexts.size()) return nullptr;
  CXmlWriterContext* const next = m_contexts[level].get();
  return next->m_pParent == &context ? next : nullptr;
}

}  // namespace KestXmlLib20

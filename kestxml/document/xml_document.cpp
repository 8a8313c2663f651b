#include "kestxml/document/xml_document.h"

#include <cstring>
#include <string>
#include <utility>

#include "kestxml/document/internal/expat_reader.h"
#include "kestxml/document/internal/thread_spare.h"
#include "kestxml/document/internal/xml_tree.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/length_limit.h"

namespace KestXmlLib20 {
namespace {

using internal::CExpatReader;
using internal::CXmlTree;

// One tree without content waits in each thread for its next document, with its memory.
using SpareTree = internal::ThreadSpare<std::unique_ptr<CXmlTree>>;

// Lengths have 32 bits: what needs more is refused, not cut.
std::uint32_t LengthOf(std::size_t bytes) {
  if (bytes <= UINT32_MAX) return static_cast<std::uint32_t>(bytes);
  ThrowTooManyBytes();
}

std::unique_ptr<CXmlTree> TakeTree() {
  auto tree = SpareTree::Take();
  return tree ? std::move(tree) : std::make_unique<CXmlTree>();
}

}  // namespace

CXmlDocument::CXmlDocument() : CXmlDocument(nullptr, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(CSerializationContext const& context) : CXmlDocument(nullptr, context) {}

CXmlDocument::CXmlDocument(ElementCallback callback)
    : CXmlDocument(callback, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(ElementCallback callback, CSerializationContext const& context)
    : m_context(&context),
      m_callback(callback),
      m_schemaType(context.GetSchemaType()),
      m_tree(TakeTree()) {
  m_tree->Begin(*this, m_callback, m_context->GetLimits());
}

CXmlDocument::~CXmlDocument() {
  if (m_tree->Trim()) SpareTree::Keep(std::move(m_tree));
}

void CXmlDocument::Cleanup() {
  m_tree->Begin(*this, m_callback, m_context->GetLimits());
}

CXmlElement* CXmlDocument::GetDocumentElement() {
  return m_tree->GetRoot();
}
CXmlElement const* CXmlDocument::GetDocumentElement() const {
  return m_tree->GetRoot();
}

void CXmlDocument::LoadXml(char const* text) {
  Cleanup();
  std::size_t const length = text ? std::strlen(text) : 0;
  if (length == 0) throw CKestException(u"XML String is empty!");
  ParseText(reinterpret_cast<unsigned char const*>(text), LengthOf(length));
}

// The parser takes the mark in front as the word for UTF-16.
void CXmlDocument::LoadXml(char16_t const* text) {
  Cleanup();
  std::u16string const marked = std::u16string(u"\uFEFF").append(text ? text : u"");
  ParseText(reinterpret_cast<unsigned char const*>(marked.data()),
            LengthOf(marked.size() * sizeof(char16_t)));
}

void CXmlDocument::ParseText(unsigned char const* data, std::uint32_t length) {
  CExpatReader reader(*m_tree, ReaderOptions());
  reader.ParseBuffer(data, length, true);
  RequireDocumentElement();
}

internal::ExpatReaderOptions CXmlDocument::ReaderOptions() const {
  return {m_schemaType != SchemaType::DocumentTypeDefinition, m_context->GetStripCDATA()};
}

void CXmlDocument::RequireDocumentElement() const {
  if (!GetDocumentElement()) throw CKestException(u"Invalid or empty XML document");
}

std::u16string CXmlDocument::LookupNamespaceFromAlias(char16_t const* alias) const {
  return LookupNamespaceFromAlias(alias ? std::u16string_view(alias) : std::u16string_view());
}

std::u16string CXmlDocument::LookupAliasFromNamespace(char16_t const* uri) const {
  return LookupAliasFromNamespace(uri ? std::u16string_view(uri) : std::u16string_view());
}

std::u16string CXmlDocument::LookupNamespaceFromAlias(std::u16string_view alias) const {
  auto const& aliases = m_tree->GetAliases();
  auto const found = aliases.find(alias);
  return found == aliases.end() ? std::u16string() : found->second;
}

std::u16string CXmlDocument::LookupAliasFromNamespace(std::u16string_view uri) const {
  for (auto const& [prefix, boundUri] : m_tree->GetAliases()) {
    if (boundUri == uri) return prefix;
  }
  return {};
}

}  // namespace KestXmlLib20

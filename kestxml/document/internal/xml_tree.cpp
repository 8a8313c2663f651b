#include "kestxml/document/internal/xml_tree.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "kestxml/document/internal/copy_text.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/values/preserve_character_ref_cr.h"

namespace KestXmlLib20::internal {
namespace {

// Levels that a tree keeps for the next document, each with a text of at most kTextWorthKeeping
// bytes: larger texts are seldom, and their memory is given back as soon as their element ends.
constexpr std::size_t kLevelsWorthKeeping = 64;
constexpr std::size_t kTextWorthKeeping = CXmlTree::kKeptBytes / 4 / kLevelsWorthKeeping;

constexpr std::size_t RoundUp(std::size_t bytes) {
  return (bytes + Arena::kAlignment - 1) & ~(Arena::kAlignment - 1);
}

constexpr std::size_t TextBytes(std::size_t units) {
  return (units + 1) * sizeof(char16_t);
}

void CopyText(void* to, void const* text, std::size_t units) {
  std::memcpy(to, text, units * sizeof(char16_t));
  static_cast<char16_t*>(to)[units] = u'\0';
}

}  // namespace

void CXmlTree::Begin(CXmlDocument const& document, ElementCallback callback,
                     CSerializationLimits const& limits) {
  m_document = &document;
  m_callback = callback;
  m_limits = limits;
  m_root = nullptr;
  m_elementCount = 0;
  m_declarationCount = 0;
  m_depth = 0;
  m_indentations = {};
  m_nodes.Reset();
  m_aliases.clear();
  SettleNames();
}

bool CXmlTree::Trim() {
  m_root = nullptr;
  m_depth = 0;
  m_aliases.clear();
  m_nodes.ResetAndTrim(kKeptBytes / 2);
  return m_open.size() <= kLevelsWorthKeeping && m_names.IsWorthKeeping();
}

std::u16string CXmlTree::PathOfLatest() const {
  return m_depth == 0 ? std::u16string() : m_open[m_depth - 1].element->GetXPath();
}

void CXmlTree::AddAlias(std::u16string prefix, std::u16string uri) {
  if (ExceedsLimit(++m_declarationCount, m_limits.GetMaxNamespaceDeclarations())) {
    CSerializationLimits::ThrowTooManyNamespaceDeclarations(m_limits.GetMaxNamespaceDeclarations(),
                                                            PathOfLatest());
  }
  if (ExceedsLimit(uri.size(), m_limits.GetMaxNamespaceLength())) {
    CSerializationLimits::ThrowNamespaceTooLong(m_limits.GetMaxNamespaceLength(), PathOfLatest());
  }
  m_aliases.insert_or_assign(std::move(prefix), std::move(uri));
}

void CXmlTree::TestLimits(std::size_t attributes) {
  m_declarationCount = 0;
  if (ExceedsLimit(m_depth + 1, m_limits.GetMaxDepth())) {
    CSerializationLimits::ThrowTooDeep(m_limits.GetMaxDepth(), PathOfLatest());
  }
  if (ExceedsLimit(attributes, m_limits.GetMaxAttributes())) {
    CSerializationLimits::ThrowTooManyAttributes(m_limits.GetMaxAttributes(), PathOfLatest());
  }
  if (ExceedsLimit(++m_elementCount, m_limits.GetMaxElements())) {
    CSerializationLimits::ThrowTooManyElements(m_limits.GetMaxElements(), PathOfLatest());
  }
}

CXmlElement* CXmlTree::AddElement(XmlName const* name, std::span<NewAttribute const> attributes) {
  TestLimits(attributes.size());
  Arena::Mark const nodesBefore = m_nodes.GetMark();
  CXmlElement* const parent = m_depth == 0 ? nullptr : Latest().element;
  CXmlElement* const element = MakeElement(parent, name, attributes);
  Open(element, nodesBefore);
  SettleNames();
  return element;
}

// Only an element that may be thrown away needs to know which names came with it.
void CXmlTree::SettleNames() {
  if (m_callback) m_settledNames = m_names.GetMark();
}

// One piece: the element, the pointers to its attributes, and each attribute with its value.
CXmlElement* CXmlTree::MakeElement(CXmlElement const* parent, XmlName const* name,
                                   std::span<NewAttribute const> attributes) {
  std::size_t bytes = sizeof(CXmlElement) + attributes.size() * sizeof(CXmlAttribute*);
  for (auto const& attribute : attributes) {
    bytes += RoundUp(sizeof(CXmlAttribute) + TextBytes(attribute.units));
  }
  auto* at = static_cast<char*>(m_nodes.Allocate(bytes));
  auto* const element =
      new (at) CXmlElement(parent, name, static_cast<std::uint32_t>(attributes.size()));
  auto* pointer = reinterpret_cast<CXmlAttribute**>(at + sizeof(CXmlElement));
  at = reinterpret_cast<char*>(pointer + attributes.size());
  for (auto const& attribute : attributes) {
    *pointer++ = new (at) CXmlAttribute(element, attribute.name, attribute.units);
    CopyText(at + sizeof(CXmlAttribute), attribute.value, attribute.units);
    at += RoundUp(sizeof(CXmlAttribute) + TextBytes(attribute.units));
  }
  return element;
}

void CXmlTree::Open(CXmlElement* element, Arena::Mark const& nodesBefore) {
  if (m_depth == m_open.size()) m_open.emplace_back();
  OpenElement& open = m_open[m_depth];
  open.element = element;
  open.previousSibling = nullptr;
  open.lastChild = nullptr;
  open.text.Clear();
  if (m_callback) {
    open.nodesBefore = nodesBefore;
    open.namesBefore = m_settledNames;
  }
  if (m_depth == 0) {
    m_root = element;
  } else {
    OpenElement& parent = m_open[m_depth - 1];
    open.previousSibling = parent.lastChild;
    (parent.lastChild ? parent.lastChild->m_nextSibling : parent.element->m_firstChild) = element;
    parent.lastChild = element;
  }
  ++m_depth;
  m_latest = &open;
}

void CXmlTree::AppendTextExcludingCR(void const* text, std::uint32_t units) {
  OpenElement& open = Latest();
  char16_t* const added = open.text.RoomFor(units);
  if (CopyAndFindDropped(added, text, units) && !GetPreserveCharacterRefCR()) {
    char16_t* const end = std::find(added, added + units, u'\0');
    units = static_cast<std::uint32_t>(std::remove(added, end, u'\r') - added);
  }
  open.text.Added(units);
  open.element->m_text = open.text.GetData();
  open.element->m_textLength = open.text.GetLength();
}

void CXmlTree::StoreText(OpenElement& open) {
  std::uint32_t const units = open.text.GetLength();
  if (units == 0) {
    open.element->m_text = u"";  // it may have had text of which nothing was left
    return;
  }
  std::u16string_view const text(open.text.GetData(), units);
  // Memory that an element gives back must not hold what others refer to.
  bool const mayBeShared = open.lastChild && !m_callback;
  auto& latest = m_indentations[units % m_indentations.size()];
  if (mayBeShared && latest == text) {
    open.element->m_text = latest.data();
    return;
  }
  auto* const stored = static_cast<char16_t*>(m_nodes.Allocate(TextBytes(units)));
  std::memcpy(stored, text.data(), TextBytes(units));
  open.element->m_text = stored;
  if (mayBeShared) latest = {stored, units};
}

bool CXmlTree::EndElement() {
  OpenElement& open = Latest();
  StoreText(open);
  open.text.ClearAndTrim(kTextWorthKeeping);
  --m_depth;
  m_latest = m_depth == 0 ? nullptr : &open - 1;
  if (!m_callback || !m_callback(open.element)) return false;
  if (m_depth == 0) return false;  // nothing is left to take the root away from
  Unlink(open);
  m_nodes.ReleaseTo(open.nodesBefore);
  m_names.ReleaseTo(open.namesBefore);
  SettleNames();
  return true;
}

void CXmlTree::Unlink(OpenElement const& open) {
  OpenElement& parent = Latest();
  CXmlElement*& link =
      open.previousSibling ? open.previousSibling->m_nextSibling : parent.element->m_firstChild;
  link = nullptr;
  parent.lastChild = open.previousSibling;
}

}  // namespace KestXmlLib20::internal

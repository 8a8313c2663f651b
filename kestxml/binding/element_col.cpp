#include "kestxml/binding/element_col.h"

#include <memory>

#include "kestxml/binding/element.h"
#include "kestxml/binding/internal/name_match.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using internal::ViewOf;

constexpr char16_t kAnyNamespace[] = u"##any";

std::u16string NamespaceOfCollection(std::u16string_view ns, std::u16string_view restriction) {
  return std::u16string(ns.empty() && restriction.starts_with(u"##") ? restriction : ns);
}

// What collections held that ended on this thread and has not ended itself. An element that ends
// ends its children: they join this list, whose first user empties it, so that the stack does not
// grow with the depth of the tree.
struct Remains {
  CNode* first;
  bool isBeingCleared;
};
constinit thread_local Remains t_remains{nullptr, false};

void EndNodes(CNode* first, CNode* last) {
  if (!first) return;
  last->m_pNext = t_remains.first;
  t_remains.first = first;
  if (t_remains.isBeingCleared) return;
  t_remains.isBeingCleared = true;
  while (t_remains.first) {
    std::unique_ptr<CNode> const node(t_remains.first);
    t_remains.first = node->m_pNext;
  }
  t_remains.isBeingCleared = false;
}

}  // namespace

CElementCol::CElementCol(char16_t const* ns, char16_t const* restriction,
                         char16_t const* targetNamespace, std::int32_t minOccurs,
                         std::int32_t maxOccurs)
    : CXmlCollection(u"", NamespaceOfCollection(ViewOf(ns), ViewOf(restriction)).c_str(), minOccurs,
                     maxOccurs),
      m_targetNamespace(ViewOf(targetNamespace)) {
  TestNamespace(ns, restriction, targetNamespace);
}

CElementCol::~CElementCol() {
  if (HasEventListeners()) return;  // the base removes the elements one by one and tells of each
  auto const [first, last] = ReleaseNodes();
  EndNodes(first, last);
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name) {
  std::u16string_view const ns = CXmlCollection::GetNamespace();
  if (ns.empty()) {
    throw CKestInvalidStateException(u"A Namespace has not been set for this Collection");
  }
  return Add(name, ns.data());
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name, char16_t const* ns) {
  return Add(CSmartPtr(new CElement(name, ns, kAnyNamespace, m_targetNamespace.c_str())).Get());
}

CSmartPtr<CElement> CElementCol::Add(CElement* element) {
  AppendItem(element);
  return element;
}

void CElementCol::AddAfter(CElement const* after, CElement* element) {
  AddAfterItem(after, element);
}

void CElementCol::AddBefore(CElement const* before, CElement* element) {
  AddBeforeItem(before, element);
}

CSmartPtr<CElement> CElementCol::Item(std::int32_t index) const {
  return static_cast<CElement*>(GetNodeAtIndex(index)->m_pItem.Get());
}

CSmartPtr<CElementCol> CElementCol::Clone() const {
  CSmartPtr<CElementCol> clone = CloneWithoutElements();
  for (CElement const& element : *this) clone->Add(element.Clone().Get());
  return clone;
}

CSmartPtr<CElementCol> CElementCol::CloneWithoutElements() const {
  std::u16string_view const ns = CXmlCollection::GetNamespace();
  char16_t const* const restriction = ns.empty() ? u"" : kAnyNamespace;  // either keeps ns as it is
  return new CElementCol(ns.data(), restriction, m_targetNamespace.c_str(), GetMinOccurs(),
                         GetMaxOccurs());
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                            char16_t const* namespaceUri, CSerializationContext const& context,
                            bool isOptionalChoice) const {
  ValidateCount(context);
  for (CElement const& element : *this) {
    CXmlObjectBase::ToXml_Int(&element, writer, false, namespaceUri, context, isOptionalChoice);
  }
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* parent, CXmlElement* child,
                                      CSerializationContext const& context,
                                      bool /*isOptionalChoice*/) {
  return ReadWhile([](CXmlElement const&) { return true; }, parent, child, context);
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(std::u16string_view name,
                                                     std::u16string_view ns, CXmlElement* parent,
                                                     CXmlElement* child,
                                                     CSerializationContext const& context,
                                                     bool /*isOptionalChoice*/) {
  return ReadWhile([&](CXmlElement const& sibling) { return internal::HasName(sibling, name, ns); },
                   parent, child, context);
}

template <typename IsTaken>
CXmlElement* CElementCol::ReadWhile(IsTaken isTaken, CXmlElement* parent, CXmlElement* child,
                                    CSerializationContext const& context) {
  while (child && isTaken(*child)) {
    CSmartPtr<CElement> const element(new CElement(child->GetLocalName().data(),
                                                   child->GetNamespaceURI().data(), kAnyNamespace,
                                                   m_targetNamespace.c_str()));
    CXmlElement* const next =
        CXmlObjectBase::FromXml_Int(element.Get(), parent, child, context, false);
    if (next == child) break;
    AppendItem(element.Get());
    child = next;
  }
  return child;
}

}  // namespace KestXmlLib20

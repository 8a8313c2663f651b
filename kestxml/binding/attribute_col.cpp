#include "kestxml/binding/attribute_col.h"

#include "kestxml/binding/attribute.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using internal::ViewOf;

bool NamesANamespace(std::u16string_view token) {
  return token.size() >= 2 && token[0] != u'#' && token[1] != u'#';
}

std::u16string NamespaceOfCollection(std::u16string_view ns, std::u16string_view restriction) {
  std::u16string_view const token = restriction.substr(0, restriction.find(u' '));
  return std::u16string(ns.empty() && NamesANamespace(token) ? token : ns);
}

}  // namespace

CAttributeCol::CAttributeCol(char16_t const* ns, char16_t const* restriction,
                             char16_t const* targetNamespace)
    : CXmlCollection(u"", NamespaceOfCollection(ViewOf(ns), ViewOf(restriction)).c_str(), 0, -1),
      m_namespaceRestriction(ViewOf(restriction)),
      m_targetNamespace(ViewOf(targetNamespace)) {}

CAttributeCol::~CAttributeCol() = default;

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute) {
  AppendItem(attribute);
  return attribute;
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name) {
  return Add(name, u"");
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value) {
  return Add(name, value, GetNamespace().data());
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value,
                                         char16_t const* ns) {
  TestNamespace(ns, m_namespaceRestriction.c_str(), m_targetNamespace.c_str());
  return AppendNew(name, value, ns);
}

CSmartPtr<CAttribute> CAttributeCol::AppendNew(char16_t const* name, char16_t const* value,
                                               char16_t const* ns) {
  CSmartPtr<CAttribute> attribute(new CAttribute(name, value, ns));
  AppendItem(attribute.Get());
  return attribute;
}

void CAttributeCol::AddAfter(CAttribute const* after, CAttribute* attribute) {
  AddAfterItem(after, attribute);
}

void CAttributeCol::AddBefore(CAttribute const* before, CAttribute* attribute) {
  AddBeforeItem(before, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(std::int32_t index) const {
  return static_cast<CAttribute*>(GetNodeAtIndex(index)->m_pItem.Get());
}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const {
  CSmartPtr<CAttributeCol> clone(new CAttributeCol(
      GetNamespace().data(), m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
  for (CAttribute const& attribute : *this) clone->Add(attribute.Clone().Get());
  return clone;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                              char16_t const* namespaceUri, CSerializationContext const& context,
                              bool isOptionalChoice) const {
  for (CAttribute const& attribute : *this) {
    CXmlObjectBase::ToXml_Int(&attribute, writer, false, namespaceUri, context, isOptionalChoice);
  }
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                        CSerializationContext const& /*context*/,
                                        bool /*isOptionalChoice*/) {
  for (CXmlAttribute const* attribute : element->GetAttributes()) {
    char16_t const* const ns = attribute->GetNamespaceURI().data();
    if (!IsNamespaceValid(ns, m_namespaceRestriction.c_str(), m_targetNamespace.c_str())) {
      throw CKestInvalidNamespaceException(
          FormatString(u"Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                       attribute->GetLocalName()),
          element->GetXPath());
    }
    AppendNew(attribute->GetLocalName().data(), attribute->GetValue().data(), ns);
  }
  return child;
}

}  // namespace KestXmlLib20

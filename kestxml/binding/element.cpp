#include "kestxml/binding/element.h"

#include <algorithm>
#include <vector>

#include "kestxml/binding/attribute.h"
#include "kestxml/binding/attribute_col.h"
#include "kestxml/binding/element_col.h"
#include "kestxml/binding/internal/block_writer.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using internal::ViewOf;

constexpr char16_t kAnyNamespace[] = u"##any";
constexpr std::u16string_view kKeywords[] = {u"##any", u"##other", u"##local",
                                             u"##targetNamespace"};
constexpr std::u16string_view kDefaultDeclaration = u"xmlns";

char16_t const* RequireNamespaceURI(char16_t const* ns) {
  if (std::find(std::begin(kKeywords), std::end(kKeywords), ViewOf(ns)) == std::end(kKeywords)) {
    return ns;
  }
  throw CKestInvalidNamespaceException(FormatString(u"Invalid Namespace [%s].", ns), u"");
}

void RequireValue(char16_t const* text, char16_t const* message) {
  if (!text) throw CKestInvalidNamespaceException(message, u"");
}

// Calls visit(element, depth) for each of @p children, whose depth is 1, and each element in them,
// in document order; visit gives the children of the element, or null. A loop, since programs can
// make trees of any depth.
template <typename Visit>
void ForEachDescendant(CElementCol const* children, Visit visit) {
  using Position = CKestIterator<CElement>;
  std::vector<Position> path;
  if (children) path.push_back(children->begin());
  while (!path.empty()) {
    if (path.back() == Position()) {
      path.pop_back();
      continue;
    }
    CElement const& element = *path.back()++;
    CElementCol const* const next = visit(element, path.size());
    if (next) path.push_back(next->begin());
  }
}

}  // namespace

CElement::CElement(char16_t const* name) {
  Init(name, u"", kAnyNamespace, u"");
}

CElement::CElement(char16_t const* name, char16_t const* ns) {
  Init(name, RequireNamespaceURI(ns), ns, u"");
}

CElement::CElement(char16_t const* name, char16_t const* ns, char16_t const* restriction,
                   char16_t const* targetNamespace) {
  Init(name, ns, restriction, targetNamespace);
}

CElement::CElement(CXmlObjectBase* source, char16_t const* defaultNamespace) {
  Throw_IfPropertyIsNull(source, u"source");
  Init(u"", u"", kAnyNamespace, u"");
  m_defaultNamespace = ViewOf(defaultNamespace);
  CSerializationContext context;
  context.SetDefaultNamespaceURI(defaultNamespace);
  CBinaryData const xml = source->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, context,
                                              CompressionType_None);
  CXmlDocument document(context);
  document.LoadXmlStream(xml.GetData(), xml.GetLength());
  CopyXmlElement(document.GetDocumentElement());
}

CElement::~CElement() = default;

void CElement::Init(char16_t const* name, char16_t const* ns, char16_t const* restriction,
                    char16_t const* targetNamespace) {
  RequireValue(name, u"Element Name must have a value");
  RequireValue(restriction, u"Namespace Restriction must have a value");
  RequireValue(targetNamespace, u"Target Namespace must have a value");
  TestNamespace(ns, restriction, targetNamespace);
  m_name = name;
  m_namespace = ViewOf(ns);
  m_namespaceRestriction = restriction;
  m_targetNamespace = targetNamespace;
  m_attributes = nullptr;
  m_childElements = nullptr;
}

void CElement::SetName(char16_t const* name) {
  m_name = ViewOf(name);
  FireOnChangeName();
}

void CElement::SetText(char16_t const* text) {
  m_text = ViewOf(text);
  FireOnChangeText();
}

void CElement::SetNamespace(char16_t const* ns) {
  ReplaceNamespace(ViewOf(ns));
  FireOnChangeNamespace();
}

// The collections keep the namespace that the element had at first.
void CElement::ReplaceNamespace(std::u16string_view ns) {
  if (ns == m_namespace) return;
  Attributes();
  Children();
  m_namespace = ns;
}

CAttributeCol& CElement::Attributes() const {
  if (!m_attributes) {
    m_attributes = new CAttributeCol(m_namespace.c_str(), kAnyNamespace, m_targetNamespace.c_str());
  }
  return *m_attributes;
}

CElementCol& CElement::Children() const {
  if (!m_childElements) {
    m_childElements =
        new CElementCol(m_namespace.c_str(), kAnyNamespace, m_targetNamespace.c_str());
  }
  return *m_childElements;
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() const {
  return &Attributes();
}

CSmartPtr<CElementCol> CElement::GetChildElements() const {
  return &Children();
}

void CElement::TestNamespaces(char16_t const* restriction, char16_t const* targetNamespace) const {
  TestNamespace(m_namespace.c_str(), restriction, targetNamespace);
  if (!m_attributes) return;
  for (CAttribute const& attribute : *m_attributes) {
    TestNamespace(attribute.GetNamespace().data(), restriction, targetNamespace);
  }
}

// The pointer, and the order of the texts in its message, are what handlers of programs expect.
void CElement::SetNamespaceRestrictions(char16_t const* restriction,
                                        char16_t const* targetNamespace) const {
  TestNamespaces(restriction, targetNamespace);
  ForEachDescendant(m_childElements.Get(), [&](CElement const& element, std::size_t /*depth*/) {
    try {
      element.TestNamespaces(restriction, targetNamespace);
    } catch (CKestException const& failure) {
      throw new CKestInvalidNamespaceException(  // NOLINT: a pointer, see above
          FormatString(u"The namespace %s in the class %s is invalid against restriction %s",
                       element.m_name, element.m_namespace, ViewOf(restriction)),
          u"", failure);
    }
    return element.m_childElements.Get();
  });
}

CSmartPtr<CElement> CElement::CloneWithoutElements() const {
  CSmartPtr<CElement> clone(new CElement(m_name.c_str(), m_namespace.c_str(),
                                         m_namespaceRestriction.c_str(),
                                         m_targetNamespace.c_str()));
  if (m_attributes) clone->m_attributes = m_attributes->Clone();
  if (m_childElements) clone->m_childElements = m_childElements->CloneWithoutElements();
  clone->m_text = m_text;
  return clone;
}

CSmartPtr<CElement> CElement::Clone() const {
  CSmartPtr<CElement> clone = CloneWithoutElements();
  std::vector<CElement*> path{clone.Get()};
  ForEachDescendant(m_childElements.Get(), [&](CElement const& element, std::size_t depth) {
    CSmartPtr<CElement> const child = element.CloneWithoutElements();
    path.resize(depth);
    path.back()->Children().Add(child.Get());
    path.push_back(child.Get());
    return element.m_childElements.Get();
  });
  return clone;
}

void CElement::FromXml(char16_t const* text) {
  CSerializationContext const& context = CSerializationContext::GetDefaultContext();
  CXmlDocument document(context);
  document.LoadXml(internal::TextOf(text));
  CXmlElement* const root = document.GetDocumentElement();
  FromXml_Int(root, root, context, false);
}

void CElement::CopyXmlElement(CXmlElement const* element) {
  m_name = element->GetLocalName();
  ReplaceNamespace(element->GetNamespaceURI());
  m_text = element->GetText();
  if (m_attributes) m_attributes->Clear();
  if (m_childElements) m_childElements->Clear();
  for (CXmlAttribute const* attribute : element->GetAttributes()) {
    Attributes().Add(attribute->GetLocalName().data(), attribute->GetValue().data(),
                     attribute->GetNamespaceURI().data());
    if (attribute->GetLocalName() == kDefaultDeclaration)
      m_defaultNamespace = attribute->GetValue();
  }
  for (auto* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement()) {
    CSmartPtr<CElement> const copy(new CElement(child->GetLocalName().data()));
    copy->CopyXmlElement(child);
    Children().Add(copy.Get());
  }
}

CXmlElement* CElement::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* current,
                                   CSerializationContext const& context,
                                   bool /*isOptionalChoice*/) {
  if (!current || !IsNamespaceValid(current->GetNamespaceURI().data(),
                                    m_namespaceRestriction.c_str(), m_targetNamespace.c_str())) {
    return current;
  }
  if (!current->GetAttributes().empty()) {
    CXmlObjectBase::FromXml_Int(&Attributes(), current, nullptr, context, false);
  }
  CXmlElement* const first = current->GetFirstElement();
  if (first && CXmlObjectBase::FromXml_Int(&Children(), current, first, context, false)) {
    throw CKestValidationException(
        FormatString(u"Invalid Element [%s] found.", current->GetLocalName()), current->GetXPath());
  }
  m_text = current->GetText();
  m_name = current->GetLocalName();
  ReplaceNamespace(current->GetNamespaceURI());
  // An attribute only where the parser does not process namespaces.
  auto const defaultNamespace = current->GetAttribute(kDefaultDeclaration, u"");
  if (!defaultNamespace.empty()) m_defaultNamespace = defaultNamespace;
  return current->GetNextSiblingElement();
}

void CElement::ToXml_Int(CXmlWriter* writer, bool /*registerNamespaces*/,
                         char16_t const* namespaceUri, CSerializationContext const& context,
                         bool isOptionalChoice) const {
  auto* const textWriter =
      m_defaultNamespace.empty() ? nullptr : dynamic_cast<CXmlTextWriter*>(writer);
  if (textWriter) {
    WriteAsBlock(*textWriter, namespaceUri, context, isOptionalChoice);
    return;
  }
  writer->StartElement(m_name, m_namespace);
  if (m_attributes) {
    CXmlObjectBase::ToXml_Int(m_attributes.Get(), writer, false, namespaceUri, context, false);
  }
  WriteContent(*writer, namespaceUri, context, isOptionalChoice);
  writer->EndElement();
}

// The attributes are left out: programs rely on it.
void CElement::WriteAsBlock(CXmlTextWriter& writer, char16_t const* namespaceUri,
                            CSerializationContext const& context, bool isOptionalChoice) const {
  CSerializationContext blockContext;
  blockContext.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
  blockContext.GetLimits() = context.GetLimits();
  internal::WriteBlock(writer, context.GetLimits().GetMaxDepth(), [&](CXmlTextWriter& block) {
    block.SetDefaultNamespace(m_defaultNamespace);
    block.StartElement(m_name, m_namespace);
    WriteContent(block, namespaceUri, blockContext, isOptionalChoice);
    block.EndElement();
  });
}

void CElement::WriteContent(CXmlWriter& writer, char16_t const* namespaceUri,
                            CSerializationContext const& context, bool isOptionalChoice) const {
  if (m_childElements) {
    CXmlObjectBase::ToXml_Int(m_childElements.Get(), &writer, false, namespaceUri, context,
                              isOptionalChoice);
  }
  writer.WriteText(m_text, ItemType_string, false);
}

}  // namespace KestXmlLib20

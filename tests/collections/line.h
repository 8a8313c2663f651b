// An item class and its collection, the latter as a generator emits it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

/// An element with a text and an attribute.
class CLine : public CXmlObjectBase {
 public:
  explicit CLine(std::u16string text_ = {}) : text(std::move(text_)) { SetElementName(u"Line"); }

  std::u16string text;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return {}; }

 protected:
  std::u16string_view GetTargetNamespace() const override { return {}; }
  void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const&) const override {
    writer->WriteAttribute(u"length", u"", std::u16string(text.size(), u'i'), ItemType_string);
  }
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool) const override {
    writer->StartElement(GetElementName(), namespaceUri);
    AttributesToXml_Int(writer, context);
    writer->WriteText(text, ItemType_string, false);
    writer->EndElement();
  }
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement*, CSerializationContext const&,
                           bool) override {
    text = element->GetText();
    return nullptr;
  }
};

class CLineCol : public CXmlCollection {
 public:
  CLineCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
           std::int32_t maxOccurs)
      : CXmlCollection(elementName, namespaceURI, minOccurs, maxOccurs) {}

  /// Makes a line and adds it.
  CSmartPtr<CLine> Add() { return Add(new CLine); }
  CSmartPtr<CLine> Add(CLine* line) {
    AppendItem(line);
    return line;
  }
  CSmartPtr<CLine> AddAt(std::int32_t index, CLine* line) {
    AddItemAt(index, line);
    return line;
  }
  void AddFirst(CLine* line) { PrependItem(line); }
  void AddAfter(CLine const* after, CLine* line) { AddAfterItem(after, line); }
  void AddBefore(CLine const* before, CLine* line) { AddBeforeItem(before, line); }
  void RemoveLine(CLine const* line) { RemoveNode(GetNodeForItem(line)); }
  CSmartPtr<CLine> Item(std::int32_t index) const {
    return static_cast<CLine*>(GetNodeAtIndex(index)->m_pItem.Get());
  }

  CKestIterator<CLine> begin() const { return CKestIterator<CLine>(GetFirstNode()); }
  CKestIterator<CLine> end() const { return {}; }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool) const override {
    for (CLine const& line : *this) {
      CXmlObjectBase::ToXml_Int(&line, writer, false, namespaceUri, context, false);
    }
  }
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const& context,
                           bool) override {
    std::u16string const name = GetElementName();
    for (; child && child->GetLocalName() == name; child = child->GetNextSiblingElement()) {
      CSmartPtr<CLine> const line(new CLine);
      CXmlObjectBase::FromXml_Int(line.Get(), child, child->GetFirstElement(), context, false);
      AppendItem(line.Get());
    }
    return child;
  }
};

}  // namespace KestXmlLib20

// Collections as a generator emits them: of one class, of a class with substitutions, of groups.
#pragma once

#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/document/xml_element.h"
#include "tests/model/model_class.h"

namespace KestModel {

template <typename Item>
CSmartPtr<CXmlObjectBase> MakeItem(CXmlElement*) {
  return new Item;
}

/// @tparam kMake the factory of items; with null from it the collection ends.
template <typename Item, CSmartPtr<CXmlObjectBase> (*kMake)(CXmlElement*) = MakeItem<Item>>
class CObjectCol : public CXmlCollection {
 public:
  CObjectCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
             std::int32_t maxOccurs)
      : CXmlCollection(elementName, namespaceURI, minOccurs, maxOccurs) {}

  CSmartPtr<Item> Add() { return Add(new Item); }
  CSmartPtr<Item> Add(Item* item) {
    AppendItem(item);
    return item;
  }
  CKestIterator<Item> begin() const { return CKestIterator<Item>(GetFirstNode()); }
  CKestIterator<Item> end() const { return {}; }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool) const override {
    for (Item const& item : *this) {
      CXmlObjectBase::ToXml_Int(&item, writer, false, namespaceUri, context, false);
    }
  }
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const& context,
                           bool) override {
    std::u16string const name = GetElementName();
    while (child && DoesElementNameMatch(context, child, name.c_str(), GetNamespace().data())) {
      CSmartPtr<CXmlObjectBase> const item = kMake(child);
      if (!item) break;
      CXmlObjectBase::FromXml_Int(item.Get(), child, child->GetFirstElement(), context, false);
      AppendItem(item.Get());
      child = child->GetNextSiblingElement();
    }
    return child;
  }
};

/// Items that have no element of their own: each reads from where the one before ended.
template <typename Item>
class CGroupCol : public CObjectCol<Item> {
 public:
  using CObjectCol<Item>::CObjectCol;

 protected:
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool) override {
    while (child) {
      CSmartPtr<Item> const item(new Item);
      CXmlElement* const next =
          CXmlObjectBase::FromXml_Int(item.Get(), element, child, context, false);
      if (next == child) break;
      this->AppendItem(item.Get());
      child = next;
    }
    return child;
  }
};

}  // namespace KestModel

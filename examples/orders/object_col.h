// Collections of objects.
#pragma once

#include <cstdint>

#include "examples/orders/order_class.h"

namespace KestOrders {

/// A collection of objects of the class T, or of classes derived from it. What a collection must
/// say for itself are four things: how items are added and given with their class, and how it is
/// written and read. A generator emits a class like this for each class that can repeat; written by
/// hand, one template does for all.
template <typename T>
class CObjectCol : public KestXmlLib20::CXmlCollection {
 public:
  /// Makes the object that an element calls for. Null leaves the element, and all behind it,
  /// unread.
  using Create = KestXmlLib20::CSmartPtr<T> (*)(KestXmlLib20::CXmlElement* element);

  /// @param maxOccurs -1 is unbounded.
  CObjectCol(char16_t const* elementName, std::int32_t minOccurs, std::int32_t maxOccurs,
             Create create = &CreateOne)
      : CXmlCollection(elementName, kOrderNamespace, minOccurs, maxOccurs), m_create(create) {}

  /// Adds an object behind the others.
  /// @throws KestXmlLib20::CKestInvalidParamException for null, and for an object that was made for
  ///   another element.
  void Add(T* item) {
    Throw_IfElementNameDiffers(item, GetElementName().c_str());
    AppendItem(item);
  }
  KestXmlLib20::CSmartPtr<T> Item(std::int32_t index) const {
    return static_cast<T*>(GetNodeAtIndex(index)->m_pItem.Get());
  }
  KestXmlLib20::CKestIterator<T> begin() const {
    return KestXmlLib20::CKestIterator<T>(GetFirstNode());
  }
  KestXmlLib20::CKestIterator<T> end() const { return {}; }

 protected:
  /// The caller has checked the number of items.
  void ToXml_Int(KestXmlLib20::CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 KestXmlLib20::CSerializationContext const& context, bool) const override {
    for (auto* node = GetFirstNode(); node; node = node->m_pNext) {
      CXmlObjectBase::ToXml_Int(node->m_pItem.Get(), writer, false, namespaceUri, context, false);
    }
  }

  /// Adds an object for @p child and each sibling behind it, up to the first with another name.
  /// The caller checks their number.
  KestXmlLib20::CXmlElement* FromXml_Int(KestXmlLib20::CXmlElement*,
                                         KestXmlLib20::CXmlElement* child,
                                         KestXmlLib20::CSerializationContext const& context,
                                         bool) override {
    std::u16string const name = GetElementName();
    while (child && DoesElementNameMatch(context, child, name.c_str(), kOrderNamespace)) {
      auto const item = m_create(child);
      if (!item) break;
      CXmlObjectBase::FromXml_Int(item.Get(), child, child->GetFirstElement(), context, false);
      AppendItem(item.Get());
      child = child->GetNextSiblingElement();
    }
    return child;
  }

 private:
  static KestXmlLib20::CSmartPtr<T> CreateOne(KestXmlLib20::CXmlElement*) { return new T; }

  Create m_create;
};

}  // namespace KestOrders

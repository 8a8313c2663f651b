// Classes for the orders document, as a generator would emit them from its schema.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/kest_variant.h"
#include "kestxml/values/smart_ptr.h"

namespace KestBench {

using KestXmlLib20::CKestIterator;
using KestXmlLib20::CSerializationContext;
using KestXmlLib20::CSmartPtr;
using KestXmlLib20::CXmlElement;
using KestXmlLib20::CXmlObjectBase;
using KestXmlLib20::CXmlWriter;
using KestXmlLib20::KestVariant;

inline constexpr char16_t kOrdersNamespace[] = u"urn:example:orders";
inline constexpr std::u16string_view kOrdersNamespaceView = kOrdersNamespace;

/// What the three classes share: their namespace.
class COrdersClass : public KestXmlLib20::CXmlGeneratedClass {
 public:
  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return kOrdersNamespaceView; }

 protected:
  std::u16string_view GetTargetNamespace() const override { return kOrdersNamespaceView; }
};

class CItem : public COrdersClass {
 public:
  CItem();
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  KestXmlLib20Data::CParentElementInfo* GetClassInfo() const override;
  KestXmlLib20Data::CElementInfo** GetClassElementInfo() const override;
  KestXmlLib20Data::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  std::u16string m_name;
  KestXmlLib20::CDecimal m_price;
  std::int32_t m_quantity = 0;
  std::optional<double> m_discount;
  std::u16string m_sku;
  std::int32_t m_qty = 0;
};

/// A typed collection: its items are of one class.
template <typename Item>
class COrdersCollection : public KestXmlLib20::CXmlCollection {
 public:
  explicit COrdersCollection(char16_t const* elementName)
      : CXmlCollection(elementName, kOrdersNamespace, 0, -1) {}

  void Add(Item* item) { AppendItem(item); }
  CKestIterator<Item> begin() { return CKestIterator<Item>(GetFirstNode()); }
  CKestIterator<Item> end() { return {}; }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;
};

class COrder : public COrdersClass {
 public:
  COrder();
  COrdersCollection<CItem>& GetItems() { return *m_items; }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  KestXmlLib20Data::CParentElementInfo* GetClassInfo() const override;
  KestXmlLib20Data::CElementInfo** GetClassElementInfo() const override;
  KestXmlLib20Data::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  std::u16string m_customer;
  KestXmlLib20::CDateTime m_date;
  KestXmlLib20::CDecimal m_total;
  std::u16string m_note;
  CSmartPtr<COrdersCollection<CItem>> m_items;
  std::int32_t m_id = 0;
  std::u16string m_currency;
};

class COrders : public COrdersClass {
 public:
  COrders();
  COrdersCollection<COrder>& GetOrders() { return *m_orders; }
  void AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) override;
  KestXmlLib20Data::CParentElementInfo* GetClassInfo() const override;
  KestXmlLib20Data::CElementInfo** GetClassElementInfo() const override;
  KestXmlLib20Data::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  CSmartPtr<COrdersCollection<COrder>> m_orders;
};

}  // namespace KestBench

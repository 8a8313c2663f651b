#include "bench/binding/orders_model.h"

#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <utility>

#include "kestxml/binding/metadata/attribute_info.h"
#include "kestxml/binding/metadata/element_info_family.h"
#include "kestxml/binding/metadata/parent_element_info.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_element.h"

namespace KestBench {

using namespace KestXmlLib20;
using namespace KestXmlLib20Data;

namespace {

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
constexpr auto kPreserve = CWhitespaceUtils::WhitespaceRule_Preserve;

/// The tables of one class.
struct Tables {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;
};

template <typename Entry>
Entry** Table(std::initializer_list<Entry*> entries) {
  auto** const table = static_cast<Entry**>(std::malloc((entries.size() + 1) * sizeof(Entry*)));
  Entry** next = table;
  for (Entry* const entry : entries) *next++ = entry;
  *next = nullptr;
  return table;
}

CParentElementInfo* Sequence(char16_t const* name) {
  return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, name,
                                kOrdersNamespace, true, false, -1, ItemType_Invalid,
                                CWhitespaceUtils::WhitespaceRule_None, nullptr, false);
}

template <typename Info>
CElementInfo* Element(char16_t const* name, std::int32_t index, ItemType type,
                      CWhitespaceUtils::WhitespaceRule rule) {
  return new Info(name, kOrdersNamespace, index, false, type, nullptr, rule,
                  CPrimitiveRestrictions(), nullptr);
}

CAttributeInfo* Attribute(char16_t const* name, std::int32_t index, ItemType type,
                          CWhitespaceUtils::WhitespaceRule rule) {
  return new CAttributeInfoPrimitive(name, u"", index, false, type, nullptr, rule,
                                     CPrimitiveRestrictions(), nullptr);
}

Tables const& ItemTables() {
  static Tables const tables{
      Sequence(u"item"),
      Table<CElementInfo>(
          {Element<CElementInfoSeqPrimMnd>(u"name", 0, ItemType_string, kPreserve),
           Element<CElementInfoSeqPrimMnd>(u"price", 1, ItemType_decimal, kCollapse),
           Element<CElementInfoSeqPrimMnd>(u"quantity", 2, ItemType_i4, kCollapse),
           Element<CElementInfoSeqPrimOpt>(u"discount", 3, ItemType_r8, kCollapse)}),
      Table<CAttributeInfo>({Attribute(u"sku", 4, ItemType_string, kPreserve),
                             Attribute(u"qty", 5, ItemType_i4, kCollapse)})};
  return tables;
}

Tables const& OrderTables() {
  static Tables const tables{
      Sequence(u"order"),
      Table<CElementInfo>(
          {Element<CElementInfoSeqPrimMnd>(u"customer", 0, ItemType_string, kPreserve),
           Element<CElementInfoSeqPrimMnd>(u"date", 1, ItemType_datetime, kCollapse),
           Element<CElementInfoSeqPrimMnd>(u"total", 2, ItemType_decimal, kCollapse),
           Element<CElementInfoSeqPrimMnd>(u"note", 3, ItemType_string, kPreserve),
           new CElementInfoSeqClsCol(u"item", kOrdersNamespace, 4, XmlElementType_Element)}),
      Table<CAttributeInfo>({Attribute(u"id", 5, ItemType_i4, kCollapse),
                             Attribute(u"currency", 6, ItemType_string, kPreserve)})};
  return tables;
}

Tables const& OrdersTables() {
  static Tables const tables{Sequence(u"orders"),
                             Table<CElementInfo>({new CElementInfoSeqClsCol(
                                 u"order", kOrdersNamespace, 0, XmlElementType_Element)}),
                             Table<CAttributeInfo>({})};
  return tables;
}

void Access(std::u16string& member, bool read, KestVariant& value) {
  if (read) {
    value.SetStringReference(member);
  } else {
    member = value.TakeString();
  }
}

void Access(std::int32_t& member, bool read, KestVariant& value) {
  if (read) {
    value.SetI4(member);
  } else {
    member = value.GetI4();
  }
}

// An unset one leaves the variant without a kind.
void Access(std::optional<double>& member, bool read, KestVariant& value) {
  if (!read) {
    member = value.GetR8();
  } else if (member) {
    value.SetR8(*member);
  }
}

void Access(CDecimal& member, bool read, KestVariant& value) {
  if (read) {
    value.SetDecimal(member);
  } else {
    member = value.GetDecimal();
  }
}

void Access(CDateTime& member, bool read, KestVariant& value) {
  if (read) {
    value.SetDateTime(member);
  } else {
    member = value.GetDateTime();
  }
}

}  // namespace

template <typename Item>
void COrdersCollection<Item>::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                                        CSerializationContext const& context, bool) const {
  for (auto* node = GetFirstNode(); node; node = node->m_pNext) {
    CXmlObjectBase::ToXml_Int(node->m_pItem.Get(), writer, false, namespaceUri, context, false);
  }
}

template <typename Item>
CXmlElement* COrdersCollection<Item>::FromXml_Int(CXmlElement*, CXmlElement* child,
                                                  CSerializationContext const& context, bool) {
  std::u16string const name = GetElementName();
  for (; child; child = child->GetNextSiblingElement()) {
    if (!DoesElementNameMatch(context, child, name.c_str(), kOrdersNamespace)) break;
    CSmartPtr<Item> item(new Item);
    CXmlObjectBase::FromXml_Int(item.Get(), child, child->GetFirstElement(), context, false);
    AppendItem(item.Get());
  }
  return child;
}

template class COrdersCollection<CItem>;
template class COrdersCollection<COrder>;

CItem::CItem() {
  SetElementName(u"item");
}

CParentElementInfo* CItem::GetClassInfo() const {
  return ItemTables().classInfo;
}
CElementInfo** CItem::GetClassElementInfo() const {
  return ItemTables().elements;
}
CAttributeInfo** CItem::GetClassAttributeInfo() const {
  return ItemTables().attributes;
}

void CItem::Init() {
  m_name.clear();
  m_price = CDecimal();
  m_quantity = 0;
  m_discount.reset();
  m_sku.clear();
  m_qty = 0;
}

void CItem::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case 0:
      return Access(m_name, read, value);
    case 1:
      return Access(m_price, read, value);
    case 2:
      return Access(m_quantity, read, value);
    case 3:
      return Access(m_discount, read, value);
    case 4:
      return Access(m_sku, read, value);
    case 5:
      return Access(m_qty, read, value);
  }
}

COrder::COrder() {
  SetElementName(u"order");
  Init();
}

CParentElementInfo* COrder::GetClassInfo() const {
  return OrderTables().classInfo;
}
CElementInfo** COrder::GetClassElementInfo() const {
  return OrderTables().elements;
}
CAttributeInfo** COrder::GetClassAttributeInfo() const {
  return OrderTables().attributes;
}

void COrder::Init() {
  m_customer.clear();
  m_date = CDateTime();
  m_total = CDecimal();
  m_note.clear();
  m_items = new COrdersCollection<CItem>(u"item");
  m_id = 0;
  m_currency.clear();
}

void COrder::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case 0:
      return Access(m_customer, read, value);
    case 1:
      return Access(m_date, read, value);
    case 2:
      return Access(m_total, read, value);
    case 3:
      return Access(m_note, read, value);
    case 4:
      return value.SetXmlCollection(m_items.Get());
    case 5:
      return Access(m_id, read, value);
    case 6:
      return Access(m_currency, read, value);
  }
}

COrders::COrders() {
  SetElementName(u"orders");
  Init();
}

CParentElementInfo* COrders::GetClassInfo() const {
  return OrdersTables().classInfo;
}
CElementInfo** COrders::GetClassElementInfo() const {
  return OrdersTables().elements;
}
CAttributeInfo** COrders::GetClassAttributeInfo() const {
  return OrdersTables().attributes;
}

void COrders::Init() {
  m_orders = new COrdersCollection<COrder>(u"order");
}

void COrders::AccessProperty(std::int32_t, bool, KestVariant& value) {
  value.SetXmlCollection(m_orders.Get());
}

}  // namespace KestBench

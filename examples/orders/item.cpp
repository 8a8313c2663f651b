#include "examples/orders/item.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

// ---------------------------------------------------------------------------- CItem

namespace {

enum ItemProperty : std::int32_t {
  kSkuProperty,
  kNameProperty,
  kQuantityProperty,
  kPriceProperty,
  kDiscountProperty,
};

}  // namespace

COrderClass::ElementEntries CItem::GetItemElements() {
  return {Element<CElementInfoSeqPrimMnd>(u"name", kNameProperty, kName),
          Element<CElementInfoSeqPrimMnd>(u"quantity", kQuantityProperty, kQuantity),
          Element<CElementInfoSeqPrimMnd>(u"price", kPriceProperty, kMoney),
          new CElementInfoSeqClsCol(u"discount", kOrderNamespace, kDiscountProperty,
                                    XmlElementType_Element)};
}

COrderClass::AttributeEntries CItem::GetItemAttributes() {
  return {Attribute(u"sku", kSkuProperty, false, kSku)};
}

// The record has the name of the element, so no xsi:type is written. It says that there are derived
// classes: those have records with the names of their types, which differ from that of the element
// under which they stand, and so are written.
constinit COrderClass::CTables CItem::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"item", true), GetItemElements(),
                    GetItemAttributes());
});

CItem::CItem() : COrderClass(u"item") {
  CItem::Init();
}

void CItem::Init() {
  m_sku.clear();
  m_name.clear();
  m_quantity = 1;
  m_price = {};
  m_discounts = new CObjectCol<CDiscount>(u"discount", 0, 2);
}

void CItem::SetSku(std::u16string const& value) {
  m_sku = Checked(u"sku", value, kSku);
}
void CItem::SetName(std::u16string const& value) {
  m_name = Checked(u"name", value, kName);
}
void CItem::SetQuantity(std::uint32_t value) {
  m_quantity = Checked(u"quantity", value, kQuantity);
}
void CItem::SetPrice(Money const& value) {
  m_price = Checked(u"price", value, kMoney);
}

void CItem::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kSkuProperty:
      return Access(m_sku, read, value);
    case kNameProperty:
      return Access(m_name, read, value);
    case kQuantityProperty:
      return Access(m_quantity, read, value);
    case kPriceProperty:
      return Access(m_price, read, value);
    case kDiscountProperty:
      return AccessCollection(m_discounts, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

// ---------------------------------------------------------------------------- CBookItem

// The tables of a derived class hold all of the base's entries, then its own; its AccessProperty
// hands the base's numbers on.
constinit COrderClass::CTables CBookItem::s_tables([] {
  auto elements = GetItemElements();
  elements.push_back(Element<CElementInfoSeqPrimMnd>(u"isbn", kFirstDerivedProperty, kIsbn));
  elements.push_back(
      new CElementInfoSeqPrimCol(u"author", kOrderNamespace, kFirstDerivedProperty + 1));
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"BookItem", true), elements,
                    GetItemAttributes());
});

CBookItem::CBookItem() {
  CBookItem::Init();
}

void CBookItem::Init() {
  CItem::Init();
  m_isbn.clear();
  m_authors = NewValueCol<CstringCol>(u"author", kOrderNamespace, 1, -1, kName);
}

void CBookItem::SetIsbn(std::u16string const& value) {
  m_isbn = Checked(u"isbn", value, kIsbn);
}

void CBookItem::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kFirstDerivedProperty:
      return Access(m_isbn, read, value);
    case kFirstDerivedProperty + 1:
      return AccessCollection(m_authors, value);
    default:
      return CItem::AccessProperty(propertyIndex, read, value);
  }
}

// ---------------------------------------------------------------------------- CServiceItem

constinit COrderClass::CTables CServiceItem::s_tables([] {
  auto elements = GetItemElements();
  elements.push_back(
      Element<CElementInfoSeqPrimMnd>(u"duration", kFirstDerivedProperty, kDuration));
  elements.push_back(
      new CElementInfoSeqEnumOpt(u"place", kOrderNamespace, kFirstDerivedProperty + 1, false,
                                 ServicePlaceToString, ServicePlaceFromString, nullptr));
  elements.push_back(
      new CElementInfoSeqPrimCol(u"visit", kOrderNamespace, kFirstDerivedProperty + 2));
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"ServiceItem", true), elements,
                    GetItemAttributes());
});

CServiceItem::CServiceItem() {
  CServiceItem::Init();
}

void CServiceItem::Init() {
  CItem::Init();
  m_duration.reset();
  m_place.reset();
  m_visits = NewValueCol<CdateCol>(u"visit", kOrderNamespace, 0, 5, kVisit);
}

void CServiceItem::SetDuration(Duration const& value) {
  m_duration = Checked(u"duration", value, kDuration);
}

void CServiceItem::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kFirstDerivedProperty:
      return Access(m_duration, read, value);
    case kFirstDerivedProperty + 1:
      return Access(m_place, read, value);
    case kFirstDerivedProperty + 2:
      return AccessCollection(m_visits, value);
    default:
      return CItem::AccessProperty(propertyIndex, read, value);
  }
}

}  // namespace KestOrders

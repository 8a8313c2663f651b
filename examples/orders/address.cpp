#include "examples/orders/address.h"

#include "examples/orders/order_factory.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

// ---------------------------------------------------------------------------- CPostal

namespace {

enum PostalProperty : std::int32_t {
  kNameProperty,
  kLineProperty,
  kPostcodeProperty,
  kCityProperty,
  kCountryProperty,
};

}  // namespace

constinit COrderClass::CTables CPostal::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"postal"),
                    {Element<CElementInfoSeqPrimMnd>(u"name", kNameProperty, kName),
                     new CElementInfoSeqPrimCol(u"line", kOrderNamespace, kLineProperty),
                     Element<CElementInfoSeqPrimMnd>(u"postcode", kPostcodeProperty, kName),
                     Element<CElementInfoSeqPrimMnd>(u"city", kCityProperty, kName),
                     Element<CElementInfoSeqPrimMnd>(u"country", kCountryProperty, kCountry)},
                    {});
});

CPostal::CPostal(char16_t const* elementName) : COrderClass(elementName) {
  CPostal::Init();
}

// The library reads into the collection that is there, so Init makes one. It knows its own names,
// counts and facets; the entry of the table only says where it stands.
void CPostal::Init() {
  m_name.clear();
  m_lines = NewValueCol<CstringCol>(u"line", kOrderNamespace, 1, 3, kName);
  m_postcode.clear();
  m_city.clear();
  m_country.clear();
}

void CPostal::SetName(std::u16string const& value) {
  m_name = Checked(u"name", value, kName);
}
void CPostal::SetPostcode(std::u16string const& value) {
  m_postcode = Checked(u"postcode", value, kName);
}
void CPostal::SetCity(std::u16string const& value) {
  m_city = Checked(u"city", value, kName);
}
void CPostal::SetCountry(std::u16string const& value) {
  m_country = Checked(u"country", value, kCountry);
}

void CPostal::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kNameProperty:
      return Access(m_name, read, value);
    case kLineProperty:
      return AccessCollection(m_lines, value);
    case kPostcodeProperty:
      return Access(m_postcode, read, value);
    case kCityProperty:
      return Access(m_city, read, value);
    case kCountryProperty:
      return Access(m_country, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

// ---------------------------------------------------------------------------- CAddress

namespace {

enum AddressProperty : std::int32_t { kPostalProperty, kPoBoxProperty, kGlnProperty };

}  // namespace

constinit COrderClass::CTables CAddress::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Choice, u"address"),
                    {new CElementInfoChoiceClsOpt(u"postal", kOrderNamespace, kPostalProperty,
                                                  XmlElementType_Element, COrderFactory::Create,
                                                  static_cast<int>(ClassId::Postal)),
                     Element<CElementInfoChoicePrimOpt>(u"poBox", kPoBoxProperty, kName),
                     Element<CElementInfoChoicePrimOpt>(u"gln", kGlnProperty, kGln)},
                    {});
});

CAddress::CAddress(char16_t const* elementName) : COrderClass(elementName) {
  CAddress::Init();
}

void CAddress::Init() {
  m_selection.clear();
  m_postal = nullptr;
  m_poBox.reset();
  m_gln.reset();
}

void CAddress::SetPostal(CPostal* value) {
  Throw_IfElementNameDiffers(value, u"postal");
  SelectInChoice(u"postal", value, m_selection);
  m_postal = value;
}
void CAddress::SetPoBox(std::optional<std::u16string> const& value) {
  Checked(u"poBox", value, kName);
  SelectInChoice(u"poBox", value.has_value(), m_selection);
  m_poBox = value;
}
void CAddress::SetGln(std::optional<std::u16string> const& value) {
  Checked(u"gln", value, kGln);
  SelectInChoice(u"gln", value.has_value(), m_selection);
  m_gln = value;
}

// In a choice what is read goes through the setters, too, which keep the selection.
void CAddress::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kPostalProperty:
      return read ? Access(m_postal, true, value)
                  : SetPostal(static_cast<CPostal*>(value.GetXmlObject().Get()));
    case kPoBoxProperty:
      return read ? Access(m_poBox, true, value) : SetPoBox(value.GetString());
    case kGlnProperty:
      return read ? Access(m_gln, true, value) : SetGln(value.GetString());
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders

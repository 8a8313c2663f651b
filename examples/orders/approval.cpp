#include "examples/orders/approval.h"

namespace KestOrders {

using namespace KestXmlLib20Data;
using namespace SimpleTypes;

namespace {

enum Property : std::int32_t { kByProperty, kOnProperty, kSignatureProperty };

}  // namespace

constinit COrderClass::CTables CApproval::s_tables([] {
  return MakeTables(ElementClass(XmlElementGroupType_Sequence, u"approval"),
                    {Element<CElementInfoSeqPrimMnd>(u"by", kByProperty, kName),
                     Element<CElementInfoSeqPrimMnd>(u"on", kOnProperty, kDate),
                     Element<CElementInfoSeqPrimOpt>(u"signature", kSignatureProperty, kSignature)},
                    {});
});

CApproval::CApproval(char16_t const* elementName) : COrderClass(elementName) {
  CApproval::Init();
}

// The library sets nil only where the attribute is there.
void CApproval::Init() {
  m_isNil = false;
  m_by.clear();
  m_on = {};
  m_signature.reset();
}

void CApproval::SetBy(std::u16string const& value) {
  m_by = Checked(u"by", value, kName);
}
void CApproval::SetOn(Date const& value) {
  m_on = Checked(u"on", value, kDate);
}
void CApproval::SetSignature(std::optional<CBinaryData> const& value) {
  m_signature = Checked(u"signature", value, kSignature);
}

void CApproval::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kByProperty:
      return Access(m_by, read, value);
    case kOnProperty:
      return Access(m_on, read, value);
    case kSignatureProperty:
      return Access(m_signature, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders

#include "examples/orders/order_class.h"

#include <cstdlib>
#include <new>

namespace KestOrders {

using namespace KestXmlLib20;
using namespace KestXmlLib20Data;

namespace {

// The null pointer behind the last entry tells the library where the table ends.
template <typename Entry>
Entry** MakeTable(std::vector<Entry*> const& entries) {
  auto** const table = static_cast<Entry**>(std::malloc((entries.size() + 1) * sizeof(Entry*)));
  if (!table) throw std::bad_alloc();
  Entry** next = table;
  for (Entry* const entry : entries) *next++ = entry;
  *next = nullptr;
  return table;
}

}  // namespace

CParentElementInfo* COrderClass::GetClassInfo() const {
  return GetTables().Get().classInfo;
}
CElementInfo** COrderClass::GetClassElementInfo() const {
  return GetTables().Get().elements;
}
CAttributeInfo** COrderClass::GetClassAttributeInfo() const {
  return GetTables().Get().attributes;
}

// The library keeps one lock for all classes that build tables, and never takes it itself. A thread
// that finds the tables built does not take it either.
COrderClass::Tables const& COrderClass::CTables::Get() {
  if (m_isBuilt.load(std::memory_order_acquire)) return m_tables;
  struct Lock {
    Lock() { m_csInit.Enter(); }
    ~Lock() { m_csInit.Leave(); }
  } const lock;
  if (!m_isBuilt.load(std::memory_order_relaxed)) {
    m_tables = m_build();
    m_isBuilt.store(true, std::memory_order_release);
  }
  return m_tables;
}

COrderClass::CTables::~CTables() {
  CleanMetaData(m_tables.classInfo, m_tables.elements, m_tables.attributes);
}

COrderClass::Tables COrderClass::MakeTables(CParentElementInfo* classInfo,
                                            ElementEntries const& elements,
                                            AttributeEntries const& attributes) {
  return {classInfo, MakeTable(elements), MakeTable(attributes)};
}

CParentElementInfo* COrderClass::ElementClass(XmlElementGroupType group, char16_t const* name,
                                              bool hasBaseClasses) {
  constexpr bool kFailIfAttributeUnknown = true;
  constexpr std::int32_t kNoValue = -1;
  return new CParentElementInfo(group, XmlElementType_Element, name, kOrderNamespace,
                                kFailIfAttributeUnknown, hasBaseClasses, kNoValue, ItemType_Invalid,
                                CWhitespaceUtils::WhitespaceRule_None, nullptr, false);
}

// The record has no place for facets: AccessProperty of such a class checks its value itself.
CParentElementInfo* COrderClass::SimpleContentClass(char16_t const* name, std::int32_t valueIndex,
                                                    SimpleType const& type) {
  return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, name,
                                kOrderNamespace, true, false, valueIndex, type.itemType,
                                type.whitespaceRule, type.format, false);
}

CAttributeInfo* COrderClass::Attribute(char16_t const* name, std::int32_t propertyIndex,
                                       bool optional, SimpleType const& type,
                                       char16_t const* defaultValue) {
  return new CAttributeInfoPrimitive(name, u"", propertyIndex, optional, type.itemType, type.format,
                                     type.whitespaceRule, type.GetRestrictions(), defaultValue);
}

void COrderClass::ThrowOtherKind(char16_t const* name) {
  throw CKestInvalidParamException(
      FormatString(u"The value for the property [%s] is of another kind.", name));
}

// Choice_SelectElement asks only whether there is a value, so this object stands in for one that is
// no object. It is not asked to select without a value: it would, where nothing is selected yet.
void COrderClass::SelectInChoice(char16_t const* name, bool hasValue, std::u16string& selection) {
  if (hasValue) {
    Choice_SelectElement(name, this, selection);
  } else if (selection == name) {
    Choice_SetElementValid(false, name, selection);
  }
}

void COrderClass::CheckObject(char16_t const* name, CXmlObjectBase* value) {
  Throw_IfPropertyIsNull(value, name);
  Throw_IfElementNameDiffers(value, name);
}

void COrderClass::ThrowUnknownProperty(std::int32_t propertyIndex) {
  throw CKestInvalidParamException(FormatString(u"There is no property %d.", propertyIndex));
}

}  // namespace KestOrders

#include "kestxml/binding/xml_generated_class.h"

#include <cstdlib>
#include <typeinfo>

#include "kestxml/binding/metadata/attribute_info.h"
#include "kestxml/binding/metadata/element_info_family.h"
#include "kestxml/binding/metadata/parent_element_info.h"
#include "kestxml/binding/nillable.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20 {

using namespace KestXmlLib20Data;

namespace {

template <typename Entry>
void CleanTable(Entry**& table) {
  if (!table) return;
  for (Entry** entry = table; *entry; ++entry) {
    delete *entry;
    *entry = nullptr;
  }
  std::free(static_cast<void*>(table));
  table = nullptr;
}

template <typename... Kinds>
bool IsOneOf(CElementInfo const& entry) {
  return (dynamic_cast<Kinds const*>(&entry) || ...);
}

// The base of the five can be used by itself, and is then none of them.
bool IsCollectionInChoice(CElementInfo const& entry) {
  return IsOneOf<CElementInfoChoicePrimCol, CElementInfoChoiceClsCol, CElementInfoChoiceAbsClsCol,
                 CElementInfoChoiceEnumCol, CElementInfoChoiceUntpdCol>(entry);
}

bool IsOptionalInChoice(CElementInfo const& entry) {
  return IsOneOf<CElementInfoChoicePrimOpt, CElementInfoChoiceClsOpt, CElementInfoChoiceAbsClsOpt,
                 CElementInfoChoiceEnumOpt, CElementInfoChoiceUntpdOpt>(entry);
}

}  // namespace

// Constant-initialised: generated code may take it while static objects are still being made.
constinit CKESTCriticalSection CXmlGeneratedClass::m_csInit;

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& classInfo, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
  delete classInfo;
  classInfo = nullptr;
  CleanTable(elements);
  CleanTable(attributes);
}

bool CXmlGeneratedClass::IsElementInList(CSerializationContext const& context,
                                         CXmlElement* element) const {
  for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
    if ((*entry)->IsThisElement(context, element)) return true;
  }
  return false;
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
  for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry) {
    if (IsOptionalInChoice(**entry)) return true;
    if (!IsCollectionInChoice(**entry)) continue;
    KestVariant value;
    ReadProperty((*entry)->GetPropertyIndex(), value);
    auto const collection = value.GetXmlCollection();
    if (collection && collection->GetMinOccurs() == 0) return true;
  }
  return false;
}

// The cast is dear and asked of each object that is read or written, so the record of a class
// remembers the type of objects that are not nillable.
INillable* CXmlGeneratedClass::FindNillable() const {
  auto& notNillable = GetClassInfo()->m_notNillable;
  std::type_info const& type = typeid(*this);
  if (notNillable.Is(type)) return nullptr;
  auto* const nillable = dynamic_cast<INillable*>(const_cast<CXmlGeneratedClass*>(this));
  if (!nillable) notNillable.Set(type);
  return nillable;
}

bool CXmlGeneratedClass::IsNilObject() const {
  auto* const nillable = FindNillable();
  return nillable && nillable->IsNil();
}

}  // namespace KestXmlLib20

// What generated classes have in common: how their tables are built, and how properties travel.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include "kestxml/binding/metadata/attribute_info.h"
#include "kestxml/binding/metadata/element_info_family.h"
#include "kestxml/binding/metadata/parent_element_info.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/values/kest_variant.h"

namespace KestModel {

using namespace KestXmlLib20;
using namespace KestXmlLib20Data;

/// The tables of one class.
struct Tables {
  CParentElementInfo* classInfo = nullptr;
  CElementInfo** elements = nullptr;
  CAttributeInfo** attributes = nullptr;
};

/// The array of a table, as CleanMetaData frees it.
template <typename Entry>
Entry** Table(std::initializer_list<Entry*> entries) {
  auto** const table = static_cast<Entry**>(std::malloc((entries.size() + 1) * sizeof(Entry*)));
  Entry** next = table;
  for (Entry* const entry : entries) *next++ = entry;
  *next = nullptr;
  return table;
}

/// What is said of a class, and of a simple type, where it is not the default.
struct ClassOptions {
  char16_t const* ns = u"";
  bool failIfAttributeUnknown = true;
  bool hasBaseClasses = false;
  ItemType content = ItemType_Invalid;  ///< property 0 then holds it
  bool isText = false;
};
struct Simple {
  char16_t const* ns = u"";
  ItemType type = ItemType_string;
  char16_t const* pattern = nullptr;
  std::int32_t maxLength = -1;
  char16_t const* minInclusive = nullptr;
  char16_t const* maxInclusive = nullptr;
  char16_t const* minExclusive = nullptr;
  bool nillable = false;
  char16_t const* defaultValue = nullptr;
  char16_t const* format = nullptr;

  CPrimitiveRestrictions Facets() const {
    return {pattern, -1, maxLength, minInclusive, maxInclusive, minExclusive, nullptr, -1, -1, -1};
  }
};

inline CParentElementInfo* Class(XmlElementGroupType group, XmlElementType elementType,
                                 char16_t const* name, ClassOptions const& options = {}) {
  bool const hasContent = options.content != ItemType_Invalid;
  return new CParentElementInfo(group, elementType, name, options.ns,
                                options.failIfAttributeUnknown, options.hasBaseClasses,
                                hasContent ? 0 : -1, options.content,
                                CWhitespaceUtils::WhitespaceRule_Collapse, nullptr, options.isText);
}

template <typename Info>
CElementInfo* Primitive(char16_t const* name, std::int32_t index, Simple const& simple = {}) {
  return new Info(name, simple.ns, index, simple.nillable, simple.type, simple.format,
                  CWhitespaceUtils::WhitespaceRule_Collapse, simple.Facets(), simple.defaultValue);
}

inline CAttributeInfo* Attribute(char16_t const* name, std::int32_t index, bool isOptional,
                                 Simple const& simple = {}) {
  return new CAttributeInfoPrimitive(name, u"", index, isOptional, simple.type, simple.format,
                                     CWhitespaceUtils::WhitespaceRule_Collapse, simple.Facets(),
                                     simple.defaultValue);
}

// The body of a case of AccessProperty, for each sort of member.

inline void Exchange(KestVariant& member, bool read, KestVariant& value) {
  (read ? value : member) = read ? member : value;
}
inline void Exchange(std::u16string& member, bool read, KestVariant& value) {
  read ? value.SetString(member) : void(member = value.GetString());
}
inline void Exchange(std::int32_t& member, bool read, KestVariant& value) {
  read ? value.SetI4(member) : void(member = value.GetI4());
}
inline void Exchange(double& member, bool read, KestVariant& value) {
  read ? value.SetR8(member) : void(member = value.GetR8());
}
template <typename Object>
void Exchange(CSmartPtr<Object>& member, bool read, KestVariant& value) {
  if constexpr (std::is_base_of_v<CXmlCollectionBase, Object>) {
    value.SetXmlCollection(member.Get());  // generated collections are not replaced
  } else {
    read ? value.SetXmlObject(member.Get())
         : void(member = static_cast<Object*>(value.GetXmlObject().Get()));
  }
}

/// The part of Init that is the same for all members.
template <typename... Members>
void Reset(Members&... members) {
  ((members = Members()), ...);
}

/// The base of a class of the model. It supplies BuildTables, a constructor that calls Init, and
/// AccessProperty and Init.
template <typename Derived, typename Base = CXmlGeneratedClass>
class CModelClass : public Base {
 public:
  explicit CModelClass(char16_t const* elementName) { this->SetElementName(elementName); }

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override {
    return GetClassInfo()->GetElementNamespace();
  }
  CParentElementInfo* GetClassInfo() const override { return GetTables().classInfo; }
  CElementInfo** GetClassElementInfo() const override { return GetTables().elements; }
  CAttributeInfo** GetClassAttributeInfo() const override { return GetTables().attributes; }

 protected:
  std::u16string_view GetTargetNamespace() const override { return GetNamespace(); }

 private:
  static Tables const& GetTables() {
    if (!s_isBuilt) {
      Base::m_csInit.Enter();
      if (!s_isBuilt) s_tables = Derived::BuildTables();
      s_isBuilt = true;
      Base::m_csInit.Leave();
    }
    return s_tables;
  }

  inline static Tables s_tables;  // for as long as the process lives
  inline static std::atomic<bool> s_isBuilt = false;
};

}  // namespace KestModel

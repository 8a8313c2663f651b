// What a generated class says about itself as a whole.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <typeinfo>

#include "kestxml/binding/metadata/xml_element_type.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/item_type.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {
class CXmlGeneratedClass;
}

namespace KestXmlLib20Data {

/// A type of objects of which something was found out. Several threads may note and look at once.
class TypeNote {
 public:
  TypeNote() = default;
  TypeNote(TypeNote const& other) : m_type(other.m_type.load(std::memory_order_relaxed)) {}
  TypeNote& operator=(TypeNote const& other) {
    m_type.store(other.m_type.load(std::memory_order_relaxed), std::memory_order_relaxed);
    return *this;
  }

  bool Is(std::type_info const& type) const {
    return m_type.load(std::memory_order_relaxed) == &type;
  }
  void Set(std::type_info const& type) { m_type.store(&type, std::memory_order_relaxed); }

 private:
  std::atomic<std::type_info const*> m_type = nullptr;
};

/// One record of each generated class: built once, read-only afterwards.
class KESTXML_API CParentElementInfo {
 public:
  /// @param elementName the name of the class's own element; an object that stands under another
  ///   name is written with xsi:type.
  /// @param failIfAttributeUnknown false accepts any attribute.
  /// @param hasBaseClasses whether the class takes part in derivation.
  /// @param primitiveValuePropertyIndex the property that holds the text of a class with simple
  ///   content; -1 for none.
  /// @param itemType the kind of that text; ItemType_Invalid for none.
  /// @param primitiveFormatOverride the format of that text for KestVariant::ToString, or null.
  /// @param outputPrimitiveClassAsTextProperty the text goes to the property as it stands.
  CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                     char16_t const* elementName, char16_t const* elementNamespace,
                     bool failIfAttributeUnknown, bool hasBaseClasses,
                     std::int32_t primitiveValuePropertyIndex, KestXmlLib20::ItemType itemType,
                     KestXmlLib20::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                     char16_t const* primitiveFormatOverride,
                     bool outputPrimitiveClassAsTextProperty);
  virtual ~CParentElementInfo() = default;

  XmlElementGroupType GetGroupType() const { return m_groupType; }
  XmlElementType GetElementType() const { return m_elementType; }
  std::u16string const& GetElementName() const { return m_elementName; }
  std::u16string const& GetElementNamespace() const { return m_elementNamespace; }
  bool GetFromXmlFailIfAttributeUnknown() const { return m_failIfAttributeUnknown; }
  bool GetHasBaseClasses() const { return m_hasBaseClasses; }
  std::int32_t GetPrimitiveValuePropertyIndex() const { return m_primitiveValuePropertyIndex; }
  KestXmlLib20::ItemType GetItemType() const { return m_itemType; }
  KestXmlLib20::CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const {
    return m_whitespaceRule;
  }
  std::u16string const& GetPrimitiveFormatOverride() const { return m_primitiveFormatOverride; }
  bool GetOutputPrimitiveClassAsTextProperty() const {
    return m_outputPrimitiveClassAsTextProperty;
  }

  /// Whether objects of the class have text and not only elements.
  bool HasSimpleContent() const {
    return m_primitiveValuePropertyIndex != -1 && m_itemType != KestXmlLib20::ItemType_Invalid;
  }

 private:
  friend class KestXmlLib20::CXmlGeneratedClass;

  XmlElementGroupType m_groupType;
  XmlElementType m_elementType;
  std::u16string m_elementName;
  std::u16string m_elementNamespace;
  bool m_failIfAttributeUnknown;
  bool m_hasBaseClasses;
  std::int32_t m_primitiveValuePropertyIndex;
  KestXmlLib20::ItemType m_itemType;
  KestXmlLib20::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
  std::u16string m_primitiveFormatOverride;
  bool m_outputPrimitiveClassAsTextProperty;
  // Of objects that are not nillable. Objects of several types may share a record.
  mutable TypeNote m_notNillable;
};

}  // namespace KestXmlLib20Data

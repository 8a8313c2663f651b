#include "kestxml/binding/metadata/parent_element_info.h"

#include "kestxml/binding/internal/text_view.h"

namespace KestXmlLib20Data {

using KestXmlLib20::internal::ViewOf;

CParentElementInfo::CParentElementInfo(
    XmlElementGroupType groupType, XmlElementType elementType, char16_t const* elementName,
    char16_t const* elementNamespace, bool failIfAttributeUnknown, bool hasBaseClasses,
    std::int32_t primitiveValuePropertyIndex, KestXmlLib20::ItemType itemType,
    KestXmlLib20::CWhitespaceUtils::WhitespaceRule rule, char16_t const* primitiveFormatOverride,
    bool outputPrimitiveClassAsTextProperty)
    : m_groupType(groupType),
      m_elementType(elementType),
      m_elementName(ViewOf(elementName)),
      m_elementNamespace(ViewOf(elementNamespace)),
      m_failIfAttributeUnknown(failIfAttributeUnknown),
      m_hasBaseClasses(hasBaseClasses),
      m_primitiveValuePropertyIndex(primitiveValuePropertyIndex),
      m_itemType(itemType),
      m_whitespaceRule(rule),
      m_primitiveFormatOverride(ViewOf(primitiveFormatOverride)),
      m_outputPrimitiveClassAsTextProperty(outputPrimitiveClassAsTextProperty) {}

}  // namespace KestXmlLib20Data

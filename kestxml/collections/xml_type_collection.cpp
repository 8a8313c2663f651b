#include "kestxml/collections/xml_type_collection.h"

#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"

namespace KestXmlLib20 {
namespace {

// What an event carries is not constant, since that of other collections is an object.
void* DataOf(void const* value) {
  return const_cast<void*>(value);
}

}  // namespace

CXmlTypeCollection::CXmlTypeCollection(
    ItemType itemType, char16_t const* elementName, char16_t const* namespaceURI,
    std::int32_t minOccurs, std::int32_t maxOccurs, char16_t const* pattern, std::int32_t minLength,
    std::int32_t maxLength, char16_t const* minInclusive, char16_t const* maxInclusive,
    char16_t const* minExclusive, char16_t const* maxExclusive, std::int32_t length,
    std::int32_t totalDigits, std::int32_t fractionDigits,
    CWhitespaceUtils::WhitespaceRule whitespaceRule, char16_t const* format)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs),
      m_restrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                     maxExclusive, length, totalDigits, fractionDigits),
      m_itemType(itemType),
      m_formatOverride(format ? format : u""),
      m_whitespaceRule(whitespaceRule) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

void CXmlTypeCollection::Clear() {
  while (GetCount() != 0) Remove(0);
}

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement* /*element*/, CXmlElement* child,
                                             CSerializationContext const& context,
                                             bool /*isOptionalChoice*/) {
  std::u16string const name = GetElementName();
  char16_t const* const ns = CXmlCollectionBase::GetNamespace().data();
  while (child && DoesElementNameMatch(context, child, name.c_str(), ns)) {
    AddFromString(child->GetText());
    child = child->GetNextSiblingElement();
  }
  return child;
}

void CXmlTypeCollection::BeginAdd(std::int32_t index, void const* value) {
  FireOnCollectionAdd(DataOf(value));
  TestIndexToAdd(index, GetCount());
}

void CXmlTypeCollection::EndAdd(void const* value) {
  FireOnCollectionAddComplete(DataOf(value));
  FireOnCollectionChange();
}

void CXmlTypeCollection::BeginRemove(std::int32_t index) {
  FireOnCollectionRemove(index);
  TestIndex(index, GetCount());
}

// Listeners of value collections always get 0 here: programs that were written against that must
// not suddenly take the number for an index.
void CXmlTypeCollection::EndRemove() {
  FireOnCollectionRemoveComplete(0);
  FireOnCollectionChange();
}

void CXmlTypeCollection::CheckFacets(KestVariant const& value) const {
  CheckPrimitiveRestriction(GetElementName().c_str(), value, m_itemType, m_restrictions);
}

void CXmlTypeCollection::WriteValue(CXmlWriter& writer, std::u16string_view elementName,
                                    std::u16string_view text, ItemType itemType) const {
  writer.WriteTextElement(elementName, CXmlCollectionBase::GetNamespace(), text, itemType, false);
}

}  // namespace KestXmlLib20

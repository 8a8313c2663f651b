// What collections of values share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/item_type.h"
#include "kestxml/values/primitive_restrictions.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

/// A repeating element of a simple type: values of one kind, each of which becomes an element with
/// the name and the namespace of the collection. A value is checked against the facets of the type
/// when it is added, also where it is read.
///
/// Whatever adds a value tells listeners CollectionAdd before, CollectionAddComplete after, and
/// CollectionChange; the first two carry a pointer to the value as it was given. CollectionAdd
/// comes ahead of every test (but see CdatetimeBaseCol), so a refused value has been announced.
/// Whatever removes one tells them CollectionRemove with its index, ahead of the test of that
/// index, CollectionRemoveComplete, whose index is 0 whatever was removed, and CollectionChange.
/// The destructor tells nobody.
class KESTXML_API CXmlTypeCollection : public CXmlCollectionBase {
 public:
  /// Removes the first value until there is none. Takes linear time.
  void Clear() override;

 protected:
  /// @param maxOccurs -1 is unbounded.
  /// @param pattern as the nine arguments behind it, a facet: see CPrimitiveRestrictions.
  /// @param whitespaceRule for text that is read.
  /// @param format of the text that is written, for the kinds that have a choice of forms; may be
  ///   null.
  CXmlTypeCollection(ItemType itemType, char16_t const* elementName, char16_t const* namespaceURI,
                     std::int32_t minOccurs, std::int32_t maxOccurs, char16_t const* pattern,
                     std::int32_t minLength, std::int32_t maxLength, char16_t const* minInclusive,
                     char16_t const* maxInclusive, char16_t const* minExclusive,
                     char16_t const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                     std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule whitespaceRule,
                     char16_t const* format);
  ~CXmlTypeCollection() override;

  /// Adds the value that the text of an element stands for.
  /// @throws CKestException for text that is no such value, and for a value that the facets do not
  ///   allow.
  virtual void AddFromString(std::u16string_view text) = 0;

  /// Adds the values of @p child and the siblings behind it, up to the first that has another name.
  /// The count is not tested.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

  // An addition is BeginAdd, the check of the facets, the insertion, and EndAdd; a removal is
  // BeginRemove, the erasure, and EndRemove.

  /// @throws CKestInvalidParamException unless @p index is from 0 to GetCount().
  void BeginAdd(std::int32_t index, void const* value);
  void EndAdd(void const* value);
  /// @throws CKestInvalidParamException unless @p index is from 0 to GetCount() - 1.
  void BeginRemove(std::int32_t index);
  void EndRemove();

  /// False where a check would allow every value.
  bool HasFacets() const { return !m_restrictions.IsEmpty(); }
  /// @throws CKestException when the facets do not allow @p value.
  void CheckFacets(KestVariant const& value) const;

  /// Writes an element with the name and the namespace of the collection.
  /// @param elementName what GetElementName gives.
  void WriteValue(CXmlWriter& writer, std::u16string_view elementName, std::u16string_view text,
                  ItemType itemType) const;

  CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }
  /// Empty where the kind's own form is written.
  std::u16string const& GetFormat() const { return m_formatOverride; }

 private:
  CPrimitiveRestrictions m_restrictions;
  ItemType m_itemType;
  std::u16string m_formatOverride;
  CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

}  // namespace KestXmlLib20

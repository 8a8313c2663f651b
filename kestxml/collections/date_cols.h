// The collections of dates and times.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/collections/value_vector.h"
#include "kestxml/collections/xml_type_collection.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/date_time.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// What collections of dates and times share: values of one type of CDateTime. A value of another
/// type and one that the facets, which are bounds, do not allow are refused before listeners hear
/// of an addition. The rest is as in other collections of values, see CXmlTypeCollection.
///
/// The order of the virtual operations is part of the interface to generated code.
class KESTXML_API CdatetimeBaseCol : public CXmlTypeCollection, private CInstanceMonitor {
 public:
  std::int32_t GetCount() const override { return m_values.GetCount(); }
  void Remove(std::int32_t index) override;

  /// @throws CKestInvalidParamException when @p value has another type than the collection.
  /// @throws CKestException when the facets do not allow it.
  virtual void Add(CDateTime const& value);
  /// @param index from 0 to GetCount(), which adds at the end.
  /// @throws CKestInvalidParamException for any other; then listeners have heard of the addition.
  virtual void AddAt(std::int32_t index, CDateTime const& value) = 0;
  /// @throws CKestInvalidParamException for an index that is not from 0 to GetCount() - 1.
  virtual CDateTime Item(std::int32_t index) const;
  /// The text that is written for @p value.
  virtual std::u16string ItemToString(CDateTime const& value) const = 0;

  // Valid until a value is added or removed. What is assigned through them is neither checked nor
  // announced to listeners.
  auto begin() { return m_values.begin(); }
  auto end() { return m_values.end(); }
  auto begin() const { return m_values.begin(); }
  auto end() const { return m_values.end(); }

 protected:
  using CXmlTypeCollection::CXmlTypeCollection;
  ~CdatetimeBaseCol() override;

  /// Adds a value without a test of its type or a check of its facets.
  void BaseAddAt(std::int32_t index, CDateTime const& value);

  /// Writes an element for each value, all of them of kind ItemType_datetime to the writer.
  /// @throws CKestValidationException for an invalid count, before anything is written.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;

 private:
  internal::ValueVector<CDateTime> m_values;
};

/// A collection of dates of one kind. The classes below are its kinds.
///
/// @tparam kItemType the kind.
/// @tparam kType the type that values must have.
template <ItemType kItemType, CDateTime::DTType kType>
class KESTXML_API CDateKindCol : public CdatetimeBaseCol {
 public:
  /// For the arguments see CXmlTypeCollection.
  CDateKindCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
               std::int32_t maxOccurs, char16_t const* pattern, std::int32_t minLength,
               std::int32_t maxLength, char16_t const* minInclusive, char16_t const* maxInclusive,
               char16_t const* minExclusive, char16_t const* maxExclusive, std::int32_t length,
               std::int32_t totalDigits, std::int32_t fractionDigits,
               CWhitespaceUtils::WhitespaceRule whitespaceRule, char16_t const* format);
  ~CDateKindCol() override;

  void AddAt(std::int32_t index, CDateTime const& value) override;
  std::u16string ItemToString(CDateTime const& value) const override;

 protected:
  void AddFromString(std::u16string_view text) override;
};

class KESTXML_API CdateCol : public CDateKindCol<ItemType_date, CDateTime::dt_date> {
 public:
  using CDateKindCol::CDateKindCol;
};

class KESTXML_API CdatetimeCol : public CDateKindCol<ItemType_datetime, CDateTime::dt_dateTime> {
 public:
  using CDateKindCol::CDateKindCol;
};

class KESTXML_API CtimeCol : public CDateKindCol<ItemType_time, CDateTime::dt_time> {
 public:
  using CDateKindCol::CDateKindCol;
};

class KESTXML_API CmonthDayCol : public CDateKindCol<ItemType_monthDay, CDateTime::dt_gMonthDay> {
 public:
  using CDateKindCol::CDateKindCol;
};

class KESTXML_API CyearMonthCol
    : public CDateKindCol<ItemType_yearMonth, CDateTime::dt_gYearMonth> {
 public:
  using CDateKindCol::CDateKindCol;
};

}  // namespace KestXmlLib20

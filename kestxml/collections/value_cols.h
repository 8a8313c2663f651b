// The collections of values, but for those of dates.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "kestxml/collections/value_vector.h"
#include "kestxml/collections/xml_type_collection.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/big_integer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/date_time_span.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// A collection of values of one kind; see CXmlTypeCollection for checks and events. The classes
/// below are its kinds. What only a kind says of itself is how a value is written and read: as
/// CConversions does for the kind.
///
/// @tparam kItemType the kind.
/// @tparam T its values.
template <ItemType kItemType, typename T>
class KESTXML_API CValueCol : public CXmlTypeCollection, private CInstanceMonitor {
 public:
  /// Scalars and text go by value, all else by reference.
  using Argument =
      std::conditional_t<std::is_scalar_v<T> || std::is_same_v<T, std::u16string>, T, T const&>;

  /// For the arguments see CXmlTypeCollection.
  CValueCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
            std::int32_t maxOccurs, char16_t const* pattern, std::int32_t minLength,
            std::int32_t maxLength, char16_t const* minInclusive, char16_t const* maxInclusive,
            char16_t const* minExclusive, char16_t const* maxExclusive, std::int32_t length,
            std::int32_t totalDigits, std::int32_t fractionDigits,
            CWhitespaceUtils::WhitespaceRule whitespaceRule, char16_t const* format);
  ~CValueCol() override;

  std::int32_t GetCount() const override { return m_values.GetCount(); }
  void Remove(std::int32_t index) override;

  /// @throws CKestException when the facets do not allow @p value.
  void Add(Argument value);
  /// @param index from 0 to GetCount(), which adds at the end.
  /// @throws CKestInvalidParamException for any other.
  void AddAt(std::int32_t index, Argument value);
  /// @throws CKestInvalidParamException for an index that is not from 0 to GetCount() - 1.
  T Item(std::int32_t index) const;

  // Valid until a value is added or removed. What is assigned through them is neither checked nor
  // announced to listeners.
  auto begin() { return m_values.begin(); }
  auto end() { return m_values.end(); }
  auto begin() const { return m_values.begin(); }
  auto end() const { return m_values.end(); }

 protected:
  void AddFromString(std::u16string_view text) override;
  /// Writes an element for each value.
  /// @throws CKestValidationException for an invalid count, before anything is written.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;

 private:
  internal::ValueVector<T> m_values;
};

/// Bytes as hexadecimal digits. Facets: lengths, in bytes.
class KESTXML_API ChexBinaryCol : public CValueCol<ItemType_hexBinary, CBinaryData> {
 public:
  using CValueCol::CValueCol;
};

/// Bytes as base64. Facets: lengths, in bytes.
class KESTXML_API Cbase64BinaryCol : public CValueCol<ItemType_base64Binary, CBinaryData> {
 public:
  using CValueCol::CValueCol;
};

// Integers of 8 to 64 bits, signed and unsigned. Facets: bounds and total digits.

class KESTXML_API Ci1Col : public CValueCol<ItemType_i1, signed char> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Ci2Col : public CValueCol<ItemType_i2, std::int16_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Ci4Col : public CValueCol<ItemType_i4, std::int32_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Ci8Col : public CValueCol<ItemType_i8, std::int64_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Cui1Col : public CValueCol<ItemType_ui1, unsigned char> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Cui2Col : public CValueCol<ItemType_ui2, std::uint16_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Cui4Col : public CValueCol<ItemType_ui4, std::uint32_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Cui8Col : public CValueCol<ItemType_ui8, std::uint64_t> {
 public:
  using CValueCol::CValueCol;
};

// Floating-point numbers. Facets: bounds. The format is that of CConversions::r4ToString.

class KESTXML_API Cr4Col : public CValueCol<ItemType_r4, float> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API Cr8Col : public CValueCol<ItemType_r8, double> {
 public:
  using CValueCol::CValueCol;
};

// Years, months and days. Facets: bounds. A year before Christ that is read wraps to a large one.

class KESTXML_API CyearCol : public CValueCol<ItemType_year, std::uint16_t> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API CmonthCol : public CValueCol<ItemType_month, unsigned char> {
 public:
  using CValueCol::CValueCol;
};

class KESTXML_API CdayCol : public CValueCol<ItemType_day, unsigned char> {
 public:
  using CValueCol::CValueCol;
};

/// Lengths of time. Facets: bounds.
class KESTXML_API CdurationCol : public CValueCol<ItemType_duration, CDateTimeSpan> {
 public:
  using CValueCol::CValueCol;
};

/// Decimals. Facets: bounds, total digits and fraction digits. The format is that of
/// CConversions::decimalToString, such as u"2".
class KESTXML_API CdecimalCol : public CValueCol<ItemType_decimal, CDecimal> {
 public:
  using CValueCol::CValueCol;
};

/// Integers of any length. Facets: bounds and total digits.
class KESTXML_API CintegerCol : public CValueCol<ItemType_integer, CBigInteger> {
 public:
  using CValueCol::CValueCol;
};

/// Text. Facets: lengths, in UTF-16 units, and the pattern. The whitespace rule applies to text
/// that is read; text that a program adds stays as it is.
class KESTXML_API CstringCol : public CValueCol<ItemType_string, std::u16string> {
 public:
  using CValueCol::CValueCol;
};

/// Booleans, a bit for each. No facets.
class KESTXML_API CbooleanCol : public CValueCol<ItemType_boolean, bool> {
 public:
  using CValueCol::CValueCol;
};

}  // namespace KestXmlLib20

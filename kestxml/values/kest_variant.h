// The tagged value in which properties travel between objects and the formats.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/item_type.h"
#include "kestxml/values/smart_ptr.h"
#include "kestxml/values/whitespace_utils.h"

namespace KestXmlLib20 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CXmlCollectionBase;
class CXmlObjectBase;

/// A value of one of the kinds of ItemType, an explicit nil of a kind, or nothing. Scalars lie
/// inside; strings, binary data, dates and spans are owned; objects are counted references. One
/// thread at a time uses a variant; what a copy of it shares may be used by another.
struct KESTXML_API KestVariant {
 public:
  KestVariant() = default;
  /// A deep copy: but binary data shares its bytes and an object is one more reference to it. A
  /// nil stays a nil of its kind.
  KestVariant(KestVariant const& other);
  KestVariant(KestVariant&& other) noexcept;
  KestVariant& operator=(KestVariant const& other);
  KestVariant& operator=(KestVariant&& other) noexcept;
  virtual ~KestVariant();

  /// Gives the value up: the kind is ItemType_Invalid then, and nil is not set. A variant without a
  /// kind is left as it is, with its nil if SetNil has set one; that nil also outlives the next
  /// typed setter.
  void Clear();
  void SetInvalid() { Clear(); }

  /// True when there is a kind or a nil.
  bool IsValid() const { return m_type != ItemType_Invalid || m_nil; }

  /// Gives the value up but keeps the kind: a nil of that kind.
  void SetNil();
  bool IsNil() const { return m_nil; }

  ItemType GetTypeAsEnum() const { return m_type; }
  /// The name of the kind, such as "i4".
  /// @throws CKestException when there is no kind or it has no name, as those of objects.
  std::u16string GetType() const;

  /// The text form of the value, that of CConversions. It does not look at nil: test IsNil first.
  /// @param format used by r4, r8 and decimal alone, see CConversions; may be null.
  /// @throws CKestException when the kind has no text form.
  std::u16string ToString(char16_t const* format = nullptr) const;

  /// Reads a value of kind @p type from @p text, as CConversions does; a failure leaves the variant
  /// as it was.
  /// @throws CKestException when @p type can't be read from text. The message names the present
  ///   kind of the variant, not @p type.
  void FromString(std::u16string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

  // Each setter gives up the old value and stores the new one with its kind.
  void SetHexBinary(CBinaryData const& value);
  void SetBase64Binary(CBinaryData const& value);
  void SetI1(signed char value);
  void SetI2(std::int16_t value);
  void SetI4(std::int32_t value);
  void SetI8(std::int64_t value);
  void SetUI1(unsigned char value);
  void SetUI2(std::uint16_t value);
  void SetUI4(std::uint32_t value);
  void SetUI8(std::uint64_t value);
  void SetR4(float value);
  void SetR8(double value);
  void SetDuration(CDateTimeSpan const& value);
  // These five take a date of any type.
  void SetYearMonth(CDateTime const& value);
  void SetMonthDay(CDateTime const& value);
  void SetDate(CDateTime const& value);
  void SetDateTime(CDateTime const& value);
  void SetTime(CDateTime const& value);
  void SetYear(std::uint16_t value);
  void SetMonth(unsigned char value);
  void SetDay(unsigned char value);
  void SetChar(char16_t value);
  void SetString(std::u16string_view value);
  void SetString(std::u16string const& value) { SetString(std::u16string_view(value)); }
  void SetString(char16_t const* value) { SetString(std::u16string_view(value ? value : u"")); }
  void SetString(std::u16string&& value);
  /// Stores no copy: @p value must stay as it is for as long as this variant holds it, so this is
  /// for handing out the string of a property. A copy of the variant has a copy of the string.
  void SetStringReference(std::u16string const& value);
  void SetBoolean(bool value);
  void SetDecimal(CDecimal const& value);
  void SetInteger(CBigInteger const& value);
  /// Takes a reference to @p value, which may be null.
  void SetXmlObject(CXmlObjectBase* value);
  void SetXmlCollection(CXmlCollectionBase* value);

  // The getters test nothing: the caller knows the kind. A getter of a scalar reads the first bytes
  // of whatever is stored, so GetI1, GetUI1, GetMonth and GetDay read the same one. A getter of
  // anything else gives an empty value when none of its sort is stored.
  CBinaryData GetHexBinary() const;
  CBinaryData GetBase64Binary() const;
  signed char GetI1() const;
  std::int16_t GetI2() const;
  std::int32_t GetI4() const;
  std::int64_t GetI8() const;
  unsigned char GetUI1() const;
  std::uint16_t GetUI2() const;
  std::uint32_t GetUI4() const;
  std::uint64_t GetUI8() const;
  float GetR4() const;
  double GetR8() const;
  CDateTimeSpan GetDuration() const;
  CDateTime GetYearMonth() const;
  CDateTime GetMonthDay() const;
  CDateTime GetDate() const;
  CDateTime GetDateTime() const;
  CDateTime GetTime() const;
  std::uint16_t GetYear() const;
  unsigned char GetMonth() const;
  unsigned char GetDay() const;
  char16_t GetChar() const;
  /// Valid until the variant changes.
  std::u16string const& GetString() const;
  /// The string, of which this variant may give up its own: for storing it in a property. What
  /// GetString gives afterwards is open.
  std::u16string TakeString();
  bool GetBoolean() const;
  CDecimal GetDecimal() const;
  CBigInteger GetInteger() const;
  CSmartPtr<CXmlObjectBase> GetXmlObject() const;
  CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;

 private:
  template <typename T>
  void Store(T value);
  template <typename T>
  T Load() const;
  template <typename T>
  void SetScalar(ItemType type, T value);
  template <typename T>
  void SetOwned(ItemType type, T const& value);
  template <typename T>
  T const* GetOwned() const;
  template <typename T>
  void SetCounted(ItemType type, T* value);
  template <typename T>
  CSmartPtr<T> GetCounted() const;
  void ReleaseValue();
  void Swap(KestVariant& other) noexcept;

  bool m_nil = false;
  ItemType m_type = ItemType_Invalid;
  // The bytes of a scalar, or of the pointer to anything else, such as a string of another owner.
  // Zero where nothing is stored.
  std::uint64_t m_value = 0;
  std::u16string m_text;  // a string of its own
};

}  // namespace KestXmlLib20

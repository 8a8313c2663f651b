// Where to send things to: a choice of kinds of address.
#pragma once

#include <optional>

#include "examples/orders/order_class.h"

namespace KestOrders {

/// A building. A sequence with a collection of values in it: the lines between name and postcode.
class CPostal : public COrderClass {
 public:
  explicit CPostal(char16_t const* elementName = u"postal");

  std::u16string const& GetName() const { return m_name; }
  void SetName(std::u16string const& value);
  /// One to three lines; a line is checked when it is added.
  KestXmlLib20::CstringCol& GetLines() const { return *m_lines; }
  std::u16string const& GetPostcode() const { return m_postcode; }
  void SetPostcode(std::u16string const& value);
  std::u16string const& GetCity() const { return m_city; }
  void SetCity(std::u16string const& value);
  /// Two letters of ISO 3166.
  std::u16string const& GetCountry() const { return m_country; }
  void SetCountry(std::u16string const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_name;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CstringCol> m_lines;
  std::u16string m_postcode;
  std::u16string m_city;
  std::u16string m_country;
};

/// A choice: of its three members one is set. To change to another, unset the first.
class CAddress : public COrderClass {
 public:
  /// An address stands under several names, so there is no default.
  explicit CAddress(char16_t const* elementName);

  /// The name of the member that is set, empty when none is.
  std::u16string const& GetSelection() const { return m_selection; }

  // The setters throw KestXmlLib20::CKestInvalidStateException when another member is set and this
  // one is to have a value. Null and std::nullopt unset it.

  KestXmlLib20::CSmartPtr<CPostal> GetPostal() const { return m_postal; }
  void SetPostal(CPostal* value);
  std::optional<std::u16string> const& GetPoBox() const { return m_poBox; }
  void SetPoBox(std::optional<std::u16string> const& value);
  /// A global location number, 13 digits.
  std::optional<std::u16string> const& GetGln() const { return m_gln; }
  void SetGln(std::optional<std::u16string> const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_selection;
  KestXmlLib20::CSmartPtr<CPostal> m_postal;
  std::optional<std::u16string> m_poBox;
  std::optional<std::u16string> m_gln;
};

}  // namespace KestOrders

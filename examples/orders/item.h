// What is ordered: an item, and the kinds of items that add to it.
#pragma once

#include <optional>

#include "examples/orders/discount.h"
#include "examples/orders/enumerations.h"
#include "examples/orders/object_col.h"
#include "examples/orders/order_class.h"

namespace KestOrders {

/// The base type of items, which is also one of its own.
class CItem : public COrderClass {
 public:
  CItem();

  std::u16string const& GetSku() const { return m_sku; }
  void SetSku(std::u16string const& value);
  std::u16string const& GetName() const { return m_name; }
  void SetName(std::u16string const& value);
  std::uint32_t GetQuantity() const { return m_quantity; }
  void SetQuantity(std::uint32_t value);
  /// Of one piece.
  Money const& GetPrice() const { return m_price; }
  void SetPrice(Money const& value);
  /// At most two.
  CObjectCol<CDiscount>& GetDiscounts() const { return *m_discounts; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 protected:
  // What derived classes begin their tables with, and the first number for properties of theirs.
  static ElementEntries GetItemElements();
  static AttributeEntries GetItemAttributes();
  static constexpr std::int32_t kFirstDerivedProperty = 5;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_sku;
  std::u16string m_name;
  std::uint32_t m_quantity = 1;
  Money m_price;
  KestXmlLib20::CSmartPtr<CObjectCol<CDiscount>> m_discounts;
};

/// `<item xsi:type="BookItem">`
class CBookItem : public CItem {
 public:
  CBookItem();

  std::u16string const& GetIsbn() const { return m_isbn; }
  void SetIsbn(std::u16string const& value);
  KestXmlLib20::CstringCol& GetAuthors() const { return *m_authors; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_isbn;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CstringCol> m_authors;
};

/// `<item xsi:type="ServiceItem">`
class CServiceItem : public CItem {
 public:
  CServiceItem();

  /// Nothing until it is set; without it the item can't be written.
  std::optional<Duration> const& GetDuration() const { return m_duration; }
  void SetDuration(Duration const& value);
  std::optional<ServicePlace> GetPlace() const { return m_place; }
  void SetPlace(std::optional<ServicePlace> value) { m_place = value; }
  /// The days on which it is done, up to five.
  KestXmlLib20::CdateCol& GetVisits() const { return *m_visits; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::optional<Duration> m_duration;
  std::optional<ServicePlace> m_place;
  KestXmlLib20::CSmartPtr<KestXmlLib20::CdateCol> m_visits;
};

}  // namespace KestOrders

// How an order is paid: one of three ways.
#pragma once

#include <optional>

#include "examples/orders/object_col.h"
#include "examples/orders/order_class.h"

namespace KestOrders {

/// Simple content: the digits of a card, with the month until which it is valid.
class CCard : public COrderClass {
 public:
  explicit CCard(char16_t const* elementName = u"card");

  /// Four digits behind twelve stars.
  std::u16string const& GetNumber() const { return m_number; }
  void SetNumber(std::u16string const& value);
  Month const& GetExpires() const { return m_expires; }
  void SetExpires(Month const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  std::u16string m_number;
  Month m_expires;
};

/// Simple content: a part of the sum, with its day.
class CInstalment : public COrderClass {
 public:
  explicit CInstalment(char16_t const* elementName = u"instalment");

  Money const& GetAmount() const { return m_amount; }
  void SetAmount(Money const& value);
  Date const& GetDue() const { return m_due; }
  void SetDue(Date const& value);

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;

  Money m_amount;
  Date m_due;
};

/// A choice in the middle of a sequence: a group that has no element of its own and reads from the
/// children of the order. One of its members is a collection, which tells the group of its changes.
class CPayment : public COrderClass {
 public:
  explicit CPayment(char16_t const* elementName = u"payment");

  /// The name of the member that is set, empty when none is.
  std::u16string const& GetSelection() const { return m_selection; }

  // The setters, and adding an instalment, throw KestXmlLib20::CKestInvalidStateException when
  // another member is set and this one is to have a value. Null and std::nullopt unset it.

  /// Within how many days.
  std::optional<std::int16_t> const& GetInvoice() const { return m_invoice; }
  void SetInvoice(std::optional<std::int16_t> value);
  KestXmlLib20::CSmartPtr<CCard> GetCard() const { return m_card; }
  void SetCard(CCard* value);
  /// Two to twelve.
  CObjectCol<CInstalment>& GetInstalments() const { return *m_instalments; }

  void AccessProperty(std::int32_t propertyIndex, bool read,
                      KestXmlLib20::KestVariant& value) override;
  void Init() override;

 protected:
  ~CPayment() override;
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override;

 private:
  CTables& GetTables() const override { return s_tables; }
  static CTables s_tables;
  void ReleaseInstalments();

  std::u16string m_selection;
  std::optional<std::int16_t> m_invoice;
  KestXmlLib20::CSmartPtr<CCard> m_card;
  KestXmlLib20::CSmartPtr<CObjectCol<CInstalment>> m_instalments;
};

}  // namespace KestOrders

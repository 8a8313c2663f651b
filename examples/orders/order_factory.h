// Makes the objects of the order schema, for the entries of tables that must make one.
#pragma once

#include <cstdint>

#include "kestxml/kestxml.h"

namespace KestOrders {

class CItem;

/// The classes that an entry for one known class can ask for.
enum class ClassId : std::int32_t { Address, Approval, Card, Customer, Header, Payment, Postal };

class COrderFactory : public KestXmlLib20::CClassfactoryBase {
 public:
  /// For entries of one known class.
  static KestXmlLib20::CSmartPtr<KestXmlLib20::CXmlObjectBase> Create(int classId,
                                                                      char16_t const* elementName);
  /// For items, whose class depends on xsi:type: null for a type that the schema does not have.
  static KestXmlLib20::CSmartPtr<CItem> CreateItem(KestXmlLib20::CXmlElement* element);
};

}  // namespace KestOrders

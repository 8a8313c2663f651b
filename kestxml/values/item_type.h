// The one list of the kinds of value that a property can hold.
#pragma once

#include <cstdint>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// A kind of value. Generated code passes the numbers in its tables: they never change.
enum KESTXML_API ItemType : std::int32_t {
  ItemType_Invalid = 0,  ///< no value
  ItemType_hexBinary = 1,
  ItemType_base64Binary = 2,
  ItemType_i1 = 3,    ///< signed, 8 bits
  ItemType_i2 = 4,    ///< signed, 16 bits
  ItemType_i4 = 5,    ///< signed, 32 bits
  ItemType_i8 = 6,    ///< signed, 64 bits
  ItemType_ui1 = 7,   ///< unsigned, 8 bits
  ItemType_ui2 = 8,   ///< unsigned, 16 bits
  ItemType_ui4 = 9,   ///< unsigned, 32 bits
  ItemType_ui8 = 10,  ///< unsigned, 64 bits
  ItemType_r4 = 11,   ///< float
  ItemType_r8 = 12,   ///< double
  ItemType_duration = 13,
  ItemType_yearMonth = 14,
  ItemType_monthDay = 15,
  ItemType_year = 16,   ///< unsigned, 16 bits
  ItemType_month = 17,  ///< unsigned, 8 bits
  ItemType_day = 18,    ///< unsigned, 8 bits
  ItemType_date = 19,
  ItemType_datetime = 20,
  ItemType_time = 21,
  ItemType_char = 22,  ///< one UTF-16 unit
  ItemType_string = 23,
  ItemType_boolean = 24,
  ItemType_decimal = 25,
  ItemType_integer = 26,  ///< of any length
  ItemType_xmlObject = 27,
  ItemType_xmlCollection = 28,
};

/// How many kinds there are, ItemType_Invalid among them.
inline constexpr int kItemTypeCount = 29;

}  // namespace KestXmlLib20

// The text form of a property that is written.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20::internal {

/// KestVariant::ToString, without a copy of what is a string already. The variant must outlive it.
class ValueText {
 public:
  ValueText(KestVariant const& value, std::u16string const& format)
      : m_buffer(value.GetTypeAsEnum() == ItemType_string ? std::u16string()
                                                          : value.ToString(format.c_str())),
        m_text(value.GetTypeAsEnum() == ItemType_string ? value.GetString() : m_buffer) {}

  operator std::u16string_view() const { return m_text; }

 private:
  std::u16string m_buffer;
  std::u16string const& m_text;
};

}  // namespace KestXmlLib20::internal

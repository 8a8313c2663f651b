// What xsi:nil says.
#pragma once

#include <optional>
#include <string_view>

namespace KestXmlLib20 {
class CXmlAttribute;
class CXmlElement;
}  // namespace KestXmlLib20

namespace KestXmlLib20::internal {

/// "true" and "1", "false" and "0", in any case; nothing for any other text.
std::optional<bool> ReadNilText(std::u16string_view text);

[[noreturn]] void ThrowNotNillable(CXmlElement const& element);
[[noreturn]] void ThrowUnexpectedNilText(CXmlAttribute const& attribute);

}  // namespace KestXmlLib20::internal

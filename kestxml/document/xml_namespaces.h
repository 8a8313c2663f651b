// The namespaces that XML and XML Schema themselves define.
#pragma once

#include <string_view>

namespace KestXmlLib20 {

inline constexpr std::u16string_view kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";
inline constexpr std::u16string_view kXmlnsNamespace = u"http://www.w3.org/2000/xmlns/";
inline constexpr std::u16string_view kXmlSchemaInstanceNamespace =
    u"http://www.w3.org/2001/XMLSchema-instance";

}  // namespace KestXmlLib20

#include "kestxml/json/json_context.h"

namespace KestXmlLib20 {

CJsonContext::CJsonContext() = default;
CJsonContext::CJsonContext(CJsonContext const&) = default;
CJsonContext& CJsonContext::operator=(CJsonContext const&) = default;
CJsonContext::~CJsonContext() = default;

void CJsonContext::SetRootElementName(char16_t const* name) {
  m_rootElementName = name ? name : u"";
}

}  // namespace KestXmlLib20

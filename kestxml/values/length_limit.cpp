#include "kestxml/values/length_limit.h"

#include <cstdint>

#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

void ThrowTooManyBytes() {
  throw CKestException(FormatString(u"The document exceeds the limit of %I64u bytes.", UINT32_MAX));
}

}  // namespace KestXmlLib20

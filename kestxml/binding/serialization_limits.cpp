#include "kestxml/binding/serialization_limits.h"

#include <utility>

#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

void CSerializationLimits::ThrowTooDeep(std::uint32_t bound, std::u16string path) {
  throw CKestException(
      FormatString(u"The document exceeds the limit of %d nested elements.", bound),
      std::move(path));
}

void CSerializationLimits::ThrowTooManyAttributes(std::uint32_t bound, std::u16string path) {
  throw CKestException(FormatString(u"An element exceeds the limit of %d attributes.", bound),
                       std::move(path));
}

void CSerializationLimits::ThrowTooManyNamespaceDeclarations(std::uint32_t bound,
                                                             std::u16string path) {
  throw CKestException(
      FormatString(u"An element exceeds the limit of %d namespace declarations.", bound),
      std::move(path));
}

void CSerializationLimits::ThrowTooManyElements(std::uint64_t bound, std::u16string path) {
  throw CKestException(FormatString(u"The document exceeds the limit of %I64u elements.", bound),
                       std::move(path));
}

void CSerializationLimits::ThrowNamespaceTooLong(std::uint32_t bound, std::u16string path) {
  throw CKestException(FormatString(u"A namespace exceeds the limit of %d characters.", bound),
                       std::move(path));
}

void CSerializationLimits::ThrowTooManyAbandoned(std::uint64_t bound, std::u16string path) {
  throw CKestException(
      FormatString(u"The document exceeds the limit of %I64u abandoned elements.", bound),
      std::move(path));
}

}  // namespace KestXmlLib20

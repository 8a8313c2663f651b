#include "kestxml/document/internal/output_file.h"

#include <utility>

#include "kestxml/document/internal/text_bytes.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20::internal {

platform::File CreateOutputFile(std::u16string const& fileName, XmlEncoding encoding) {
  auto created = platform::File::CreateForWriting(ToUtf8(fileName));
  if (created.error) ThrowWriteFailed(fileName, created.error);
  auto const mark = ByteOrderMark(encoding);
  auto const written = created.value.WriteAt(0, mark.data(), mark.size());
  if (written.error) ThrowWriteFailed(fileName, written.error);
  return std::move(created.value);
}

void ThrowWriteFailed(std::u16string const& fileName, platform::ErrorCode error) {
  throw CKestException(
      FormatString(u"Failed to write data to the file [%s] error [0x%08X]", fileName, error));
}

}  // namespace KestXmlLib20::internal

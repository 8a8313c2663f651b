// Whether files are written while their document is still being produced.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// With true, uncompressed output to a file goes out piece by piece while the object is walked, in
/// bounded memory; a failure then leaves a partly written file. With false, the start value, the
/// file is made when its bytes are complete. One setting for the process, read without a lock: set
/// it before work starts.
KESTXML_API void AsyncToXmlFile(bool async);
/// What AsyncToXmlFile set.
KESTXML_API bool GetAsyncToXmlFile();

}  // namespace KestXmlLib20

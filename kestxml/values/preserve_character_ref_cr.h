// Whether a carriage return that was written as a character reference survives.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// True when carriage returns in character data are kept on reading, written as "&#xD;" and left
/// alone by the preserve rule; false, the start value, drops them on reading and writing, and the
/// preserve rule makes line feeds of them. One setting for the process,
/// read without a lock: set it before work starts.
KESTXML_API bool GetPreserveCharacterRefCR();
KESTXML_API void SetPreserveCharacterRefCR(bool preserve);

}  // namespace KestXmlLib20

#include "kestxml/values/preserve_character_ref_cr.h"

namespace KestXmlLib20 {
namespace {
bool preserveCharacterRefCR = false;
}

bool GetPreserveCharacterRefCR() {
  return preserveCharacterRefCR;
}
void SetPreserveCharacterRefCR(bool preserve) {
  preserveCharacterRefCR = preserve;
}

}  // namespace KestXmlLib20

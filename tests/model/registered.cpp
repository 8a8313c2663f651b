// Registers the version of the generator, as generated code does, before any test makes an object.
#include "kestxml/binding/register.h"

namespace {
[[maybe_unused]] bool const registered = (KestXmlLib20::Register(20, 0), true);
}

#include "kestxml/binding/register.h"

#include <atomic>

#include "kestxml/binding/internal/version_guard.h"
#include "kestxml/platform/message_channel.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

constexpr int kRuntimeMajor = 20;
constexpr int kRuntimeMinor = 0;

// Ready before any dynamic initialisation: static objects of generated code pass the guard, too.
// Atomic because the first objects of a process may be made on several threads at once.
constinit std::atomic<int> registeredMajor{0};
constinit std::atomic<int> registeredMinor{0};
constinit std::atomic<bool> firstObjectSeen{false};

bool VersionFits() {
  return registeredMajor.load(std::memory_order_relaxed) == kRuntimeMajor &&
         registeredMinor.load(std::memory_order_relaxed) == kRuntimeMinor;
}

std::u16string WithVersions(char16_t const* format) {
  return FormatString(format, kRuntimeMajor, kRuntimeMinor, registeredMajor.load(),
                      registeredMinor.load());
}

void ShowMismatch() {
  std::u16string const text = WithVersions(
      u"Please ensure your generated code is the same version as this library "
      u"(Kest Runtime: v%d.%d, Generator: v%d.%d).");
  platform::ShowMessage("Version Mismatch Error", ToUtf8(text).c_str());
}

}  // namespace

void Register(int generatorMajor, int generatorMinor) {
  registeredMajor = generatorMajor;
  registeredMinor = generatorMinor;
}

namespace internal {

void CheckVersionOfFirstObject() {
  if (firstObjectSeen.load(std::memory_order_relaxed) || firstObjectSeen.exchange(true)) return;
  if (!VersionFits()) ShowMismatch();
}

void CheckVersion() {
  if (VersionFits()) return;
  ShowMismatch();
  throw CKestException(WithVersions(u"Wrong Version (Kest Runtime: v%d.%d, Generator: v%d.%d)"));
}

}  // namespace internal
}  // namespace KestXmlLib20

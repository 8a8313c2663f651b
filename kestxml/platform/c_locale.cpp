#include "kestxml/platform/c_locale.h"

#include <locale.h>

#include <cstdio>

namespace KestXmlLib20::platform {
namespace {

// Made on first use, so that static objects elsewhere may print; never freed, for the same reason.
locale_t CLocale() {
  static locale_t const handle = newlocale(LC_ALL_MASK, "C", nullptr);
  return handle;
}

class CLocaleScope {
 public:
  CLocaleScope() : m_previous(uselocale(CLocale())) {}
  CLocaleScope(CLocaleScope const&) = delete;
  CLocaleScope& operator=(CLocaleScope const&) = delete;
  ~CLocaleScope() { uselocale(m_previous); }

 private:
  locale_t m_previous;
};

}  // namespace

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
std::string PrintDouble(char const* format, int width, int precision, double value) {
  CLocaleScope const scope;
  int const length = std::snprintf(nullptr, 0, format, width, precision, value);
  if (length <= 0) return {};
  std::string text(static_cast<std::size_t>(length), '\0');
  std::snprintf(text.data(), text.size() + 1, format, width, precision, value);
  return text;
}
#pragma GCC diagnostic pop

}  // namespace KestXmlLib20::platform

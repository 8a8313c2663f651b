#include "kestxml/binding/internal/namespace_restriction.h"

#include <string_view>

#include "kestxml/binding/internal/text_view.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20::internal {
namespace {

struct Wildcard {
  std::u16string_view restriction, target;

  bool Admits(std::u16string_view token, std::u16string_view ns) const {
    if (token == u"##any") return true;
    if (token == u"##other") return ns != target;
    if (token == u"##local") return ns.empty();
    if (token == u"##targetNamespace") return ns == target;
    return ns.empty() || ns == restriction;
  }
};

}  // namespace

bool IsNamespaceValid(char16_t const* ns, char16_t const* restriction, char16_t const* target) {
  Wildcard const wildcard{ViewOf(restriction), ViewOf(target)};
  std::u16string_view const name = ViewOf(ns);
  auto const blank = wildcard.restriction.find(u' ');
  if (wildcard.Admits(wildcard.restriction.substr(0, blank), name)) return true;
  // Behind the first token only a blank is left, so each further token would be empty.
  return blank != std::u16string_view::npos && wildcard.Admits({}, name);
}

void TestNamespace(char16_t const* ns, char16_t const* restriction, char16_t const* target) {
  if (IsNamespaceValid(ns, restriction, target)) return;
  throw CKestInvalidNamespaceException(
      FormatString(u"Invalid namespace [%s]. The namespace must be one of [%s] where the target "
                   u"namespace is [%s].",
                   ViewOf(ns), ViewOf(restriction), ViewOf(target)),
      u"");
}

}  // namespace KestXmlLib20::internal

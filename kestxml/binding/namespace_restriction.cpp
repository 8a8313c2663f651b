#include "kestxml/binding/internal/namespace_restriction.h"

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

bool IsNamespaceValid(std::u16string_view ns, std::u16string_view restriction,
                      std::u16string_view target) {
  Wildcard const wildcard{restriction, target};
  auto const blank = restriction.find(u' ');
  if (wildcard.Admits(restriction.substr(0, blank), ns)) return true;
  // Behind the first token only a blank is left, so each further token would be empty.
  return blank != std::u16string_view::npos && wildcard.Admits({}, ns);
}

void TestNamespace(std::u16string_view ns, std::u16string_view restriction,
                   std::u16string_view target) {
  if (IsNamespaceValid(ns, restriction, target)) return;
  throw CKestInvalidNamespaceException(
      FormatString(u"Invalid namespace [%s]. The namespace must be one of [%s] where the target "
                   u"namespace is [%s].",
                   ns, restriction, target),
      u"");
}

}  // namespace KestXmlLib20::internal

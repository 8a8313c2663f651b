// The test of a namespace against the namespace restriction of a schema wildcard.
#pragma once

#include <string_view>

namespace KestXmlLib20::internal {

/// Whether @p ns satisfies @p restriction: "##any", "##other" (not @p target), "##local" (empty),
/// "##targetNamespace", or anything else, which asks for @p ns to be empty or equal to all of it.
///
/// Of a list with blanks only the first token counts; what stands behind the first blank is never
/// looked at, and @p ns then still passes when it is empty or equal to the whole list. Generated
/// code gives lists only in a form that a first token decides. No other namespace can pass, and
/// further turns over the list can't change that, so the result is then false.
bool IsNamespaceValid(std::u16string_view ns, std::u16string_view restriction,
                      std::u16string_view target);

/// @throws CKestInvalidNamespaceException, with an empty path, unless IsNamespaceValid.
void TestNamespace(std::u16string_view ns, std::u16string_view restriction,
                   std::u16string_view target);

}  // namespace KestXmlLib20::internal

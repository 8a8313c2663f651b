// Matching of values against patterns of XML Schema.
#pragma once

#include <string_view>

namespace KestXmlLib20::internal {

/// Whether the whole of @p value matches @p pattern, in the reading of XML Schema's regular
/// expressions that CheckPrimitiveRestriction tells. Of both, what follows an unpaired surrogate
/// is not looked at, nor what follows a null unit of the value.
/// @throws CKestException for a pattern that PCRE2 refuses: "Invalid Regular Expression: ...",
///   which shows the value.
bool MatchXsdPattern(std::u16string_view pattern, std::u16string_view value);

}  // namespace KestXmlLib20::internal

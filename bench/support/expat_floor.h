// The floor under every reading: what Expat alone takes for the same bytes.
#pragma once

#include <string_view>

namespace KestBench {

/// Parses @p document whole, in one final call of a new parser of the library's configuration:
/// UTF-16 inside, namespaces on, handlers for elements, namespace declarations and text, which do
/// nothing. At most 1 GiB.
/// @throws std::runtime_error when Expat refuses the document.
void ParseWithBareExpat(std::string_view document);

}  // namespace KestBench

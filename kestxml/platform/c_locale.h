// Floating-point printing that no locale of the user can reach.
#pragma once

#include <string>

namespace KestXmlLib20::platform {

/// What printf gives in the "C" locale for @p format, which holds exactly one conversion of a
/// double with both width and precision as `*`.
std::string PrintDouble(char const* format, int width, int precision, double value);

}  // namespace KestXmlLib20::platform

// Text for tables on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace KestDemo {

/// @p text in UTF-8, filled with blanks to @p width characters.
std::string Left(std::u16string_view text, std::size_t width);

/// 7910 as "7,910", filled with blanks on the left to @p width.
std::string Grouped(std::size_t number, std::size_t width = 0);

/// @p number with @p places digits behind the point.
std::string Fixed(double number, int places);

}  // namespace KestDemo

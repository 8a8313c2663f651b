// What has changed between two texts.
#pragma once

#include <ostream>
#include <string_view>

namespace KestDemo {

/// Prints the lines that only one of two texts has: those of @p before behind a minus sign, those
/// of @p after behind a plus sign.
void PrintChangedLines(std::ostream& out, std::string_view before, std::string_view after);

}  // namespace KestDemo

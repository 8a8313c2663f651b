#include "examples/demo/columns.h"

#include <algorithm>
#include <cstdio>

#include "kestxml/kestxml.h"

namespace KestDemo {

std::string Left(std::u16string_view text, std::size_t width) {
  auto const seconds = static_cast<std::size_t>(
      std::ranges::count_if(text, [](char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }));
  std::size_t const length = text.size() - seconds;  // a surrogate pair is one character
  return KestXmlLib20::ToUtf8(text).append(width > length ? width - length : 0, ' ');
}

std::string Grouped(std::size_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  for (std::size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, 1, ',');
  return std::string(width > digits.size() ? width - digits.size() : 0, ' ') + digits;
}

std::string Fixed(double number, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", places, number);
  return text;
}

}  // namespace KestDemo

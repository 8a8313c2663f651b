// Calculates what numbers_check.py asks: reads lines "operation|operand|operand" and answers each
// with a line of its own, the result or the message of the exception.
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

using Text = std::u16string;

template <typename Number>
Number Read(Text const& text) {
  return Number(text.c_str());
}

template <typename Number>
Text Order(Number const& left, Number const& right) {
  if (left == right) return u"=";
  return left < right ? u"<" : u">";
}

// The operators and the text, of either class.
template <typename Number>
Text Calculate(char operation, Text const& left, Text const& right) {
  Number const number = Read<Number>(left);
  switch (operation) {
    case 'p':
      return number.ToString();
    case '+':
      return (number + Read<Number>(right)).ToString();
    case '-':
      return (number - Read<Number>(right)).ToString();
    case '*':
      return (number * Read<Number>(right)).ToString();
    case '/':
      return (number / Read<Number>(right)).ToString();
    default:
      return Order(number, Read<Number>(right));
  }
}

Text CalculateInteger(char operation, Text const& left, Text const& right) {
  switch (operation) {
    case '%':
      return (Read<CBigInteger>(left) % Read<CBigInteger>(right)).ToString();
    case 'r':
      return Read<CBigInteger>(left).SquareRoot().ToString();
    case 'i':
      return CBigInteger(int{Read<CBigInteger>(left)}).ToString();
    default:
      return Calculate<CBigInteger>(operation, left, right);
  }
}

Text PrintDouble(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.17g", value);
  return FromUtf8(text);
}

Text CalculateDecimal(char operation, Text const& left, Text const& right) {
  switch (operation) {
    case 'f':
      return Read<CDecimal>(left).ToString(int{Read<CBigInteger>(right)});
    case 'l':
      return CBigInteger(Read<CDecimal>(left).ToLongLong()).ToString();
    case 'i':
      return CBigInteger(Read<CDecimal>(left).ToLong()).ToString();
    case 'd':
      return PrintDouble(Read<CDecimal>(left).ToDouble());
    default:
      return Calculate<CDecimal>(operation, left, right);
  }
}

// The operation has two letters: the class, i or d, and what is done.
Text Answer(Text const& line) {
  std::size_t const first = line.find(u'|');
  std::size_t const second = line.find(u'|', first + 1);
  Text const left = line.substr(first + 1, second - first - 1);
  Text const right = line.substr(second + 1);
  auto const operation = static_cast<char>(line[1]);
  try {
    return line[0] == u'i' ? CalculateInteger(operation, left, right)
                           : CalculateDecimal(operation, left, right);
  } catch (CKestException const& failure) {
    return failure.GetMessageW();
  }
}

}  // namespace
}  // namespace KestXmlLib20

int main() {
  std::ios::sync_with_stdio(false);
  for (std::string line; std::getline(std::cin, line);) {
    std::cout << KestXmlLib20::ToUtf8(KestXmlLib20::Answer(KestXmlLib20::FromUtf8(line))) << '\n';
  }
}

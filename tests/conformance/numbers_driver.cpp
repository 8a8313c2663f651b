// Calculates what numbers_check.py asks: reads lines "operation|operand|operand" and answers each
// with a line of its own, the result or the message of the exception.
#include <cstdio>
#include <iostream>
#include <string>

#include "kestxml/values/big_integer.h"
#include "kestxml/values/decimal.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {
namespace {

using Text = std::u16string;

Text Remainder(CBigInteger const& left, CBigInteger const& right) {
  return (left % right).ToString();
}

Text Special(CBigInteger const& number, char16_t const* /*argument*/) {
  return number.SquareRoot().ToString();
}

// To a number of places, or as a double.
Text Special(CDecimal const& number, char16_t const* argument) {
  if (*argument != u'\0') return number.ToString(CDecimal(argument).ToLong());
  char text[64];
  std::snprintf(text, sizeof text, "%.17g", number.ToDouble());
  return FromUtf8(text);
}

template <typename Number>
Text Calculate(char16_t operation, Number const& left, char16_t const* argument) {
  if (operation == u'p') return left.ToString();
  if (operation == u's') return Special(left, argument);
  Number const right(argument);
  if (operation == u'+') return (left + right).ToString();
  if (operation == u'-') return (left - right).ToString();
  if (operation == u'*') return (left * right).ToString();
  if (operation == u'/') return (left / right).ToString();
  if (operation == u'%') return Remainder(CBigInteger(left), CBigInteger(right));
  if (left == right) return u"=";
  return left < right ? u"<" : u">";
}

// The operation has two letters: the class, i or d, and what is done.
Text Answer(Text const& line) {
  std::size_t const second = line.rfind(u'|');
  Text const left = line.substr(3, second - 3);
  char16_t const* const right = line.c_str() + second + 1;
  try {
    return line[0] == u'i' ? Calculate(line[1], CBigInteger(left.c_str()), right)
                           : Calculate(line[1], CDecimal(left.c_str()), right);
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

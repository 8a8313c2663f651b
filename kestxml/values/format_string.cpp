#include "kestxml/values/format_string.h"

#include <algorithm>
#include <charconv>

#include "kestxml/platform/c_locale.h"
#include "kestxml/values/internal/ascii.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

using internal::IsDigit;
using internal::WidenAscii;

namespace {

struct Conversion {
  bool left = false, plus = false, blank = false, zero = false, alternate = false;
  bool wide64 = false;
  int width = 0;
  int precision = -1;  // -1: none given
  char16_t type = 0;
};

class Arguments {
 public:
  explicit Arguments(std::span<FormatArgument const> all) : m_rest(all) {}

  // The next argument; an integer 0 when the format asks for more than there are.
  FormatArgument Next() {
    if (m_rest.empty()) return FormatArgument(0);
    FormatArgument const first = m_rest.front();
    m_rest = m_rest.subspan(1);
    return first;
  }

 private:
  std::span<FormatArgument const> m_rest;
};

// No message needs more; a format with a longer number is held to it.
constexpr int kMaxField = 1'000'000;

int ParseNumber(char16_t const*& at) {
  int number = 0;
  for (; IsDigit(*at); ++at) number = std::min(number * 10 + (*at - u'0'), kMaxField);
  return number;
}

int ParseField(char16_t const*& at, Arguments& arguments) {
  if (*at != u'*') return ParseNumber(at);
  ++at;
  auto const given = static_cast<std::int32_t>(arguments.Next().GetInteger());
  return std::clamp(given, -kMaxField, kMaxField);
}

void ParseFlags(char16_t const*& at, Conversion& to) {
  for (;; ++at) {
    // clang-format off
    switch (*at) {
      case u'-': to.left = true; break;
      case u'+': to.plus = true; break;
      case u' ': to.blank = true; break;
      case u'0': to.zero = true; break;
      case u'#': to.alternate = true; break;
      default: return;
    }
    // clang-format on
  }
}

void ParseSize(char16_t const*& at, Conversion& to) {
  if (at[0] == u'I' && at[1] == u'6' && at[2] == u'4') {
    to.wide64 = true;
    at += 3;
  }
  while (std::u16string_view(u"hlFLN").find(*at) != std::u16string_view::npos) ++at;
}

// Reads the conversion behind a percent sign and moves past it.
Conversion ParseConversion(char16_t const*& at, Arguments& arguments) {
  Conversion result;
  ParseFlags(at, result);
  result.width = ParseField(at, arguments);
  if (result.width < 0) {
    result.left = true;
    result.width = -result.width;
  }
  if (*at == u'.') {
    ++at;
    result.precision = std::max(ParseField(at, arguments), -1);
  }
  ParseSize(at, result);
  result.type = *at;
  if (*at) ++at;
  return result;
}

void Pad(std::u16string& out, std::u16string_view sign, std::u16string_view body,
         Conversion const& how, bool zeros) {
  std::size_t const used = sign.size() + body.size();
  auto const width = static_cast<std::size_t>(how.width);
  std::size_t const fill = width > used ? width - used : 0;
  if (!how.left && !zeros) out.append(fill, u' ');
  out.append(sign);
  if (!how.left && zeros) out.append(fill, u'0');
  out.append(body);
  if (how.left) out.append(fill, u' ');
}

void AppendText(std::u16string& out, std::u16string_view text, Conversion const& how) {
  text = text.substr(0, text.find(u'\0'));
  if (how.precision >= 0) text = text.substr(0, static_cast<std::size_t>(how.precision));
  Pad(out, {}, text, how, how.zero);
}

std::u16string SignOf(bool negative, Conversion const& how) {
  if (negative) return u"-";
  if (how.plus) return u"+";
  return how.blank ? u" " : u"";
}

void AppendDigits(std::u16string& out, std::uint64_t magnitude, std::u16string sign, int base,
                  Conversion const& how) {
  char buffer[32];
  char* const end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, base).ptr;
  std::u16string digits = WidenAscii({buffer, static_cast<std::size_t>(end - buffer)});
  if (how.type == u'X') {
    for (char16_t& unit : digits) unit = unit >= u'a' ? static_cast<char16_t>(unit - 32) : unit;
  }
  if (how.alternate && base == 16 && magnitude != 0) sign.append(how.type == u'X' ? u"0X" : u"0x");
  if (how.alternate && base == 8 && magnitude != 0) digits.insert(0, 1, u'0');
  if (how.precision == 0 && magnitude == 0) digits.clear();
  auto const least = static_cast<std::size_t>(std::max(how.precision, 0));
  if (digits.size() < least) digits.insert(0, least - digits.size(), u'0');
  Pad(out, sign, digits, how, how.zero && how.precision < 0);
}

void AppendSigned(std::u16string& out, std::uint64_t bits, Conversion const& how) {
  auto const value =
      how.wide64 ? static_cast<std::int64_t>(bits) : std::int64_t{static_cast<std::int32_t>(bits)};
  auto const magnitude = static_cast<std::uint64_t>(value);
  AppendDigits(out, value < 0 ? 0 - magnitude : magnitude, SignOf(value < 0, how), 10, how);
}

void AppendUnsigned(std::u16string& out, std::uint64_t bits, int base, Conversion const& how) {
  std::uint64_t const value = how.wide64 ? bits : static_cast<std::uint32_t>(bits);
  AppendDigits(out, value, {}, base, how);
}

void AppendDouble(std::u16string& out, double value, Conversion const& how) {
  std::string format = "%";
  if (how.left) format += '-';
  if (how.plus) format += '+';
  if (how.blank) format += ' ';
  if (how.zero) format += '0';
  if (how.alternate) format += '#';
  format += "*.*";
  format += static_cast<char>(how.type);
  out += WidenAscii(platform::PrintDouble(format.c_str(), how.width, how.precision, value));
}

void AppendUnit(std::u16string& out, std::uint64_t bits, Conversion const& how) {
  auto const unit = static_cast<char16_t>(bits);
  Pad(out, {}, {&unit, 1}, how, how.zero);
}

void AppendString(std::u16string& out, FormatArgument const& argument, Conversion const& how) {
  switch (argument.GetKind()) {
    case FormatArgument::Kind::Wide:
      return AppendText(out, argument.GetWide(), how);
    case FormatArgument::Kind::Narrow:
      return AppendText(out, FromUtf8(argument.GetNarrow()), how);
    default:
      return AppendText(out, u"(null)", how);
  }
}

void AppendConversion(std::u16string& out, Conversion const& how, Arguments& arguments) {
  // clang-format off
  switch (how.type) {
    case u'd': case u'i': return AppendSigned(out, arguments.Next().GetInteger(), how);
    case u'u': return AppendUnsigned(out, arguments.Next().GetInteger(), 10, how);
    case u'o': return AppendUnsigned(out, arguments.Next().GetInteger(), 8, how);
    case u'x': case u'X': return AppendUnsigned(out, arguments.Next().GetInteger(), 16, how);
    case u'c': case u'C': return AppendUnit(out, arguments.Next().GetInteger(), how);
    case u's': case u'S': return AppendString(out, arguments.Next(), how);
    case u'e': case u'E': case u'f': case u'g': case u'G':
      return AppendDouble(out, arguments.Next().GetDouble(), how);
    case u'n': arguments.Next(); return;  // takes its argument and prints nothing
    case 0: return;
    default: out += how.type;  // also the second half of "%%"
  }
  // clang-format on
}

}  // namespace

std::u16string FormatArguments(char16_t const* format, std::span<FormatArgument const> gathered) {
  std::u16string out;
  Arguments arguments(gathered);
  for (char16_t const* at = format; *at;) {
    if (*at != u'%') {
      out += *at++;
      continue;
    }
    ++at;
    Conversion const how = ParseConversion(at, arguments);
    AppendConversion(out, how, arguments);
  }
  out.resize(std::min(out.find(u'\0'), out.size()));
  return out;
}

}  // namespace KestXmlLib20

// The printf-style wide formatter that all messages go through.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

namespace internal {
template <typename T>
concept PrintsAsInteger = std::integral<T> || std::is_enum_v<T>;
}

/// One argument of FormatString. It keeps its kind, so a conversion that does not fit it reads
/// nothing that is not there.
class FormatArgument {
 public:
  enum class Kind : std::uint8_t { Integer, Double, Wide, Narrow, NullText };

  template <internal::PrintsAsInteger T>
  FormatArgument(T value)  // NOLINT: arguments convert silently, as those of printf do
      : m_kind(Kind::Integer), m_integer(static_cast<std::uint64_t>(value)) {}
  FormatArgument(double value) : m_kind(Kind::Double), m_double(value) {}  // NOLINT
  FormatArgument(char16_t const* text)                                     // NOLINT
      : m_kind(text ? Kind::Wide : Kind::NullText), m_wide(text ? text : u"") {}
  FormatArgument(std::u16string_view text) : m_kind(Kind::Wide), m_wide(text) {}    // NOLINT
  FormatArgument(std::u16string const& text) : m_kind(Kind::Wide), m_wide(text) {}  // NOLINT
  FormatArgument(char const* text)                                                  // NOLINT
      : m_kind(text ? Kind::Narrow : Kind::NullText), m_narrow(text ? text : "") {}

  Kind GetKind() const { return m_kind; }
  std::uint64_t GetInteger() const { return m_integer; }
  double GetDouble() const { return m_double; }
  std::u16string_view GetWide() const { return m_wide; }
  std::string_view GetNarrow() const { return m_narrow; }

 private:
  Kind m_kind;
  std::uint64_t m_integer = 0;
  double m_double = 0;
  std::u16string_view m_wide;
  std::string_view m_narrow;
};

/// FormatString with its arguments gathered.
KESTXML_API std::u16string FormatArguments(char16_t const* format,
                                           std::span<FormatArgument const> arguments);

/// Text from a wide printf format. `%s` takes a 16-bit string, up to its first null unit (a null
/// pointer prints "(null)"), `%S` and `%hs` a narrow one in UTF-8, `%c` a 16-bit unit, `%d %i %u %o
/// %x %X` 32-bit integers, or 64-bit ones behind "I64"; `%e %f %g %G` doubles, always with a point.
/// Flags, width and precision are those of printf, and 0 pads strings too. The result is never cut
/// off for its length; it ends at its first null unit.
template <typename... Arguments>
std::u16string FormatString(char16_t const* format, Arguments const&... arguments) {
  FormatArgument const gathered[] = {FormatArgument(arguments)..., FormatArgument(0)};
  return FormatArguments(format, std::span(gathered, sizeof...(arguments)));
}

}  // namespace KestXmlLib20

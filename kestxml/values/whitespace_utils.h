// The rules of the whiteSpace facet (XML Schema Part 2, 4.3.6), with this library's treatment of
// carriage returns.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// The whitespace rules. A rule that changes something also ends the text at its first null unit;
/// one that changes nothing gives the text back whole.
class KESTXML_API CWhitespaceUtils {
 public:
  /// The numbers are part of the interface to generated code.
  enum WhitespaceRule : std::int32_t {
    WhitespaceRule_None = 0,  ///< the text as it stands
    WhitespaceRule_Preserve = 1,
    WhitespaceRule_Replace = 2,
    WhitespaceRule_Collapse = 3,
  };

  /// Each CR LF pair and each other CR becomes one LF; nothing at all when carriage returns are
  /// preserved (GetPreserveCharacterRefCR).
  static std::u16string Preserve(std::u16string_view text);

  /// Each tab, LF and CR becomes a blank, but a CR LF pair becomes a single one: a line end counts
  /// once, however it is written.
  static std::u16string Replace(std::u16string_view text);

  /// Each run of blanks, tabs, LF and CR becomes one blank; none stays at the start and the end.
  static std::u16string Collapse(std::u16string_view text);

  /// @throws CKestException when @p rule is none of the enumerators.
  static std::u16string ApplyRule(WhitespaceRule rule, std::u16string_view text);

  /// As above without a copy where none is needed: the result is a part of @p text, or of @p
  /// buffer, which is then overwritten.
  static std::u16string_view ApplyRule(WhitespaceRule rule, std::u16string_view text,
                                       std::u16string& buffer);

  /// True for tab, line feed, carriage return and blank, and nothing else.
  static constexpr bool IsWhiteSpace(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
  }
};

}  // namespace KestXmlLib20

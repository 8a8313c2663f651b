// The strings, numbers and key words of a JSON text.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/json/internal/json_scanner.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
class IErrorPathProvider;
}

namespace KestXmlLib20::internal {

/// Each operation begins with the first unit of its token as the current one and ends with the
/// first unit behind the token and the white space after it, or at the end. Texts are valid until
/// the next operation.
class CJsonTokenizer : public CJsonScanner {
 public:
  /// @param path may be null; failures then have no path.
  CJsonTokenizer(std::u16string_view text, bool allowComments, IErrorPathProvider const* path)
      : CJsonScanner(text, allowComments), m_path(path) {}

  void ReadNull();
  void ReadTrue();
  void ReadFalse();
  std::u16string_view ReadString();
  std::u16string_view ReadNumber();

  /// A failure here. @p format takes the line and the column.
  CKestValidationException Failure(char16_t const* format) const;
  /// A failure here. @p format takes the current unit, the line and the column.
  CKestValidationException FailureOnUnit(char16_t const* format) const;

 private:
  void ReadEscape();
  char16_t ReadHexDigit();
  void ReadFraction();
  void ReadExponent();
  void SkipDigits();
  void RequireDigit() const;
  CKestValidationException EndInString() const;
  CKestValidationException EndBeforeNumber() const;
  CKestValidationException EndBeforeDigit() const;
  std::u16string_view WithoutLineFeeds(std::u16string_view text);
  std::u16string ErrorPath() const;

  IErrorPathProvider const* m_path;
  std::u16string m_text;  // a token that does not stand in the input as it is
};

}  // namespace KestXmlLib20::internal

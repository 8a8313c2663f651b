#include "kestxml/values/whitespace_utils.h"

#include <algorithm>
#include <cstdint>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/preserve_character_ref_cr.h"

namespace KestXmlLib20 {
namespace {

using Text = std::u16string_view;

bool IsWhiteSpace(char16_t unit) {
  return CWhitespaceUtils::IsWhiteSpace(unit);
}

bool IsPairAt(Text text, std::size_t at) {
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

// Without an end before the last unit, so that many units can be looked at in one step.
template <typename Is>
bool Holds(Text text, Is is) {
  std::uint16_t holds = 0;  // as wide as a unit
  for (char16_t const unit : text) holds = static_cast<std::uint16_t>(holds | is(unit));
  return holds != 0;
}

// Whether a rule may find something in the text: whitespace or a null unit. Most values, such as
// numbers, hold nothing of the kind.
bool HoldsBlankOrControl(Text text) {
  return Holds(text, [](char16_t unit) { return unit <= u' '; });
}

bool HoldsCarriageReturn(Text text) {
  return Holds(text, [](char16_t unit) { return unit == u'\r'; });
}

Text UntilNull(Text text) {
  return text.substr(0, text.find(u'\0'));
}

Text Trim(Text text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

// Where the first whitespace stands that is not a blank between two other units. @p text neither
// begins nor ends with whitespace.
std::size_t FindUncollapsed(Text text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsWhiteSpace(text[i]) && (text[i] != u' ' || IsWhiteSpace(text[i + 1]))) return i;
  }
  return Text::npos;
}

// Each function below gives a part of its text where the rule changes nothing in it, and else
// fills the buffer.

Text PreserveInto(Text text, std::u16string& buffer) {
  if (!HoldsCarriageReturn(text) || GetPreserveCharacterRefCR()) return text;
  Text const body = UntilNull(text);
  buffer.clear();
  buffer.reserve(body.size());
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (IsPairAt(body, i)) ++i;
    buffer += body[i] == u'\r' ? u'\n' : body[i];
  }
  return buffer;
}

Text ReplaceInto(Text text, std::u16string& buffer) {
  if (!HoldsBlankOrControl(text)) return text;
  Text const body = UntilNull(text);
  std::size_t const first = body.find_first_of(u"\t\n\r");
  if (first == Text::npos) return text;
  buffer.clear();
  buffer.reserve(body.size());
  buffer.append(body, 0, first);
  for (std::size_t i = first; i < body.size(); ++i) {
    if (IsPairAt(body, i)) ++i;
    buffer += IsWhiteSpace(body[i]) ? u' ' : body[i];
  }
  return buffer;
}

Text CollapseInto(Text text, std::u16string& buffer) {
  if (!HoldsBlankOrControl(text)) return text;
  Text const body = UntilNull(text);
  Text const trimmed = Trim(body);
  std::size_t const first = FindUncollapsed(trimmed);
  if (first == Text::npos) return trimmed.size() == body.size() ? text : trimmed;
  buffer.clear();
  buffer.reserve(trimmed.size());
  buffer.append(trimmed, 0, first);
  for (std::size_t i = first; i < trimmed.size(); ++i) {
    if (!IsWhiteSpace(trimmed[i])) {
      buffer += trimmed[i];
    } else if (!IsWhiteSpace(trimmed[i + 1])) {
      buffer += u' ';  // the last of its run; one always follows that is no whitespace
    }
  }
  return buffer;
}

// What @p apply gives for these arguments and a buffer, as a string of its own.
template <typename Apply, typename... Arguments>
std::u16string Owned(Apply apply, Arguments... arguments) {
  std::u16string buffer;
  Text const result = apply(arguments..., buffer);
  if (result.data() == buffer.data()) return buffer;
  return std::u16string(result);
}

}  // namespace

std::u16string CWhitespaceUtils::Preserve(Text text) {
  return Owned(PreserveInto, text);
}

std::u16string CWhitespaceUtils::Replace(Text text) {
  return Owned(ReplaceInto, text);
}

std::u16string CWhitespaceUtils::Collapse(Text text) {
  return Owned(CollapseInto, text);
}

Text CWhitespaceUtils::ApplyRule(WhitespaceRule rule, Text text, std::u16string& buffer) {
  switch (rule) {
    case WhitespaceRule_None:
      return text;
    case WhitespaceRule_Preserve:
      return PreserveInto(text, buffer);
    case WhitespaceRule_Replace:
      return ReplaceInto(text, buffer);
    case WhitespaceRule_Collapse:
      return CollapseInto(text, buffer);
  }
  throw CKestException(u"Unknown WhitespaceRule");
}

std::u16string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, Text text) {
  Text (*const apply)(WhitespaceRule, Text, std::u16string&) = ApplyRule;
  return Owned(apply, rule, text);
}

}  // namespace KestXmlLib20

#include "kestxml/values/internal/compiled_pattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>

#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20::internal {
namespace {

// Where a match ends as failed. Five million steps take some tenths of a second, and no value that
// fits into the memory needs as many unless PCRE2 tries its parts in ever new ways. A repeated
// group takes about 300 bytes for each character.
constexpr std::uint32_t kStepLimit = 5'000'000;
constexpr std::uint32_t kMemoryLimitKiB = 128 * 1024;

// A step of the translation.
struct Replacement {
  std::string_view search;
  std::string_view replace;
};

// Blind to what stands around: within a class the first four expand too, to a group, which a class
// can't hold. A name of a block that is not here is left for PCRE2 to refuse.
// clang-format off
constexpr Replacement kReplacements[] = {
    {R"(\i)",                        R"(([^\W\d]|:))"},
    {R"(\I)",                        R"(([\W\d]))"},
    {R"(\c)",                        R"((\w|\.|-|:))"},
    {R"(\C)",                        R"(([^\w\.\-\:]))"},
    {R"(\p{IsBasicLatin})",          R"([\000-\177])"},
    {R"(\p{IsLatin-1Supplement})",   R"([\200-\377])"},
    {R"(\p{IsLatinExtended-A})",     R"([\400-\577])"},
    {R"(\p{IsLatinExtended-B})",     R"([\x{180}-\x{24F}])"},  // more than three octal digits
};
// clang-format on

// Stands for an escaped backslash, so that its second half does not begin an escape.
constexpr std::string_view kProtected = "\x01";
constexpr std::string_view kEscapedBackslash = R"(\\)";

std::string ReplaceAll(std::string_view text, Replacement const& how) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(how.search, from)) != text.npos;) {
    result.append(text, from, at - from).append(how.replace);
    from = at + how.search.size();
  }
  return result.append(text, from);
}

std::string Translate(std::u16string_view pattern) {
  std::string text = ToUtf8(pattern.substr(0, LengthBeforeLoneSurrogate(pattern)));
  text = ReplaceAll(text, {kEscapedBackslash, kProtected});
  for (Replacement const& replacement : kReplacements) text = ReplaceAll(text, replacement);
  text = ReplaceAll(text, {kProtected, kEscapedBackslash});
  return "^(" + text + ")$";
}

// PCRE2 refuses two things that PCRE before it, for which existing patterns were written, took
// literally: the escape of a letter that has no meaning, as in "\y", and a hyphen behind a class
// that can't begin a range, as in "[\w-.]". Gives false where the error is another.
//
// The option that makes all bad escapes literal is no way to have the first: it also lets "\p" and
// a name that does not exist pass, as those letters.
bool Repair(std::string& pattern, int error, std::size_t offset) {
  constexpr int kUnknownEscape = 103;  // reported at the letter
  constexpr int kNoRange = 150;        // reported at the hyphen or right behind it
  if (error == kUnknownEscape && offset > 0 && pattern[offset - 1] == '\\') {
    pattern.erase(offset - 1, 1);
    return true;
  }
  std::size_t const hyphen = pattern.rfind('-', offset);
  if (error == kNoRange && hyphen != pattern.npos && offset - hyphen <= 1) {
    pattern.insert(hyphen, 1, '\\');
    return true;
  }
  return false;
}

struct FreeContext {
  void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
  void operator()(pcre2_general_context* context) const { pcre2_general_context_free(context); }
};

template <typename T>
T* OrOutOfMemory(T* made) {
  if (!made) throw std::bad_alloc();
  return made;
}

pcre2_code* Compile(std::string const& pattern, pcre2_compile_context* context, int& error,
                    std::size_t& offset) {
  return pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), PCRE2_UTF,
                       &error, &offset, context);
}

std::string TextOf(int error) {
  char text[256] = "";
  pcre2_get_error_message(error, reinterpret_cast<PCRE2_UCHAR*>(text), sizeof text);
  return text;
}

pcre2_code* CompileOrThrow(std::u16string_view pattern, std::u16string_view value) {
  std::unique_ptr<pcre2_compile_context, FreeContext> const context(
      OrOutOfMemory(pcre2_compile_context_create(nullptr)));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);  // whatever PCRE2 was built for
  std::string text = Translate(pattern);
  int error = 0;
  std::size_t offset = 0;
  do {
    if (pcre2_code* const code = Compile(text, context.get(), error, offset)) return code;
  } while (Repair(text, error, offset));
  if (error == PCRE2_ERROR_HEAP_FAILED) throw std::bad_alloc();
  // The value, and not the pattern, is what the message has always shown.
  throw CKestException(
      FormatString(u"Invalid Regular Expression: %s Error: '%S'", value, TextOf(error).c_str()));
}

// Memory for PCRE2, with the largest size noted.
void* Allocate(std::size_t size, void* largest) {
  auto& noted = *static_cast<std::size_t*>(largest);
  noted = std::max(noted, size);
  return std::malloc(size);
}

void Release(void* block, void* /*largest*/) {
  std::free(block);
}

// Of the groups that a pattern captures nothing is asked for: one pair is the whole match.
pcre2_match_data* MakeMatchData(std::size_t& largestBlock) {
  std::unique_ptr<pcre2_general_context, FreeContext> const allocator(
      OrOutOfMemory(pcre2_general_context_create(Allocate, Release, &largestBlock)));
  return OrOutOfMemory(pcre2_match_data_create(1, allocator.get()));
}

}  // namespace

void MatchWorkspace::Free::operator()(pcre2_match_data* data) const {
  pcre2_match_data_free(data);
}

void MatchWorkspace::Free::operator()(pcre2_match_context* context) const {
  pcre2_match_context_free(context);
}

void CompiledPattern::Free::operator()(pcre2_code* code) const {
  pcre2_code_free(code);
}

MatchWorkspace::MatchWorkspace()
    : m_context(OrOutOfMemory(pcre2_match_context_create(nullptr))),
      m_data(MakeMatchData(m_largestBlock)) {
  pcre2_set_match_limit(m_context.get(), kStepLimit);
  pcre2_set_heap_limit(m_context.get(), kMemoryLimitKiB);
}

CompiledPattern::CompiledPattern(std::u16string_view pattern, std::u16string_view value)
    : m_code(CompileOrThrow(pattern, value)) {}

// The end is compared here and not by an option: with one, PCRE2 would go on to other matches where
// the first one ends too early, and "a|a\n" would match an "a" with a line end behind it.
bool CompiledPattern::Matches(std::string_view subject, MatchWorkspace& workspace) const {
  int const result = pcre2_match(m_code.get(), reinterpret_cast<PCRE2_SPTR>(subject.data()),
                                 subject.size(), 0, PCRE2_ANCHORED | PCRE2_NO_UTF_CHECK,
                                 workspace.m_data.get(), workspace.m_context.get());
  if (result == PCRE2_ERROR_NOMEMORY) throw std::bad_alloc();
  if (result < 0) return false;
  std::size_t const* const match = pcre2_get_ovector_pointer(workspace.m_data.get());
  return match[0] == 0 && match[1] == subject.size();
}

std::size_t CompiledPattern::GetSize() const {
  std::size_t size = 0;
  pcre2_pattern_info(m_code.get(), PCRE2_INFO_SIZE, &size);
  return size;
}

}  // namespace KestXmlLib20::internal

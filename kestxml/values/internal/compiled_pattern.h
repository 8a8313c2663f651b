// A pattern of XML Schema, translated for PCRE2 and compiled.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

// As in pcre2.h, which only the source includes.
struct pcre2_real_code_8;
struct pcre2_real_match_data_8;
struct pcre2_real_match_context_8;

namespace KestXmlLib20::internal {

/// What PCRE2 works with while it matches. One thread uses it at a time; it keeps its memory for
/// the next match.
class MatchWorkspace {
 public:
  MatchWorkspace();
  MatchWorkspace(MatchWorkspace const&) = delete;
  MatchWorkspace& operator=(MatchWorkspace const&) = delete;

  /// The size in bytes of the largest block of memory that it has taken.
  std::size_t GetLargestBlock() const { return m_largestBlock; }

 private:
  friend class CompiledPattern;
  struct Free {
    void operator()(pcre2_real_match_data_8* data) const;
    void operator()(pcre2_real_match_context_8* context) const;
  };
  std::size_t m_largestBlock = 0;
  std::unique_ptr<pcre2_real_match_context_8, Free> m_context;
  std::unique_ptr<pcre2_real_match_data_8, Free> m_data;
};

/// May be used by several threads at a time.
class CompiledPattern {
 public:
  /// @param value the value that is to be tested. It stands for the pattern in the message, which
  ///   says what PCRE2 has against the pattern.
  /// @throws CKestException for a pattern that PCRE2 refuses.
  CompiledPattern(std::u16string_view pattern, std::u16string_view value);

  /// Whether the first match that PCRE2 finds is the whole of @p subject, which is valid UTF-8. A
  /// match that needs too many steps or too much memory is none.
  bool Matches(std::string_view subject, MatchWorkspace& workspace) const;

  /// The memory that it holds, in bytes.
  std::size_t GetSize() const;

 private:
  struct Free {
    void operator()(pcre2_real_code_8* code) const;
  };
  std::unique_ptr<pcre2_real_code_8, Free> m_code;
};

}  // namespace KestXmlLib20::internal

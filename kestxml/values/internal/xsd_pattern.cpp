#include "kestxml/values/internal/xsd_pattern.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "kestxml/values/internal/compiled_pattern.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20::internal {
namespace {

// A value as UTF-8; on the stack unless it is long.
class Subject {
 public:
  explicit Subject(std::u16string_view value) {
    value = value.substr(0, value.find(u'\0'));
    value = value.substr(0, LengthBeforeLoneSurrogate(value));
    std::size_t const most = CUtf8Encoder::MaxBytes(value.size());
    if (most > sizeof m_short) m_long = std::make_unique_for_overwrite<char[]>(most);
    char* const begin = m_long ? m_long.get() : m_short;
    m_bytes = {begin, CUtf8Encoder().Encode(value, begin)};
  }
  Subject(Subject const&) = delete;
  Subject& operator=(Subject const&) = delete;

  std::string_view GetBytes() const { return m_bytes; }

 private:
  char m_short[1024];
  std::unique_ptr<char[]> m_long;
  std::string_view m_bytes;
};

// Compiled patterns by their text. Where one more would be too much, it starts again.
class PatternCache {
 public:
  // Null for one that is not there.
  CompiledPattern const* Find(std::u16string_view pattern) const {
    auto const found = m_patterns.find(KeyOf(pattern));
    return found == m_patterns.end() ? nullptr : &found->second;
  }

  void Keep(std::u16string_view pattern, CompiledPattern compiled) {
    std::string_view const key = KeyOf(pattern);
    std::size_t const size = key.size() + compiled.GetSize();
    if (size > kMaxBytes) return;
    if (m_patterns.size() == kMaxPatterns || m_bytes + size > kMaxBytes) {
      m_patterns.clear();
      m_bytes = 0;
    }
    m_patterns.emplace(key, std::move(compiled));
    m_bytes += size;
  }

 private:
  static constexpr std::size_t kMaxPatterns = 1024;
  static constexpr std::size_t kMaxBytes = std::size_t{1} << 20;

  // Bytes are compared faster than units.
  static std::string_view KeyOf(std::u16string_view pattern) {
    return {reinterpret_cast<char const*>(pattern.data()), pattern.size() * sizeof(char16_t)};
  }

  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  std::unordered_map<std::string, CompiledPattern, Hash, std::equal_to<>> m_patterns;
  std::size_t m_bytes = 0;
};

// What each thread keeps between matches.
struct ThreadState {
  PatternCache patterns;
  std::optional<MatchWorkspace> workspace;
};

// Null when the thread's objects have ended: static ones may still write themselves out.
ThreadState* StateOfThisThread() {
  thread_local bool ended = false;
  struct Holder : ThreadState {
    ~Holder() { ended = true; }
  };
  if (ended) return nullptr;
  thread_local Holder holder;
  return &holder;
}

// A match that took much memory gives it back.
bool Matches(CompiledPattern const& pattern, std::string_view subject, ThreadState* state) {
  constexpr std::size_t kKeptBlock = std::size_t{1} << 20;
  std::optional<MatchWorkspace> own;
  std::optional<MatchWorkspace>& workspace = state ? state->workspace : own;
  if (!workspace) workspace.emplace();
  bool const matches = pattern.Matches(subject, *workspace);
  if (workspace->GetLargestBlock() > kKeptBlock) workspace.reset();
  return matches;
}

}  // namespace

bool MatchXsdPattern(std::u16string_view pattern, std::u16string_view value) {
  Subject const subject(value);
  ThreadState* const state = StateOfThisThread();
  CompiledPattern const* const kept = state ? state->patterns.Find(pattern) : nullptr;
  if (kept) return Matches(*kept, subject.GetBytes(), state);
  CompiledPattern compiled(pattern, value);
  bool const matches = Matches(compiled, subject.GetBytes(), state);
  if (state) state->patterns.Keep(pattern, std::move(compiled));
  return matches;
}

}  // namespace KestXmlLib20::internal

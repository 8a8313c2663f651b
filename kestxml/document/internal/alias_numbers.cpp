#include "kestxml/document/internal/alias_numbers.h"

namespace KestXmlLib20::internal {
namespace {

constexpr std::size_t kLetters = 26;
constexpr std::size_t kNoAlias = static_cast<std::size_t>(-1);

// The first unit runs on beyond Z: there is no last alias.
std::u16string AliasOf(std::size_t number) {
  return {static_cast<char16_t>(u'A' + number / kLetters),
          static_cast<char16_t>(u'A' + number % kLetters)};
}

std::size_t NumberOf(std::u16string_view prefix) {
  if (prefix.size() != 2 || prefix[0] < u'A' || prefix[1] < u'A' || prefix[1] > u'Z') {
    return kNoAlias;
  }
  return static_cast<std::size_t>(prefix[0] - u'A') * kLetters +
         static_cast<std::size_t>(prefix[1] - u'A');
}

}  // namespace

void AliasNumbers::Use(std::u16string_view prefix) {
  std::size_t const number = NumberOf(prefix);
  if (number == kNoAlias || ++m_uses[number] > 1) return;
  m_free.erase(number);
  if (!m_uses.contains(number + 1)) m_free.insert(number + 1);
}

void AliasNumbers::Release(std::u16string_view prefix) {
  auto const use = m_uses.find(NumberOf(prefix));
  if (use == m_uses.end() || --use->second > 0) return;
  std::size_t const number = use->first;
  m_uses.erase(use);
  m_free.erase(number + 1);
  if (number != 0 && m_uses.contains(number - 1)) m_free.insert(number);
}

std::u16string AliasNumbers::FirstFree() const {
  return AliasOf(m_uses.contains(0) ? *m_free.begin() : 0);
}

}  // namespace KestXmlLib20::internal

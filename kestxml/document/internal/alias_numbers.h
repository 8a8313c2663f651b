// The prefixes that a writer makes up, and which of them are taken.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace KestXmlLib20::internal {

/// Generated prefixes are AA, AB, ... AZ, BA, ...: each is the alias of a number from 0 on. This
/// counts the uses of each, and knows the first that has none whatever their number.
class AliasNumbers {
 public:
  /// Notes one more use of @p prefix. One that is no generated prefix does not count.
  void Use(std::u16string_view prefix);
  /// Takes a use back.
  void Release(std::u16string_view prefix);

  /// The first alias without a use.
  std::u16string FirstFree() const;

 private:
  std::map<std::size_t, std::size_t> m_uses;  // of the numbers that have any
  std::set<std::size_t> m_free;               // of the free numbers, those right behind a use
};

}  // namespace KestXmlLib20::internal

// What an operation throws, for tests that assert on whole messages.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

inline constexpr char16_t kNothingThrown[] = u"(nothing was thrown)";

/// The message of the exception that @p operation throws, which must be an @p Exception and no
/// class derived from it; kNothingThrown without one.
template <typename Exception = CKestException, typename Operation>
std::u16string Thrown(Operation&& operation) {
  try {
    operation();
  } catch (CKestException const& exception) {
    EXPECT_EQ(typeid(exception).name(), typeid(Exception).name()) << exception;
    return exception.GetMessageW();
  }
  return kNothingThrown;
}

}  // namespace KestXmlLib20

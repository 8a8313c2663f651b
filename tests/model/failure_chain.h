// The whole of what an operation throws, for tests that assert on chains of failures.
#pragma once

#include <cstring>
#include <string>
#include <typeinfo>

#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"
#include "tests/model/thrown.h"

namespace KestModel {

/// The class of a failure as its name has it between CKest and Exception; "Exception" for the base.
inline std::u16string KindOf(KestXmlLib20::CKestException const& failure) {
  std::string name = typeid(failure).name();
  name = name.substr(name.find("CKest") + std::strlen("CKest"));
  name = name.substr(0, name.rfind("Exception"));
  return name.empty() ? u"Exception" : KestXmlLib20::FromUtf8(name);
}

/// One line for each link, outermost first: "Validation: message @ /path", the path only where
/// there is one. Also tests that the message ends in the path as its own line.
inline std::u16string ChainOf(KestXmlLib20::CKestException const& failure) {
  std::u16string message = failure.GetMessageW();
  if (!failure.GetPath().empty()) {
    std::u16string const tail = u"\nPath: " + failure.GetPath();
    EXPECT_TRUE(message.ends_with(tail)) << failure;
    message = message.substr(0, message.size() - tail.size()) + u" @ " + failure.GetPath();
  }
  std::u16string chain = KindOf(failure) + u": " + message;
  if (auto const* const inner = failure.GetInnerException()) chain += u"\n" + ChainOf(*inner);
  return chain;
}

template <typename Operation>
std::u16string ThrownChain(Operation&& operation) {
  try {
    operation();
  } catch (KestXmlLib20::CKestException const& failure) {
    return ChainOf(failure);
  }
  return KestXmlLib20::kNothingThrown;
}

}  // namespace KestModel

// What becomes of an operation, in one text: what it writes, or the whole chain of failures.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <typeinfo>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/smart_ptr.h"
#include "kestxml/values/unicode.h"
#include "tests/model/thrown.h"

namespace KestModel {

using namespace KestXmlLib20;

/// One line for each link, outermost first: "Validation: message @ /path". The class is as its
/// name has it between CKest and Exception, "Exception" for the base; the path only where there is
/// one. Also tests that the message ends in the path as its own line.
inline std::u16string ChainOf(CKestException const& failure) {
  std::string kind = typeid(failure).name();
  kind = kind.substr(kind.find("CKest") + std::strlen("CKest"));
  kind = kind.substr(0, kind.rfind("Exception"));
  std::u16string message = failure.GetMessageW();
  if (!failure.GetPath().empty()) {
    std::u16string const tail = u"\nPath: " + failure.GetPath();
    EXPECT_TRUE(message.ends_with(tail)) << failure;
    message = message.substr(0, message.size() - tail.size()) + u" @ " + failure.GetPath();
  }
  std::u16string chain = FromUtf8(kind.empty() ? "Exception" : kind) + u": " + message;
  if (auto const* const inner = failure.GetInnerException()) chain += u"\n" + ChainOf(*inner);
  return chain;
}

/// What @p operation gives, or the chain of failures.
template <typename Operation>
std::u16string OutcomeOf(Operation&& operation) {
  try {
    return operation();
  } catch (CKestException const& failure) {
    return ChainOf(failure);
  }
}

inline std::u16string Written(CXmlObjectBase& object, CSerializationContext const& context = {}) {
  return object.ToXml(false, false, EOLType_LF, context);
}

/// What is written after @p text has been read. It is read twice, so that anything left of the
/// first read shows.
inline std::u16string Outcome(CXmlObjectBase& object, std::u16string const& text,
                              CSerializationContext const& context) {
  return OutcomeOf([&] {
    object.FromXml(text.c_str(), context);
    object.FromXml(text.c_str(), context);
    return Written(object, context);
  });
}

/// XML as tables have it: with single quotes, and XSI for the namespace of schema instances.
inline std::u16string Expand(std::u16string text) {
  for (std::size_t i = 0; (i = text.find(u"=XSI", i)) != text.npos;) {
    text.replace(i, 4, u"='http://www.w3.org/2001/XMLSchema-instance'");
  }
  if (text.starts_with(u'<')) std::ranges::replace(text, u'\'', u'"');
  return text;
}

/// A setting of a context.
using Tolerate = void (*)(CSerializationContext& context);

inline CSerializationContext MakeContext(Tolerate tolerate) {
  CSerializationContext context;
  if (tolerate) tolerate(context);
  return context;
}

// clang-format off
inline void UnknownElements(CSerializationContext& context) { context.SetIgnoreUnknownElements(true); }
inline void UnknownAttributes(CSerializationContext& context) { context.SetIgnoreUnknownAttributes(true); }
inline void MissingElements(CSerializationContext& context) { context.SetIgnoreMissingMandatoryElements(true); }
inline void MissingChoice(CSerializationContext& context) { context.SetIgnoreMissingChoice(true); }
inline void AnyCount(CSerializationContext& context) { context.SetIgnoreInvalidCollectionCounts(true); }
inline void AnyNamespace(CSerializationContext& context) { context.SetIgnoreNamespaces(true); }
// clang-format on

}  // namespace KestModel

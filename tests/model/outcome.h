// What becomes of reading a document into an object, in one text.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/model/failure_chain.h"

namespace KestModel {

using MakeObject = KestXmlLib20::CSmartPtr<KestXmlLib20::CXmlObjectBase> (*)();
using Tolerate = void (*)(KestXmlLib20::CSerializationContext& context);

template <typename Class>
KestXmlLib20::CSmartPtr<KestXmlLib20::CXmlObjectBase> New() {
  return new Class;
}

/// XML as tables have it: with single quotes, and XSI for the namespace of schema instances.
inline std::u16string Expand(std::u16string_view text) {
  std::u16string expanded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with(u"=XSI")) {
      expanded += u"=\"http://www.w3.org/2001/XMLSchema-instance\"";
      i += 3;
    } else {
      expanded += text[i] == u'\'' && text.find(u'<') == 0 ? u'"' : text[i];
    }
  }
  return expanded;
}

inline KestXmlLib20::CSerializationContext MakeContext(Tolerate tolerate) {
  KestXmlLib20::CSerializationContext context;
  if (tolerate) tolerate(context);
  return context;
}

inline std::u16string Written(KestXmlLib20::CXmlObjectBase& object,
                              KestXmlLib20::CSerializationContext const& context = {}) {
  return object.ToXml(false, false, KestXmlLib20::EOLType_LF, context);
}

/// What is written after @p text has been read, or the chain of failures. It is read twice, so
/// that anything left of the first read shows.
inline std::u16string Outcome(KestXmlLib20::CXmlObjectBase& object, std::u16string const& text,
                              KestXmlLib20::CSerializationContext const& context) {
  std::u16string written;
  std::u16string const chain = ThrownChain([&] {
    object.FromXml(text.c_str(), context);
    object.FromXml(text.c_str(), context);
    written = Written(object, context);
  });
  return chain == KestXmlLib20::kNothingThrown ? written : chain;
}

inline void UnknownElements(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreUnknownElements(true);
}
inline void UnknownAttributes(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreUnknownAttributes(true);
}
inline void MissingElements(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreMissingMandatoryElements(true);
}
inline void MissingChoice(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreMissingChoice(true);
}
inline void AnyCount(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreInvalidCollectionCounts(true);
}
inline void AnyNamespace(KestXmlLib20::CSerializationContext& context) {
  context.SetIgnoreNamespaces(true);
}

}  // namespace KestModel

// Any bytes are read or refused; what was read and is written reads back equal.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "examples/demo/any_document.h"

namespace {

using namespace KestXmlLib20;
using KestDemo::CAnyElement;

CSerializationContext const& NarrowContext() {
  static CSerializationContext const context = [] {
    CSerializationContext narrow;
    narrow.GetLimits().SetMaxDepth(200);
    narrow.GetLimits().SetMaxInflatedBytes(1 << 20);
    return narrow;
  }();
  return context;
}

// URIs are written as they are.
bool IsPlainUri(std::u16string const& uri) {
  return uri.find_first_of(u"&<\"\t\r\n") == uri.npos && !uri.starts_with(kXmlNamespace);
}

// A URI with a bar is taken apart there, and what is behind it joins the local name.
bool IsPlainName(KestDemo::Name const& name) {
  return (IsPlainUri(name.uri) || name.uri == kXmlNamespace) &&
         name.local.find(u'|') == name.local.npos;
}

// Whether the text form can hold the element: a tab in an attribute comes back as a blank, a
// carriage return is not written, a text that begins like CDATA is taken to be that.
bool HasTextForm(CAnyElement const& element) {
  return IsPlainName(element.name) && !element.text.starts_with(u"<![CDATA[") &&
         std::ranges::all_of(element.attributes,
                             [](auto const& attribute) {
                               return IsPlainName(attribute.name) &&
                                      attribute.value.find_first_of(u"\t\r") ==
                                          std::u16string::npos;
                             }) &&
         std::ranges::all_of(element.children,
                             [](auto const& child) { return HasTextForm(*child); });
}

void Require(bool law, char const* text) {
  if (law) return;
  std::fprintf(stderr, "Broken: %s\n", text);
  std::abort();
}

void TestRoundTrip(CAnyElement& document) {
  CSerializationContext const& context = NarrowContext();
  CAnyElement fromBytes;
  fromBytes.FromXmlStream(document.ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, context,
                                               CompressionType_None),
                          context);
  Require(fromBytes == document, "bytes that were written read back equal");
  CAnyElement fromText;
  fromText.FromXml(document.ToXml(true, false, EOLType_LF, context).c_str(), context);
  Require(fromText == document, "text that was written reads back equal");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static bool const registered = (Register(20, 0), true);
  CAnyElement document;
  try {
    document.FromXmlStream(data, static_cast<std::uint32_t>(registered ? size : 0),
                           NarrowContext());
  } catch (CKestException const&) {
    return 0;
  }
  if (HasTextForm(document)) TestRoundTrip(document);
  return 0;
}

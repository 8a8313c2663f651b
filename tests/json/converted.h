// What becomes of a JSON text, in one text.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/json/json_context.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/unicode.h"
#include "tests/model/outcome.h"

namespace KestXmlLib20 {

/// The XML without its declaration, or the chain of failures.
template <typename Load>
std::u16string ConvertedBy(CSerializationContext const& context, Load load) {
  constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  return KestModel::OutcomeOf([&] {
    CXmlDocument document(context);
    CBinaryData const bytes = load(document);
    EXPECT_TRUE(bytes.GetView().starts_with(kDeclaration)) << bytes.GetView();
    EXPECT_EQ(document.GetDocumentElement(), nullptr) << "nothing is loaded";
    return FromUtf8(bytes.GetView().substr(kDeclaration.size()));
  });
}

inline std::u16string Converted(std::u16string const& json,
                                CSerializationContext const& context = {}) {
  return ConvertedBy(context,
                     [&](CXmlDocument& document) { return document.LoadJson(json.c_str()); });
}

}  // namespace KestXmlLib20

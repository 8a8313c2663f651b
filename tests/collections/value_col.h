// Makes, reads and writes collections of values for their tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/collections/xml_type_collection.h"
#include "kestxml/document/text_stream.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/values/smart_ptr.h"
#include "tests/model/bare_object.h"

namespace KestXmlLib20 {

/// What generated code gives to the constructor of a collection, but for the names.
struct ColArguments {
  char16_t const* pattern = u"";
  std::int32_t minLength = -1, maxLength = -1;
  char16_t const *minInclusive = u"", *maxInclusive = u"", *minExclusive = u"", *maxExclusive = u"";
  std::int32_t length = -1, totalDigits = -1, fractionDigits = -1;
  char16_t const* format = nullptr;
  CWhitespaceUtils::WhitespaceRule rule = CWhitespaceUtils::WhitespaceRule_Collapse;
  std::int32_t minOccurs = 0, maxOccurs = -1;
};

/// A collection of elements v in the namespace urn:v.
template <typename Col>
CSmartPtr<Col> MakeCol(ColArguments const& a = {}) {
  return new Col(u"v", u"urn:v", a.minOccurs, a.maxOccurs, a.pattern, a.minLength, a.maxLength,
                 a.minInclusive, a.maxInclusive, a.minExclusive, a.maxExclusive, a.length,
                 a.totalDigits, a.fractionDigits, a.rule, a.format);
}

/// Reads and writes objects as their owner does.
class Owner : public BareObject {
 public:
  using CXmlObjectBase::FromXml_Int;
  using CXmlObjectBase::ToXml_Int;
};

/// A text writer that notes the kinds of the texts.
class KindWriter : public CXmlTextWriter {
 public:
  using CXmlTextWriter::CXmlTextWriter;
  void WriteText(std::u16string_view text, ItemType itemType, bool isDefaultValue) override {
    kinds.push_back(itemType);
    CXmlTextWriter::WriteText(text, itemType, isDefaultValue);
  }
  std::vector<ItemType> kinds;
};

struct Written {
  std::u16string xml;
  std::vector<ItemType> kinds;
};

/// Writes a collection where the default namespace is urn:v. The name that it is given to write
/// under is not its own, and of no account.
inline Written Write(CXmlCollectionBase const& collection,
                     CSerializationContext const& context = {}) {
  CTextStream stream(XmlEncoding_None);
  KindWriter writer(stream);
  writer.SetPrettyPrint(false);
  writer.SetDefaultNamespace(u"urn:v");
  writer.StartElement(u"o", u"urn:v");
  Owner::ToXml_Int(&collection, &writer, false, u"urn:other", context, false);
  writer.WriteText(u"|", ItemType_string, false);
  writer.kinds.pop_back();
  std::u16string const xml = stream.GetBuffer().ToString();
  std::u16string const begin = u"<o xmlns=\"urn:v\"", end = u"|";
  return {xml.substr(begin.size() + 1, xml.size() - begin.size() - end.size() - 1), writer.kinds};
}

/// Reads @p children where the default namespace is urn:v.
/// @returns the name of the first child that the collection left; empty for none.
inline std::u16string Read(CXmlCollectionBase& collection, std::u16string_view children,
                           CSerializationContext const& context = {}) {
  CXmlDocument document(context);
  document.LoadXml((u"<o xmlns='urn:v'>" + std::u16string(children) + u"</o>").c_str());
  CXmlElement* const o = document.GetDocumentElement();
  auto const* const next = Owner::FromXml_Int(&collection, o, o->GetFirstElement(), context, false);
  return std::u16string(next ? next->GetLocalName() : u"");
}

}  // namespace KestXmlLib20

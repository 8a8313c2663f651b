// The To... and From... operations for JSON. Writing puts a JSON writer in front of the object's
// own ToXml_Int; reading makes XML of the JSON and takes the way of that.
#include "kestxml/binding/internal/output_way.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/internal/version_guard.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/document/binary_stream.h"
#include "kestxml/document/file_text_stream.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/json/json_text_writer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

using internal::BytesOf, internal::CheckVersion, internal::GrowsAsItIsWritten, internal::TextOf;

void CXmlObjectBase::WriteJson(CTextStream& stream, bool prettyPrint, EOLType eol,
                               CSerializationContext const& context) const {
  CJsonTextWriter writer(stream);
  writer.OpenWriter();
  writer.SetPrettyPrint(prettyPrint);
  writer.SetIndent(context.GetIndentChars());
  writer.SetEOLType(eol);
  writer.SetSupportRoundtrip(context.FindJsonContext().GetSupportRoundtrip());
  writer.SetMaxDepth(context.GetLimits().GetMaxDepth());
  stream.GetBuffer().Append(u'{');
  writer.WriteLineEnd();
  std::u16string const targetNamespace(GetTargetNamespace());
  ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
  writer.WriteLineEnd();
  stream.GetBuffer().Append(u'}');
  writer.CloseWriter();
}

std::u16string CXmlObjectBase::ToJson(bool prettyPrint, EOLType eol,
                                      CSerializationContext const& context) {
  CheckVersion();
  CTextStream stream(XmlEncoding_None);
  WriteJson(stream, prettyPrint, eol, context);
  CheckVersion();
  return stream.GetBuffer().ToString();
}

CBinaryData CXmlObjectBase::ToJsonStream(bool prettyPrint, XmlEncoding encoding, EOLType eol,
                                         CSerializationContext const& context,
                                         CompressionType compression) {
  CheckVersion();
  CBinaryData data = BytesOf(encoding, compression, [&](CTextStream& stream) {
    WriteJson(stream, prettyPrint, eol, context);
  });
  CheckVersion();
  return data;
}

// Finished bytes go out as UTF-8 whatever they are in, so they get no byte order mark.
void CXmlObjectBase::ToJsonFile(char16_t const* fileName, bool prettyPrint, XmlEncoding encoding,
                                EOLType eol, CSerializationContext const& context,
                                CompressionType compression) const {
  CheckVersion();
  if (GrowsAsItIsWritten(compression)) {
    CFileTextStream stream(TextOf(fileName), encoding);
    WriteJson(stream, prettyPrint, eol, context);
  } else {
    // A class may have its own ToJsonStream, which the interface does not declare const.
    auto* const self = const_cast<CXmlObjectBase*>(this);
    CFileBinaryStream(self->ToJsonStream(prettyPrint, encoding, eol, context, compression),
                      TextOf(fileName), XmlEncoding_UTF8)
        .WriteToFile();
  }
  CheckVersion();
}

// @p load gives the XML.
template <typename Load>
void CXmlObjectBase::ReadJson(CSerializationContext const& context, Load load) {
  CheckVersion();
  FromJson_Int(
      [&] {
        CXmlDocument document(context);
        return load(document);
      }(),
      context);
  CheckVersion();
}

void CXmlObjectBase::FromJsonFile(char16_t const* fileName, CSerializationContext const& context) {
  ReadJson(context, [=](CXmlDocument& it) { return it.LoadJsonFile(fileName); });
}

void CXmlObjectBase::FromJson(char16_t const* text, CSerializationContext const& context) {
  ReadJson(context, [=](CXmlDocument& it) { return it.LoadJson(text); });
}

void CXmlObjectBase::FromJson(char const* text, CSerializationContext const& context) {
  ReadJson(context, [=](CXmlDocument& it) { return it.LoadJson(text); });
}

void CXmlObjectBase::FromJsonStream(CBinaryData const& data, CSerializationContext const& context) {
  CheckVersion();
  FromJsonStream(data.GetData(), data.GetLength(), context);
  CheckVersion();
}

void CXmlObjectBase::FromJsonStream(unsigned char const* data, std::uint32_t length,
                                    CSerializationContext const& context) {
  ReadJson(context, [=](CXmlDocument& it) { return it.LoadJsonStream(data, length); });
}

// Other JSON than that of JsonRoundTrip_Full has no namespaces to compare.
void CXmlObjectBase::FromJson_Int(CBinaryData const& xml, CSerializationContext const& context) {
  if (context.FindJsonContext().GetSupportRoundtrip() == JsonRoundTrip_Full) {
    return ReadConverted(xml, context);
  }
  bool const before = context.GetIgnoreNamespaces();
  context.SetIgnoreNamespacesOfRead(true);
  try {
    ReadConverted(xml, context);
  } catch (CKestException const&) {
    throw;  // the context goes on ignoring namespaces: callers count on it
  } catch (...) {
    context.SetIgnoreNamespacesOfRead(before);
    throw;
  }
  context.SetIgnoreNamespacesOfRead(before);
}

void CXmlObjectBase::ReadConverted(CBinaryData const& xml,
                                   CSerializationContext const& context) try {
  FromXmlStream(xml, context);
} catch (CKestException const& failure) {
  throw CKestException(FormatString(u"Error converting JSON to XML:\n%s", FromUtf8(xml.GetView())),
                       failure);
}

}  // namespace KestXmlLib20

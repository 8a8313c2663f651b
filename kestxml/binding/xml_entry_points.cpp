// The To... and From... operations for XML: each puts a stream or a load in front of the object's
// own ToXml_Int or FromXml_Int. The version is checked before the work and again before its result
// is handed back.
#include "kestxml/binding/element.h"
#include "kestxml/binding/internal/output_way.h"
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/internal/version_guard.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/document/binary_stream.h"
#include "kestxml/document/file_text_stream.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {

using internal::BytesOf, internal::CheckVersion, internal::GrowsAsItIsWritten, internal::TextOf;

namespace {

void RequireElement(void const* element) {
  if (!element) throw CKestException(u"Invalid or empty XML document");
}

}  // namespace

void CXmlObjectBase::WriteXml(CTextStream& stream, bool includeDocHeader, bool prettyPrint,
                              EOLType eol, CSerializationContext const& context) const {
  CXmlTextWriter writer(stream);
  writer.OpenWriter();
  writer.SetPrettyPrint(prettyPrint);
  writer.SetIndent(context.GetIndentChars());
  writer.SetEOLType(eol);
  writer.SetWriteDefaultValues(context.GetWriteDefaultElementValues());
  writer.SetMaxDepth(context.GetLimits().GetMaxDepth());
  if (includeDocHeader) writer.WriteXmlDeclaration();
  std::u16string const targetNamespace(GetTargetNamespace());
  ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
  writer.CloseWriter();
}

template <typename Load>
void CXmlObjectBase::ReadXml(CSerializationContext const& context, Load load) {
  CheckVersion();
  {
    CXmlDocument document(context);
    load(document);
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
  }
  CheckVersion();
}

std::u16string CXmlObjectBase::ToXml(bool includeDocHeader, bool prettyPrint, EOLType eol,
                                     CSerializationContext const& context) {
  CheckVersion();
  CTextStream stream(XmlEncoding_None);
  WriteXml(stream, includeDocHeader, prettyPrint, eol, context);
  CheckVersion();
  return stream.GetBuffer().ToString();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool prettyPrint,
                                        XmlEncoding encoding, EOLType eol,
                                        CSerializationContext const& context,
                                        CompressionType compression) {
  CheckVersion();
  CBinaryData data = BytesOf(encoding, compression, [&](CTextStream& stream) {
    WriteXml(stream, includeDocHeader, prettyPrint, eol, context);
  });
  CheckVersion();
  return data;
}

void CXmlObjectBase::ToXmlFile(char16_t const* fileName, bool includeDocHeader, bool prettyPrint,
                               XmlEncoding encoding, EOLType eol,
                               CSerializationContext const& context,
                               CompressionType compression) const {
  CheckVersion();
  if (GrowsAsItIsWritten(compression)) {
    CFileTextStream stream(TextOf(fileName), encoding);
    WriteXml(stream, includeDocHeader, prettyPrint, eol, context);
  } else {
    // A class may have its own ToXmlStream, which the interface does not declare const.
    auto* const self = const_cast<CXmlObjectBase*>(this);
    CFileBinaryStream(
        self->ToXmlStream(includeDocHeader, prettyPrint, encoding, eol, context, compression),
        TextOf(fileName), encoding)
        .WriteToFile();
  }
  CheckVersion();
}

void CXmlObjectBase::FromXmlFile(char16_t const* fileName, CSerializationContext const& context) {
  ReadXml(context, [=](CXmlDocument& document) { document.Load(TextOf(fileName)); });
}

void CXmlObjectBase::FromXml(char16_t const* text, CSerializationContext const& context) {
  ReadXml(context, [=](CXmlDocument& document) { document.LoadXml(TextOf(text)); });
}

void CXmlObjectBase::FromXml(char const* text, CSerializationContext const& context) {
  ReadXml(context, [=](CXmlDocument& document) { document.LoadXml(text ? text : ""); });
}

void CXmlObjectBase::FromXmlStream(CBinaryData const& data, CSerializationContext const& context) {
  CheckVersion();
  FromXmlStream(data.GetData(), data.GetLength(), context);
  CheckVersion();
}

void CXmlObjectBase::FromXmlStream(unsigned char const* data, std::uint32_t length,
                                   CSerializationContext const& context) {
  ReadXml(context, [=](CXmlDocument& document) { document.LoadXmlStream(data, length); });
}

void CXmlObjectBase::FromXmlElement(CElement const* element, CSerializationContext const& context) {
  CheckVersion();
  RequireElement(element);
  // Writing changes nothing, though the interface does not declare it const.
  std::u16string const text = const_cast<CElement*>(element)->ToXml(
      false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
  FromXml(text.c_str(), context);
  CheckVersion();
}

void CXmlObjectBase::FromXmlElement(CXmlElement const* element,
                                    CSerializationContext const& context) {
  CheckVersion();
  RequireElement(element);
  FromXml_Int(const_cast<CXmlElement*>(element), element->GetFirstElement(), context, false);
  CheckVersion();
}

}  // namespace KestXmlLib20

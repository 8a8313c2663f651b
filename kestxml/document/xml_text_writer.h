// Writes XML text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/document/output_form.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CStringBuffer;
class CTextStream;

/// Turns the calls of the writer interface into XML text in a text stream. Each call appends to
/// the stream's buffer, then lets the stream flush if 4,096 units or more wait there.
///
/// Indentation stands before each start tag below the root, and before the end tag of an element
/// that has child elements; mixed content gets it too. An element in no namespace inside of a
/// default namespace is written without xmlns="". Prefixes are declared only where they were
/// generated and, on the root, as asked for before it. Names, URIs and raw texts are not escaped.
class KESTXML_API CXmlTextWriter : public CXmlWriter {
 public:
  /// @p stream must outlive the writer. OpenWriter opens it, CloseWriter closes it.
  explicit CXmlTextWriter(CTextStream& stream);
  ~CXmlTextWriter() override;

  // To be set before the first element.

  /// Whether tags stand on lines of their own. Default true.
  void SetPrettyPrint(bool value);
  bool GetPrettyPrint() const { return m_formatted; }
  /// One level of indentation. Default one tab.
  void SetIndent(std::u16string_view value);
  /// The line end of formatted output, and of line feeds in texts. Default a line feed.
  /// @throws CKestException for a value that is no EOLType; the setting then stays.
  void SetEOLType(EOLType value);
  EOLType GetEOLType() const { return m_eolType; }
  /// Whether WriteText writes a value that is the default; else its element stays empty. Default
  /// false.
  void SetWriteDefaultValues(bool value) { m_writeDefaultValues = value; }

  /// The declaration names the stream's encoding if that is UTF-8, or UTF-16 with declaration.
  void WriteXmlDeclaration();

  void OpenWriter() override;
  void CloseWriter() override;
  /// Neither ends an open start tag nor indents.
  void WriteComment(std::u16string_view text) override;
  void WriteProcessingInstruction(std::u16string_view text) override;
  void WriteRawAttributes(std::u16string_view text) override;
  void StartElement(std::u16string_view localName, std::u16string_view uri) override;
  /// An empty text is nothing at all. A text that begins with "<![CDATA[" is copied unescaped:
  /// that it ends properly is the caller's business.
  void WriteText(std::u16string_view text, ItemType itemType, bool isDefaultValue) override;
  void EndElement() override;
  void WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                      std::u16string_view value, ItemType itemType) override;
  void WriteTypeAttribute(std::u16string_view uri, std::u16string_view typeName,
                          ItemType itemType) override;
  void WriteNil() override;
  void WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                        std::u16string_view text, ItemType itemType, bool isDefaultValue) override;

 private:
  inline CStringBuffer& Buffer() const;
  inline std::u16string_view TagEndAndMargin(std::int32_t depth);
  inline std::u16string_view Margin(std::int32_t depth);
  inline std::u16string_view TagEnd() const;
  inline std::u16string_view LineEnd() const;
  inline void OfferFlush();
  void StartMargin();
  void AppendRaw(std::u16string_view text);
  void AppendDeclaration(std::u16string_view prefix, std::u16string_view uri);
  void AppendRootDeclarations();
  void AppendEndTag(CXmlWriterContext const& context);

  bool m_writeDefaultValues = false;
  std::u16string m_indent = u"\t";
  std::u16string_view m_newLine = u"\n";
  EOLType m_eolType = EOLType_LF;
  bool m_formatted = true;
  CTextStream* m_pStream;
  // ">", the line end and, as often as the deepest element so far needed, m_indent: what stands
  // between two start tags lies there in one piece. Unformatted output has the first unit only.
  std::u16string m_margin;
  std::size_t m_tagEndLength;
};

}  // namespace KestXmlLib20

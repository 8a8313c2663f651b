// Writes JSON text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/document/output_form.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/json/json_context.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CStringBuffer;
class CTextStream;

/// Turns the calls of the writer interface into the members of a JSON object in a text stream. The
/// braces around them are the caller's.
///
/// An element is a member under its name, its attributes and children are members of its value.
/// What kind of value that is shows only in what comes next, and nothing is kept until then. From
/// that follows the form of what has no plain counterpart, see docs/json.md: callers rely on all of
/// it.
/// - An element without content has no value: nothing stands between its name and the next comma.
/// - Objects of a collection stand in an array, whose "]" comes at the end of their parent;
///   children behind the collection stand inside it, with their names. Plain values of a collection
///   repeat the member, and leave that "]" alone. Formatted output stays one level deeper for each
///   further such array of the same parent, to the end of the document.
/// - In strings a quotation mark, a backslash, a tab, a backspace and a form feed stand unescaped,
///   a line feed is a line end, and a carriage return is left out.
class KESTXML_API CJsonTextWriter : public CXmlWriter {
 public:
  /// @p stream must outlive the writer. OpenWriter opens it, CloseWriter closes it.
  explicit CJsonTextWriter(CTextStream& stream);
  ~CJsonTextWriter() override;

  // To be set before the first element.

  /// Whether members stand on lines of their own. Default true.
  void SetPrettyPrint(bool value) { m_prettyPrint = value; }
  /// One level of indentation. Default one tab.
  void SetIndent(std::u16string_view value);
  /// The line end of formatted output, of line feeds in strings and behind comments. Default a line
  /// feed.
  /// @throws CKestException for a value that is no EOLType; the setting then stays.
  void SetEOLType(EOLType value);
  /// Default JsonRoundTrip_Full.
  void SetSupportRoundtrip(JsonRoundTrip value) { m_roundTrip = value; }

  /// Writes the line end if members stand on lines of their own.
  void WriteLineEnd();

  void OpenWriter() override;
  void CloseWriter() override;
  void WriteComment(std::u16string_view text) override;
  /// Nothing, as the two that follow: JSON has no place for them. A nil element is an empty one.
  void WriteProcessingInstruction(std::u16string_view text) override;
  void WriteRawAttributes(std::u16string_view text) override;
  void WriteNil() override;
  /// With JsonRoundTrip_Full a root declares its namespaces, also one that has no prefix yet.
  /// @throws CKestException for an element below it in a namespace without a prefix; the message
  /// has the local name.
  void StartElement(std::u16string_view localName, std::u16string_view uri) override;
  /// Numbers, booleans, decimals and integers are written as they stand, "INF" too; all else is a
  /// string.
  void WriteText(std::u16string_view text, ItemType itemType, bool isDefaultValue) override;
  void EndElement() override;
  /// @throws CKestException, with JsonRoundTrip_Full, for a namespace without a prefix; the message
  /// has the local name.
  void WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                      std::u16string_view value, ItemType itemType) override;
  /// Only with JsonRoundTrip_Full.
  /// @throws CKestException when the type's namespace has no prefix, with the type's name in the
  /// message, or that of schema instances has none, with "type".
  void WriteTypeAttribute(std::u16string_view uri, std::u16string_view typeName,
                          ItemType itemType) override;
  void WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                        std::u16string_view text, ItemType itemType, bool isDefaultValue) override;

 private:
  struct Lead;

  CStringBuffer& Buffer() const;
  void StartMargin();
  std::u16string_view LineAndMargin(std::int32_t depth);
  std::u16string_view Margin(std::int32_t depth);
  char16_t Opening(CXmlWriterContext& context);
  void OpenArray(CXmlWriterContext& item);
  void CloseArray(CXmlWriterContext& parent);
  template <typename... Pieces>
  void AppendMember(Lead const& lead, Pieces... value);
  void AppendMemberWithValue(Lead const& lead, std::u16string_view text, ItemType itemType);
  void AppendDeclaration(CXmlWriterContext& root, std::u16string_view mark,
                         std::u16string_view prefix, std::u16string_view uri);
  void AppendRootDeclarations(CXmlWriterContext& root);
  void AppendValue(std::u16string_view text, ItemType itemType);
  std::u16string_view RequirePrefix(CXmlWriterContext const& context, std::u16string_view uri,
                                    std::u16string_view name) const;
  void OfferFlush();

  std::u16string m_indent = u"\t";
  std::u16string_view m_eol = u"\n";
  JsonRoundTrip m_roundTrip = JsonRoundTrip_Full;
  bool m_prettyPrint = true;
  CTextStream* m_pStream;
  bool m_objectPending = false;  // the element's name is written, its value is not decided
  std::u16string m_margin;       // m_eol and m_indent as often as the deepest element so far needed
};

}  // namespace KestXmlLib20

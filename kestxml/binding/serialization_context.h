// The options of every read and write.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/namespace_alias_map.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

class CAttributeCol;
class CJsonContext;
class CXmlObjectBase;

/// How names relate to namespaces. Only DocumentTypeDefinition has an effect.
enum class SchemaType : std::int32_t {
  XmlSchema = 0,
  XmlDataReduced = 1,
  /// Names are compared without their namespace, and the XML parser does not process namespaces:
  /// a prefix stays in the local name and declarations are ordinary attributes.
  DocumentTypeDefinition = 2,
};

/// How tolerant reading is and what writing adds. A caller builds one, or takes the default
/// context; it must outlive the call it is given to. It is not locked: what one thread changes,
/// and what a read adds to it, no other thread may use at the same time.
class KESTXML_API CSerializationContext {
 public:
  CSerializationContext();
  /// Copies every setting; the JSON context and the additional root attributes, once they are made,
  /// are shared.
  CSerializationContext(CSerializationContext const&);
  CSerializationContext& operator=(CSerializationContext const&);
  virtual ~CSerializationContext();

  /// The context of every operation that is given none, one for the process. A change to it is
  /// seen by all later operations.
  static CSerializationContext& GetDefaultContext();

  /// The options of JSON; never null. The first call makes them.
  CJsonContext* GetJsonContext() const;
  /// The same without making them: those with their defaults when there are none. So reading and
  /// writing leave a context as it is that other threads use.
  CJsonContext const& FindJsonContext() const;

  /// The default namespace that a written document declares on its root. Default empty: none.
  std::u16string const& GetDefaultNamespaceURI() const { return m_defaultNamespaceURI; }
  void SetDefaultNamespaceURI(char16_t const* uri);

  /// Whether an object that stands in for one of its base type is written with xsi:type.
  /// Default true.
  bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
  void SetWriteTypeAttribute(bool value) { m_writeTypeAttribute = value; }

  /// The prefixes that a written document declares on its root, in place of generated ones.
  CNamespaceAliasMap const& GetNamespaceAliases() const { return m_namespaceAliases; }
  CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }

  /// Written on the root element in addition to its own. The first call makes the collection, which
  /// takes attributes of any namespace.
  CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;
  /// The same without making it: null when there is none. So writing leaves a context as it is that
  /// other threads write with.
  CAttributeCol const* FindAdditionalRootAttributes() const {
    return m_additionalRootAttributes.Get();
  }

  /// Written before the root element, each as it stands, with its delimiters.
  std::vector<std::u16string> const& GetProcessingInstructions() const {
    return m_processingInstructions;
  }
  std::vector<std::u16string>& GetProcessingInstructions() { return m_processingInstructions; }

  /// Text that goes unescaped into the root's start tag, behind its attributes. Default empty.
  std::u16string const& GetInLineSchema() const { return m_inLineSchema; }
  void SetInLineSchema(char16_t const* text);

  /// Collections may hold fewer or more items than their occurrence counts. Default false.
  bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
  void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }

  /// A choice may have no member. Default false.
  bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
  void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }

  /// Mandatory elements of a sequence may be absent. Default false.
  /// @throws CKestInvalidStateException when set while unknown elements are ignored.
  bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
  void SetIgnoreMissingMandatoryElements(bool value);

  /// Elements that no metadata describes are passed over. Default false.
  /// @throws CKestInvalidStateException when set while missing elements are ignored.
  bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
  void SetIgnoreUnknownElements(bool value);

  /// Attributes that no metadata describes are passed over. Default false.
  bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
  void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }

  /// Names match whatever their namespace. Default false; always true with a schema type of
  /// DocumentTypeDefinition.
  bool GetIgnoreNamespaces() const;
  void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }

  /// Default XmlSchema. A document takes the value over when it is made.
  SchemaType GetSchemaType() const { return m_schemaType; }
  void SetSchemaType(SchemaType value) { m_schemaType = value; }

  /// Optional attributes that equal their default are not written. Default false.
  bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
  void SetNoOptionalAttributeDefaultOutput(bool value) {
    m_noOptionalAttributeDefaultOutput = value;
  }

  /// Elements that equal their default are written with their text; else they are written empty.
  /// Default false.
  bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }
  void SetWriteDefaultElementValues(bool value) { m_writeDefaultElementValues = value; }

  /// The text of CDATA sections merges with the text around it; else the sections are kept in
  /// their source form, markers included. Default true.
  bool GetStripCDATA() const { return m_stripCDATA; }
  void SetStripCDATA(bool value) { m_stripCDATA = value; }

  /// One level of indentation, blanks and tabs only. Default one tab.
  /// @throws CKestInvalidParamException for any other character; the setting then stays.
  std::u16string const& GetIndentChars() const { return m_indentChars; }
  void SetIndentChars(char16_t const* value);

  /// Bounds on what a document may ask for.
  CSerializationLimits const& GetLimits() const { return m_limits; }
  CSerializationLimits& GetLimits() { return m_limits; }

 private:
  // Reading JSON ignores namespaces for as long as it takes, whatever context it is given.
  friend class CXmlObjectBase;
  void SetIgnoreNamespacesOfRead(bool value) const { m_ignoreNamespaces = value; }

  mutable std::shared_ptr<CJsonContext> m_jsonContext;
  std::u16string m_defaultNamespaceURI;
  bool m_writeTypeAttribute = true;
  CNamespaceAliasMap m_namespaceAliases;
  mutable CSmartPtr<CAttributeCol> m_additionalRootAttributes;
  std::vector<std::u16string> m_processingInstructions;
  std::u16string m_inLineSchema;
  bool m_ignoreInvalidCollectionCounts = false;
  bool m_ignoreMissingChoice = false;
  bool m_ignoreMissingMandatoryElements = false;
  bool m_ignoreUnknownElements = false;
  bool m_ignoreUnknownAttributes = false;
  mutable bool m_ignoreNamespaces = false;
  SchemaType m_schemaType = SchemaType::XmlSchema;
  bool m_noOptionalAttributeDefaultOutput = false;
  bool m_writeDefaultElementValues = false;
  bool m_stripCDATA = true;
  std::u16string m_indentChars = u"\t";
  CSerializationLimits m_limits;
};

}  // namespace KestXmlLib20

// The root of everything that is read from XML or written as XML.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/binding/event_sink.h"
#include "kestxml/document/output_form.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/compression_type.h"

namespace KestXmlLib20Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace KestXmlLib20Data

namespace KestXmlLib20 {

class CBinaryData;
class CElement;
class CSerializationContext;
class CTextStream;
class CXmlCollectionBase;
class CXmlElement;
class CXmlWriter;

/// The base of generated classes, collections and open content: an element name, a reference count,
/// and the operations that write the object and read it.
///
/// Objects are counted. A new one has the count 0, so that the first CSmartPtr makes it 1; Release
/// deletes the object when the count comes back to 0. The count may be changed by any thread, all
/// else of an object belongs to one thread at a time.
///
/// The first object of the process checks the version given to Register.
///
/// The order of the virtual operations is part of the interface to generated code.
class KESTXML_API CXmlObjectBase : public IEventSink {
 public:
  CXmlObjectBase();
  /// Copies the name and also the reference count: a copy of an object that two CSmartPtr hold
  /// begins at 2, so a CSmartPtr that takes it does not delete it. The interface has it so; make
  /// counted copies by building a new object.
  CXmlObjectBase(CXmlObjectBase const& other);
  /// Copies as the copy constructor does, so the count of this object is lost: assign only to
  /// objects that nobody counts.
  CXmlObjectBase& operator=(CXmlObjectBase const& other);

  /// The object as its base; every implementer returns `this`.
  virtual CXmlObjectBase* GetBase() = 0;
  CXmlObjectBase const* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

  // Writing. @p includeDocHeader puts an XML declaration first. @p prettyPrint puts tags on lines
  // of their own, indented as @p context says; line ends are those of @p eol also where a text
  // holds a line feed. All of them throw CKestException "Wrong Version ..." (see Register),
  // "Invalid EOL type." before the object is asked to write, when the object leaves an element
  // open, and beyond a limit of @p context; and what the object throws.

  /// Writes a file, in UTF-16 with a byte order mark, even ahead of compressed bytes: a reader must
  /// take that off. The document is made in memory first, except with AsyncToXmlFile and without
  /// compression, where the file grows as the object is walked, and is left partly written by a
  /// failure.
  /// @throws CKestException, with an error code and, unless the file was growing, its name, when it
  /// can't be written; for CompressionType_ZLib, before the file is touched; and as ToXmlStream.
  virtual void ToXmlFile(char16_t const* fileName, bool includeDocHeader, bool prettyPrint,
                         XmlEncoding encoding, EOLType eol, CSerializationContext const& context,
                         CompressionType compression) const;
  /// Writes a file of JSON, as ToXmlFile does one of XML; but a byte order mark only stands where
  /// the file grows as the object is walked.
  virtual void ToJsonFile(char16_t const* fileName, bool prettyPrint, XmlEncoding encoding,
                          EOLType eol, CSerializationContext const& context,
                          CompressionType compression) const;
  /// The declaration names no encoding.
  virtual std::u16string ToXml(bool includeDocHeader, bool prettyPrint, EOLType eol,
                               CSerializationContext const& context);
  /// The document as JSON, see docs/json.md, in the round-trip mode of the JSON context of
  /// @p context. The three that write JSON also throw CKestException "Unknown Namespace: ..." for a
  /// namespace that the mode asks for and no declaration of the root covers.
  virtual std::u16string ToJson(bool prettyPrint, EOLType eol,
                                CSerializationContext const& context);
  /// The bytes of the document, without a byte order mark.
  /// @throws CKestException for an encoding without a byte form, after the object has been written;
  /// and when compression does not make the document smaller, as with very short ones.
  virtual CBinaryData ToXmlStream(bool includeDocHeader, bool prettyPrint, XmlEncoding encoding,
                                  EOLType eol, CSerializationContext const& context,
                                  CompressionType compression);
  /// The bytes of the document as JSON. Throws as ToXmlStream.
  virtual CBinaryData ToJsonStream(bool prettyPrint, XmlEncoding encoding, EOLType eol,
                                   CSerializationContext const& context,
                                   CompressionType compression);

  // Reading. The object is the document's root element. What it held before goes where its class
  // says so, once the document has been parsed; what was read before a failure of its own stays.
  // All of them throw CKestException "Wrong Version ..." (see Register), for input that is not
  // well-formed ("... at line ..."), empty, or beyond a limit of @p context; and what the object
  // throws. A null pointer is an empty text or name; a null element is refused.

  /// Reads a file, gzip or zlib data included unless AsyncFromXmlFile is set.
  /// @throws CKestException, with an error code and, unless its later blocks are at fault, the
  /// file's name, when it can't be read.
  virtual void FromXmlFile(char16_t const* fileName, CSerializationContext const& context);
  // JSON is made into XML first, see CXmlDocument::LoadJson, and that is read. What reading throws
  // then is the inner failure of a CKestException "Error converting JSON to XML:" with the XML. In
  // a round-trip mode other than JsonRoundTrip_Full, names are compared without namespaces, and
  // @p context ignores namespaces meanwhile; after such a failure it goes on doing so, which
  // callers count on.

  /// Reads a file of JSON in UTF-8, gzip or zlib data included.
  virtual void FromJsonFile(char16_t const* fileName, CSerializationContext const& context);
  /// Reads UTF-16 text, whatever encoding its declaration names.
  virtual void FromXml(char16_t const* text, CSerializationContext const& context);
  /// Reads text in the encoding that its declaration names, UTF-8 without.
  virtual void FromXml(char const* text, CSerializationContext const& context);
  virtual void FromJson(char16_t const* text, CSerializationContext const& context);
  /// Reads JSON in UTF-8.
  virtual void FromJson(char const* text, CSerializationContext const& context);
  /// Reads bytes, gzip or zlib data included. They are not changed.
  virtual void FromXmlStream(CBinaryData const& data, CSerializationContext const& context);
  virtual void FromXmlStream(unsigned char const* data, std::uint32_t length,
                             CSerializationContext const& context);
  /// Reads JSON in UTF-8, gzip or zlib data included.
  virtual void FromJsonStream(CBinaryData const& data, CSerializationContext const& context);
  virtual void FromJsonStream(unsigned char const* data, std::uint32_t length,
                              CSerializationContext const& context);
  /// Reads open content by way of its XML, which is written with the default context whatever
  /// @p context says.
  virtual void FromXmlElement(CElement const* element, CSerializationContext const& context);
  /// Reads an element of the caller's document, which is not changed.
  virtual void FromXmlElement(CXmlElement const* element, CSerializationContext const& context);

  /// Adds one to the count and gives the new count.
  std::int32_t AddRef() { return m_refCount.fetch_add(1, std::memory_order_relaxed) + 1; }
  /// Takes one from the count, deletes the object if the count was 1, and gives the new count.
  std::int32_t Release();

 protected:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override;

  /// Runs when Release takes the last count, or where a derived class makes it public.
  virtual ~CXmlObjectBase();

  /// The namespace under which the object is written when it is the root of a document. A zero unit
  /// follows the text, which stays where it is while the object is read or written.
  virtual std::u16string_view GetTargetNamespace() const = 0;

 public:
  /// The namespace that an owner hands to its element metadata while reading. A zero unit follows
  /// the text, which stays where it is while the object is read.
  virtual std::u16string_view GetNamespace() const = 0;

 protected:
  /// Writes the object's attributes into the start tag that @p writer has open. Does nothing here.
  virtual void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& context) const;

  /// Writes the object as an element.
  /// @param registerNamespaces true only for the root of a document.
  /// @param namespaceUri the namespace under which the element is opened; terminated, never null.
  /// @param isOptionalChoice true only for the optional member of a choice.
  virtual void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                         CSerializationContext const& context, bool isOptionalChoice) const = 0;

  /// Reads the object from the content of @p element. What was read before a failure stays.
  /// @param child the child of @p element at which reading starts: the first one when @p element
  ///   has just been matched, the present one when the object is a group that has no element of
  ///   its own; null when there is none.
  /// @param isOptionalChoice true only for the optional member of a choice.
  /// @returns the next sibling that was not read, null when all were. The same as @p child means
  ///   that nothing was read.
  virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                                   CSerializationContext const& context, bool isOptionalChoice) = 0;

  // The same three for any object: friends of this class that do not derive from it reach the
  // protected operations through them.
  static void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                  CSerializationContext const& context);
  static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool registerNamespaces,
                        char16_t const* namespaceUri, CSerializationContext const& context,
                        bool isOptionalChoice);
  static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* child,
                                  CSerializationContext const& context, bool isOptionalChoice);

  /// The local name under which the object is written, or under which it was last read.
  std::u16string GetElementName() const { return m_elementName; }
  void SetElementName(char16_t const* name) { SetElementName(this, name); }
  static void SetElementName(CXmlObjectBase* object, char16_t const* name);

  // A class that stands for a choice keeps one text, the selection: the name of the property that
  // is set, empty when none is. Its property setters call these three.

  /// With @p valid false empties the selection; else the selection must be @p name already.
  /// @throws CKestInvalidStateException for any other selection, the empty one included.
  static void Choice_SetElementValid(bool valid, char16_t const* name, std::u16string& selection);
  /// Selects @p name when nothing is selected, even for a null @p value; empties the selection
  /// when @p name is selected and @p value is null.
  /// @throws CKestInvalidStateException when another name is selected and @p value is not null.
  static void Choice_SelectElement(char16_t const* name, CXmlObjectBase* value,
                                   std::u16string& selection);
  /// To be called after the collection that is the property @p name changed its size to @p count:
  /// selects @p name when nothing is selected and the collection has items, and empties the
  /// selection when @p name is selected and it has none.
  /// @throws CKestInvalidStateException when another name is selected and @p count is not 0.
  static void Choice_CollectionChanged(char16_t const* name, std::int32_t count,
                                       std::u16string& selection);

  /// Reads the collection that is a property of a choice: nothing when @p count is 1 or more, the
  /// collection having been read. Otherwise what it takes from @p current on; when that is
  /// something, @p current moves on and @p count grows by one.
  /// @throws CKestValidationException when the collection then holds an invalid number of items.
  static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                     CXmlElement*& current, std::int32_t& count,
                                     CSerializationContext const& context);

  // Each calls OnEvent of @p sink with the collection as sender; see IEventSink::MsgType.
  static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
  static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                       void* item);
  static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                               void* item);
  /// @param index -1 for none: the event then carries no index.
  static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                          std::int32_t index);
  static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                  std::int32_t index);

  /// @throws CKestInvalidParamException when @p value, meant for the property @p name, is null.
  static void Throw_IfPropertyIsNull(CXmlObjectBase* value, char16_t const* name);
  /// @throws CKestInvalidParamException when @p value is not null and its element is not @p name.
  static void Throw_IfElementNameDiffers(CXmlObjectBase* value, char16_t const* name);

  /// Whether @p ns satisfies a wildcard: @p restriction is "##any", "##other" (not @p target),
  /// "##local" (empty), "##targetNamespace", or a URI, which admits itself and an empty @p ns.
  /// Of a list with blanks only the first token is looked at, and a URI there must equal the whole
  /// list. When that token does not admit @p ns, an empty @p ns or one equal to the whole list
  /// still passes, and the test fails for any other: no further token could ever admit it.
  static bool IsNamespaceValid(char16_t const* ns, char16_t const* restriction,
                               char16_t const* target);
  /// @throws CKestInvalidNamespaceException, with an empty path, unless IsNamespaceValid.
  static void TestNamespace(char16_t const* ns, char16_t const* restriction,
                            char16_t const* target);

  /// Whether @p element has the local name @p name and, unless @p context ignores namespaces, the
  /// namespace @p ns.
  static bool DoesElementNameMatch(CSerializationContext const& context, CXmlElement const* element,
                                   char16_t const* name, char16_t const* ns);

 private:
  // Metadata reaches the protected operations of objects through the static ones above.
  friend class KestXmlLib20Data::CAttributeInfo;
  friend class KestXmlLib20Data::CElementInfo;

  void WriteXml(CTextStream& stream, bool includeDocHeader, bool prettyPrint, EOLType eol,
                CSerializationContext const& context) const;
  void WriteJson(CTextStream& stream, bool prettyPrint, EOLType eol,
                 CSerializationContext const& context) const;
  template <typename Load>
  void ReadXml(CSerializationContext const& context, Load load);
  template <typename Load>
  void ReadJson(CSerializationContext const& context, Load load);
  void FromJson_Int(CBinaryData const& xml, CSerializationContext const& context);
  void ReadConverted(CBinaryData const& xml, CSerializationContext const& context);

  std::u16string m_elementName;
  std::atomic<std::int32_t> m_refCount{0};
};

}  // namespace KestXmlLib20

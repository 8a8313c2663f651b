// An element of open content.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

class CAttributeCol;
class CElementCol;
class CXmlTextWriter;

/// An element that no metadata describes, with all that is in it: a generic tree that is read and
/// written as it stands, but for the place of text between child elements.
///
/// Unlike a generated class it is not cleared by a read: attributes and children join those that
/// it has. In the texts that it takes null is empty, but for those of the constructors.
class KESTXML_API CElement : public CXmlObjectBase, private CInstanceMonitor {
 public:
  // For restrictions see CXmlObjectBase::IsNamespaceValid. The constructors throw
  // CKestInvalidNamespaceException when the namespace does not satisfy the restriction, and for a
  // null text, except that a null namespace is none.

  /// In no namespace, with the restriction "##any".
  explicit CElement(char16_t const* name);
  /// In the namespace @p ns, which is its own restriction.
  /// @throws CKestInvalidNamespaceException when @p ns is a keyword of restrictions.
  CElement(char16_t const* name, char16_t const* ns);
  /// @param targetNamespace what "##targetNamespace" and "##other" mean.
  CElement(char16_t const* name, char16_t const* ns, char16_t const* restriction,
           char16_t const* targetNamespace);
  /// A copy of @p source by way of its XML, which has the default namespace @p defaultNamespace.
  /// That may be null.
  CElement(CXmlObjectBase* source, char16_t const* defaultNamespace);
  CElement(CElement const&) = delete;
  CElement& operator=(CElement const&) = delete;

  std::u16string const& GetName() const { return m_name; }
  void SetName(char16_t const* name);
  /// All text directly inside the element. Written behind the child elements; a text that begins
  /// with "<![CDATA[" is written unescaped.
  std::u16string const& GetText() const { return m_text; }
  void SetText(char16_t const* text);
  std::u16string_view GetNamespace() const override { return m_namespace; }
  /// Without a test.
  void SetNamespace(char16_t const* ns);

  CSmartPtr<CAttributeCol> GetAttributes() const;
  CSmartPtr<CElementCol> GetChildElements() const;

  /// Tests the namespaces of the element, its attributes and all elements in it against
  /// @p restriction, and changes nothing.
  /// @throws CKestInvalidNamespaceException for the element or an attribute of its own.
  /// @throws CKestInvalidNamespaceException*, a pointer that the handler deletes, for an element
  ///   further down; its message names that element, its inner failure the namespace.
  void SetNamespaceRestrictions(char16_t const* restriction, char16_t const* targetNamespace) const;

  /// A copy with all attributes and elements in it, but without the default namespace.
  CSmartPtr<CElement> Clone() const;

  // The operations that are inherited hand the element's content to the object, and open content
  // reads an element: so they read the first child of the root, or nothing when there is none.
  using CXmlObjectBase::FromXml;
  /// Reads the root of a document, with the default context.
  void FromXml(char16_t const* text);
  /// Becomes a copy of @p element. What the object held before goes.
  void CopyXmlElement(CXmlElement const* element);

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }

 protected:
  ~CElement() override;

  void Init(char16_t const* name, char16_t const* ns, char16_t const* restriction,
            char16_t const* targetNamespace);

  std::u16string_view GetTargetNamespace() const override { return m_targetNamespace; }
  /// An element with a default namespace is written by itself, without its attributes, as a
  /// document of its own inside of the other. That takes a CXmlTextWriter: other writers write it
  /// as any element.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  /// Becomes the element @p current. The namespace restriction is tested; nothing is read when it
  /// does not admit the element.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current,
                           CSerializationContext const& context, bool isOptionalChoice) override;

  // Called after a change; for derived classes.
  void FireOnChangeName() {}
  void FireOnChangeNamespace() {}
  void FireOnChangeText() {}

 private:
  CAttributeCol& Attributes() const;
  CElementCol& Children() const;
  void ReplaceNamespace(std::u16string_view ns);
  void TestNamespaces(char16_t const* restriction, char16_t const* targetNamespace) const;
  CSmartPtr<CElement> CloneWithoutElements() const;
  void WriteContent(CXmlWriter& writer, char16_t const* namespaceUri,
                    CSerializationContext const& context, bool isOptionalChoice) const;
  void WriteAsBlock(CXmlTextWriter& writer, char16_t const* namespaceUri,
                    CSerializationContext const& context, bool isOptionalChoice) const;

  std::u16string m_name;
  std::u16string m_text;
  std::u16string m_namespace;
  std::u16string m_namespaceRestriction;
  std::u16string m_targetNamespace;
  // Most elements lack one or the other: each is made when it is first asked for, and both before
  // the namespace, which is also theirs, changes.
  mutable CSmartPtr<CAttributeCol> m_attributes;
  mutable CSmartPtr<CElementCol> m_childElements;
  std::u16string m_defaultNamespace;  // the value of an attribute xmlns; empty for none
};

}  // namespace KestXmlLib20

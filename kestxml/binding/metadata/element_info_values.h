// The value axis of the element info family: what an entry's property is, how it is written, and
// how it is read for each group and occurrence.
#pragma once

#include "kestxml/binding/metadata/element_info.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {
class CElement;
}

namespace KestXmlLib20Data {

using KestXmlLib20::CSmartPtr;

/// The other two axes.
enum class Group { Seq, Choice, All };
enum class Occurrence { Mnd, Opt };

/// Generated functions that make an object, and are never null themselves. The first makes one of
/// the class with a number that generated code gave it; a null result is as if the element were
/// absent. The second makes one of the class that an element of the document calls for, and gives
/// null for an element that it can't place.
using ClassFactory = CSmartPtr<CXmlObjectBase> (*)(int classId, char16_t const* elementName);
using ElementFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);

/// A property of a simple type.
class KESTXML_API CPrimitiveElementInfo : public CElementInfo {
 public:
  CPrimitiveElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                        bool nillable, KestXmlLib20::ItemType itemType,
                        char16_t const* formatOverride,
                        KestXmlLib20::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                        KestXmlLib20::CPrimitiveRestrictions const& restrictions,
                        char16_t const* defaultValue)
      : CElementInfo(name, ns, propertyIndex, nillable, itemType, formatOverride, whitespaceRule,
                     restrictions, defaultValue) {}

 protected:
  bool Write(Group group, CSerializationContext const& context, CXmlGeneratedClass const* owner,
             CXmlWriter* writer) const;
  bool Read(Group group, Occurrence occurrence, ElementRead const& read);
  bool IsMissingTolerated() const { return false; }
};

/// A property of a generated enumeration.
class KESTXML_API CEnumElementInfo : public CElementInfo {
 public:
  CEnumElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                   bool nillable, EnumToString enumToString, StringToEnum stringToEnum,
                   char16_t const* defaultValue)
      : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {}

 protected:
  bool Write(Group group, CSerializationContext const& context, CXmlGeneratedClass const* owner,
             CXmlWriter* writer) const;
  bool Read(Group group, Occurrence occurrence, ElementRead const& read);
  bool IsMissingTolerated() const { return false; }
};

/// What entries of class kinds share: whether the child has an element of its own.
class KESTXML_API CObjectElementInfo : public CElementInfo {
 public:
  void PseudoChildAttributeToXml(CSerializationContext const& context,
                                 CXmlGeneratedClass const* owner,
                                 CXmlWriter* writer) const override;

 protected:
  CObjectElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                     XmlElementType elementType)
      : CElementInfo(name, ns, propertyIndex), m_elementType(elementType) {}

  bool HasElement() const { return m_elementType == XmlElementType_Element; }
  XmlElementType GetElementType() const { return m_elementType; }

  CSmartPtr<CXmlObjectBase> GetObject(CXmlGeneratedClass* owner) const;
  void SetObject(ElementRead const& read, CXmlObjectBase* object, CXmlElement const& element) const;
  /// Reads @p object from the current element and steps over it.
  static void ReadFromElement(ElementRead const& read, CXmlObjectBase* object,
                              bool isOptionalChoice = false);
  /// Reads @p object from the children of the parent, from the current one; gives the next.
  static CXmlElement* ReadFromParent(ElementRead const& read, CXmlObjectBase* object);

 private:
  XmlElementType m_elementType;
};

/// A property of one known class.
class KESTXML_API CClassElementInfo : public CObjectElementInfo {
 public:
  /// @param classId what @p factory is called with.
  /// @param hasMandatoryContent whether an object without an element of its own must find something
  ///   to read; false when all of its content is optional.
  CClassElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                    XmlElementType elementType, ClassFactory factory, int classId,
                    bool hasMandatoryContent)
      : CObjectElementInfo(name, ns, propertyIndex, elementType),
        m_factory(factory),
        m_classId(classId),
        m_hasMandatoryContent(hasMandatoryContent) {}

 protected:
  bool Write(Group group, CSerializationContext const& context, CXmlGeneratedClass const* owner,
             CXmlWriter* writer) const;
  bool Read(Group group, Occurrence occurrence, ElementRead const& read);
  bool IsMissingTolerated() const;

 private:
  CSmartPtr<CXmlObjectBase> Create() const {
    return m_factory(m_classId, GetElementName().c_str());
  }
  bool ReadMandatoryInSequence(ElementRead const& read);
  bool ReadMandatoryGroup(ElementRead const& read);
  bool ReadMandatoryInAll(ElementRead const& read);
  bool ReadOptional(Group group, ElementRead const& read);
  bool ReadInChoice(ElementRead const& read);

  ClassFactory m_factory;
  int m_classId;
  bool m_hasMandatoryContent;
};

/// The same where the element may be absent.
class KESTXML_API COptionalClassElementInfo : public CClassElementInfo {
 public:
  COptionalClassElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                            XmlElementType elementType, ClassFactory factory, int classId)
      : CClassElementInfo(name, ns, propertyIndex, elementType, factory, classId, true) {}
};

/// A property of an abstract class, or of a class with substitutions.
class KESTXML_API CAbstractClassElementInfo : public CObjectElementInfo {
 public:
  CAbstractClassElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                            XmlElementType elementType, ElementFactory factory)
      : CObjectElementInfo(name, ns, propertyIndex, elementType), m_factory(factory) {}

 protected:
  bool Write(Group group, CSerializationContext const& context, CXmlGeneratedClass const* owner,
             CXmlWriter* writer) const;
  bool Read(Group group, Occurrence occurrence, ElementRead const& read);
  bool IsMissingTolerated() const { return false; }

 private:
  bool ReadMandatoryInSequence(ElementRead const& read);
  bool ReadInChoice(ElementRead const& read);
  bool ReadInAll(ElementRead const& read);
  bool ReadAndStore(ElementRead const& read, CXmlObjectBase* object) const;

  ElementFactory m_factory;
};

/// A wildcard: its property is a CElement. An entry with the name "AnyElement" takes an element of
/// any name that its namespace restriction allows, another one only its own name.
class KESTXML_API CWildcardElementInfo : public CElementInfo {
 public:
  /// @param namespaceRestriction as in CXmlObjectBase::IsNamespaceValid, with @p targetNamespace.
  CWildcardElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                       char16_t const* namespaceRestriction, char16_t const* targetNamespace);

 protected:
  bool Write(Group group, CSerializationContext const& context, CXmlGeneratedClass const* owner,
             CXmlWriter* writer) const;
  bool Read(Group group, Occurrence occurrence, ElementRead const& read);
  bool IsMissingTolerated() const { return false; }

 private:
  bool TakesName(CXmlElement const& element) const;
  bool ReadInto(ElementRead const& read, CXmlObjectBase* object) const;
  bool ReadMandatory(Group group, ElementRead const& read);
  bool ReadOptional(Group group, ElementRead const& read);

  std::u16string m_namespaceRestriction;
  std::u16string m_targetNamespace;
};

}  // namespace KestXmlLib20Data

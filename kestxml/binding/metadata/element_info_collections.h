// Entries whose property is a collection: the base of each group, and what kinds of items add.
#pragma once

#include "kestxml/binding/metadata/element_info.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20Data {

/// What the collections of all groups share.
class KESTXML_API CCollectionElementInfo : public CElementInfo {
 public:
  CCollectionElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex)
      : CElementInfo(name, ns, propertyIndex) {}

  /// Writes the collection once its number of items has been checked.
  bool ElementToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                    CXmlWriter* writer) const override;

 protected:
  KestXmlLib20::CSmartPtr<KestXmlLib20::CXmlCollectionBase> GetCollection(
      CXmlGeneratedClass const* owner) const;
  /// Lets @p collection read from the current element; gives the next that is unread.
  virtual CXmlElement* ReadItems(ElementRead const& read,
                                 KestXmlLib20::CXmlCollectionBase& collection) const;
  CXmlElement* ReadWildcardItems(ElementRead const& read,
                                 KestXmlLib20::CXmlCollectionBase& collection) const;
  /// Writes the attributes of items that have no elements of their own.
  void CollectionAttributesToXml(CSerializationContext const& context,
                                 CXmlGeneratedClass const* owner, CXmlWriter* writer) const;
};

/// A collection in a sequence.
class KESTXML_API CElementInfoSeqCol : public CCollectionElementInfo {
 public:
  using CCollectionElementInfo::CCollectionElementInfo;
  bool ElementFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** current, char16_t const* ownerNamespace,
                      XmlElementType ownerElementType) override;
};

/// A collection in a choice. Its count is not checked on writing.
class KESTXML_API CElementInfoChoiceCol : public CCollectionElementInfo {
 public:
  using CCollectionElementInfo::CCollectionElementInfo;
  bool ElementToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                    CXmlWriter* writer) const override;
  bool ElementFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** current, char16_t const* ownerNamespace,
                      XmlElementType ownerElementType) override;
};

/// A collection in an all group. It stays open for more, so an object that has one can't be read:
/// the group's validation ends in the exception of CElementInfo::Validate.
class KESTXML_API CElementInfoAllCol : public CCollectionElementInfo {
 public:
  using CCollectionElementInfo::CCollectionElementInfo;
  bool ElementFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** current, char16_t const* ownerNamespace,
                      XmlElementType ownerElementType) override;
};

/// A collection of objects, on the base of its group.
template <typename GroupBase>
class CObjectCollectionElementInfo : public GroupBase {
 public:
  using Base = CObjectCollectionElementInfo;

  CObjectCollectionElementInfo(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                               XmlElementType elementType)
      : GroupBase(name, ns, propertyIndex), m_elementType(elementType) {}

  void PseudoChildAttributeToXml(CSerializationContext const& context,
                                 CXmlGeneratedClass const* owner,
                                 CXmlWriter* writer) const override {
    if (m_elementType != XmlElementType_PseudoElement) return;
    this->CollectionAttributesToXml(context, owner, writer);
  }

 private:
  XmlElementType m_elementType;
};

/// A collection of CElement, on the base of its group. With the name "AnyElement" the collection
/// takes what its own restriction allows, with another name only elements of that name and of the
/// namespace of the first.
template <typename GroupBase>
class CWildcardCollectionElementInfo : public GroupBase {
 public:
  using GroupBase::GroupBase;
  using Base = CWildcardCollectionElementInfo;

 protected:
  CXmlElement* ReadItems(ElementRead const& read,
                         KestXmlLib20::CXmlCollectionBase& collection) const override {
    return this->ReadWildcardItems(read, collection);
  }
};

}  // namespace KestXmlLib20Data

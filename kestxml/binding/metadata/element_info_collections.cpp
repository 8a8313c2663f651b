#include "kestxml/binding/metadata/element_info_collections.h"

#include "kestxml/binding/element_col.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/xml_generated_class.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/kest_variant.h"

namespace KestXmlLib20Data {

using namespace KestXmlLib20;

// Generated code makes its collections in Init; one that is missing is an error of that code.
CSmartPtr<CXmlCollectionBase> CCollectionElementInfo::GetCollection(
    CXmlGeneratedClass const* owner) const {
  KestVariant value;
  ReadProperty(owner, value);
  auto collection = value.GetXmlCollection();
  if (!collection) ThrowMandatoryPropertyMissing();
  return collection;
}

CXmlElement* CCollectionElementInfo::ReadItems(ElementRead const& read,
                                               CXmlCollectionBase& collection) const {
  return FromXml_Int(&collection, read.parent, read.current, read.context, false);
}

CXmlElement* CCollectionElementInfo::ReadWildcardItems(ElementRead const& read,
                                                       CXmlCollectionBase& collection) const {
  if (GetElementName() == u"AnyElement") return CCollectionElementInfo::ReadItems(read, collection);
  auto* const elements = dynamic_cast<CElementCol*>(&collection);
  if (!elements) {
    throw CKestException(
        u"Serialization Data Error : The collection should be a CElementCol, it was not!");
  }
  return FromXmlLockElementName_Int(elements, GetElementName(), read);
}

void CCollectionElementInfo::CollectionAttributesToXml(CSerializationContext const& context,
                                                       CXmlGeneratedClass const* owner,
                                                       CXmlWriter* writer) const {
  KestVariant value;
  ReadProperty(owner, value);
  if (auto const collection = value.GetXmlCollection()) {
    AttributesToXml_Int(collection.Get(), writer, context);
  }
}

bool CCollectionElementInfo::ElementToXml(CSerializationContext const& context,
                                          CXmlGeneratedClass const* owner,
                                          CXmlWriter* writer) const {
  auto const collection = GetCollection(owner);
  if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
  return WriteCollection(context, *collection, writer);
}

// A group with too few or too many items counts as not found, and its parent decides.
bool CElementInfoSeqCol::ElementFromXml(CSerializationContext const& context,
                                        CXmlGeneratedClass* owner, CXmlElement* parent,
                                        CXmlElement** current, char16_t const* ownerNamespace,
                                        XmlElementType ownerElementType) {
  ElementRead const read{context, owner, parent, *current, ownerNamespace, ownerElementType};
  auto const collection = GetCollection(owner);
  read.current = ReadItems(read, *collection);
  if (read.IsOwnerGroup()) return collection->IsValidCount(context);
  collection->ValidateCount(context);
  return true;
}

bool CElementInfoChoiceCol::ElementToXml(CSerializationContext const& context,
                                         CXmlGeneratedClass const* owner,
                                         CXmlWriter* writer) const {
  return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(CSerializationContext const& context,
                                           CXmlGeneratedClass* owner, CXmlElement* parent,
                                           CXmlElement** current, char16_t const* ownerNamespace,
                                           XmlElementType ownerElementType) {
  ElementRead const read{context, owner, parent, *current, ownerNamespace, ownerElementType};
  auto const collection = GetCollection(owner);
  CXmlElement* const next = ReadItems(read, *collection);
  if (next == read.current) return false;
  if (read.IsOwnerGroup()) {
    bool const isValid = collection->IsValidCount(context);
    if (isValid) read.current = next;
    return isValid;
  }
  read.current = next;
  collection->ValidateCount(context);
  return true;
}

bool CElementInfoAllCol::ElementFromXml(CSerializationContext const& context,
                                        CXmlGeneratedClass* owner, CXmlElement* parent,
                                        CXmlElement** current, char16_t const* ownerNamespace,
                                        XmlElementType ownerElementType) {
  ElementRead const read{context, owner, parent, *current, ownerNamespace, ownerElementType};
  read.current = ReadItems(read, *GetCollection(owner));
  return false;
}

}  // namespace KestXmlLib20Data

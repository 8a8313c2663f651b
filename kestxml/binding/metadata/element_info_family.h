// The classes from which generated code chooses the entries of its element tables.
//
// A name is CElementInfo, then group, value kind and occurrence:
//
//   Seq, Choice, All     the group of the owning class
//   Prim                 a property of a simple type
//   Enum                 a property of a generated enumeration
//   Cls                  a property of one known class
//   AbsCls               a property of an abstract class or a class with substitutions
//   Untpd                a wildcard: CElement, or CElementCol for Col
//   Mnd, Opt, Col        exactly once, zero or one, a collection
//
// A choice has no Mnd, since a member of a choice is optional by nature. What a value kind does in
// each group stands in element_info_values.cpp, what a collection does in
// element_info_collections.cpp, and what holds for all of them here.
#pragma once

#include "kestxml/binding/metadata/element_info_collections.h"
#include "kestxml/binding/metadata/element_info_values.h"

namespace KestXmlLib20Data {

/// One value kind in one group, with one occurrence. The constructor is that of the value kind.
template <typename Value, Group kGroup, Occurrence kOccurrence>
class CGridElementInfo : public Value {
 public:
  using Value::Value;
  using Base = CGridElementInfo;

  /// @throws CKestInvalidParamException when a mandatory property has no value.
  bool ElementToXml(CSerializationContext const& context, CXmlGeneratedClass const* owner,
                    CXmlWriter* writer) const override {
    bool const isWritten = this->Write(kGroup, context, owner, writer);
    if (!isWritten && kOccurrence == Occurrence::Mnd) this->ThrowMandatoryPropertyMissing();
    return isWritten;
  }

  bool ElementFromXml(CSerializationContext const& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** current, char16_t const* ownerNamespace,
                      XmlElementType ownerElementType) override {
    return this->Read(kGroup, kOccurrence,
                      {context, owner, parent, *current, ownerNamespace, ownerElementType});
  }

  /// A mandatory element of an all group must be there if the owner is an element, whatever the
  /// context tolerates elsewhere; an owner that is a group then counts as not found.
  /// @throws CKestValidationException
  bool Validate(CSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                bool ownerIsElement) const override {
    if constexpr (kGroup != Group::All) {
      return Value::Validate(context, owner, found, ownerIsElement);
    } else {
      if (kOccurrence == Occurrence::Opt) return true;
      if (found || !ownerIsElement) return found;
      if (!this->IsMissingTolerated()) this->ThrowMandatoryElementMissing();
      return true;
    }
  }
};

template <typename Value>
using SeqMnd = CGridElementInfo<Value, Group::Seq, Occurrence::Mnd>;
template <typename Value>
using SeqOpt = CGridElementInfo<Value, Group::Seq, Occurrence::Opt>;
template <typename Value>
using ChoiceOpt = CGridElementInfo<Value, Group::Choice, Occurrence::Opt>;
template <typename Value>
using AllMnd = CGridElementInfo<Value, Group::All, Occurrence::Mnd>;
template <typename Value>
using AllOpt = CGridElementInfo<Value, Group::All, Occurrence::Opt>;

// clang-format off

class KESTXML_API CElementInfoSeqPrimMnd : public SeqMnd<CPrimitiveElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqPrimOpt : public SeqOpt<CPrimitiveElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqEnumMnd : public SeqMnd<CEnumElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqEnumOpt : public SeqOpt<CEnumElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqClsMnd : public SeqMnd<CClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqClsOpt : public SeqOpt<COptionalClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqAbsClsMnd : public SeqMnd<CAbstractClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqAbsClsOpt : public SeqOpt<CAbstractClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqUntpdMnd : public SeqMnd<CWildcardElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoSeqUntpdOpt : public SeqOpt<CWildcardElementInfo> { using Base::Base; };

class KESTXML_API CElementInfoChoicePrimOpt : public ChoiceOpt<CPrimitiveElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoChoiceEnumOpt : public ChoiceOpt<CEnumElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoChoiceClsOpt : public ChoiceOpt<COptionalClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoChoiceAbsClsOpt : public ChoiceOpt<CAbstractClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoChoiceUntpdOpt : public ChoiceOpt<CWildcardElementInfo> { using Base::Base; };

class KESTXML_API CElementInfoAllPrimMnd : public AllMnd<CPrimitiveElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllPrimOpt : public AllOpt<CPrimitiveElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllEnumMnd : public AllMnd<CEnumElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllEnumOpt : public AllOpt<CEnumElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllClsMnd : public AllMnd<CClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllClsOpt : public AllOpt<COptionalClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllAbsClsMnd : public AllMnd<CAbstractClassElementInfo> {
 public:
  /// @param reserved is not read.
  CElementInfoAllAbsClsMnd(char16_t const* name, char16_t const* ns, std::int32_t propertyIndex,
                           XmlElementType elementType, ElementFactory factory,
                           [[maybe_unused]] int reserved)
      : Base(name, ns, propertyIndex, elementType, factory) {}
};
class KESTXML_API CElementInfoAllAbsClsOpt : public AllOpt<CAbstractClassElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllUntpdMnd : public AllMnd<CWildcardElementInfo> { using Base::Base; };
class KESTXML_API CElementInfoAllUntpdOpt : public AllOpt<CWildcardElementInfo> { using Base::Base; };

// A collection of primitives, enumerations or, in an all group, elements of open content is what its
// group makes of it.
class KESTXML_API CElementInfoSeqPrimCol : public CElementInfoSeqCol { using CElementInfoSeqCol::CElementInfoSeqCol; };
class KESTXML_API CElementInfoSeqEnumCol : public CElementInfoSeqCol { using CElementInfoSeqCol::CElementInfoSeqCol; };
class KESTXML_API CElementInfoSeqClsCol : public CObjectCollectionElementInfo<CElementInfoSeqCol> { using Base::Base; };
class KESTXML_API CElementInfoSeqAbsClsCol : public CObjectCollectionElementInfo<CElementInfoSeqCol> { using Base::Base; };
class KESTXML_API CElementInfoSeqUntpdCol : public CWildcardCollectionElementInfo<CElementInfoSeqCol> { using Base::Base; };

class KESTXML_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol { using CElementInfoChoiceCol::CElementInfoChoiceCol; };
class KESTXML_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol { using CElementInfoChoiceCol::CElementInfoChoiceCol; };
class KESTXML_API CElementInfoChoiceClsCol : public CObjectCollectionElementInfo<CElementInfoChoiceCol> { using Base::Base; };
class KESTXML_API CElementInfoChoiceAbsClsCol : public CObjectCollectionElementInfo<CElementInfoChoiceCol> { using Base::Base; };
class KESTXML_API CElementInfoChoiceUntpdCol : public CWildcardCollectionElementInfo<CElementInfoChoiceCol> { using Base::Base; };

class KESTXML_API CElementInfoAllPrimCol : public CElementInfoAllCol { using CElementInfoAllCol::CElementInfoAllCol; };
/// A collection of enumerations in an all group can't be read or written by the library: the class
/// stays abstract, and generated code must not use it.
class KESTXML_API CElementInfoAllEnumCol : public CElementInfo { using CElementInfo::CElementInfo; };
class KESTXML_API CElementInfoAllClsCol : public CObjectCollectionElementInfo<CElementInfoAllCol> { using Base::Base; };
class KESTXML_API CElementInfoAllAbsClsCol : public CObjectCollectionElementInfo<CElementInfoAllCol> { using Base::Base; };
class KESTXML_API CElementInfoAllUntpdCol : public CElementInfoAllCol { using CElementInfoAllCol::CElementInfoAllCol; };

// clang-format on

}  // namespace KestXmlLib20Data

// The elements of open content.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20Data {
class CElementInfo;
}

namespace KestXmlLib20 {

class CElement;

/// The elements that an element wildcard of a schema takes, or the children of an element of open
/// content. Once made, a collection admits any namespace, so reading takes all elements that are
/// left.
///
/// A tree of any depth ends without recursion.
class KESTXML_API CElementCol : public CXmlCollection, private CInstanceMonitor {
 public:
  /// @param ns the namespace of elements that are added without one. When it is empty and
  ///   @p restriction begins with "##" that namespace is the text of @p restriction.
  /// @param restriction what @p ns must satisfy, see CXmlObjectBase::IsNamespaceValid; it serves
  ///   for nothing else.
  /// @param maxOccurs -1 is unbounded.
  /// @throws CKestInvalidNamespaceException when @p ns does not satisfy @p restriction.
  CElementCol(char16_t const* ns, char16_t const* restriction, char16_t const* targetNamespace,
              std::int32_t minOccurs = 0, std::int32_t maxOccurs = -1);

  /// Adds an element in the collection's namespace.
  /// @throws CKestInvalidStateException when that is empty.
  CSmartPtr<CElement> Add(char16_t const* name);
  CSmartPtr<CElement> Add(char16_t const* name, char16_t const* ns);
  CSmartPtr<CElement> Add(CElement* element);

  // For these see CXmlCollection.
  void AddAfter(CElement const* after, CElement* element);
  void AddBefore(CElement const* before, CElement* element);
  CSmartPtr<CElement> Item(std::int32_t index) const;

  CKestIterator<CElement> begin() const { return CKestIterator<CElement>(GetFirstNode()); }
  CKestIterator<CElement> end() const { return {}; }

  /// A collection of clones.
  CSmartPtr<CElementCol> Clone() const;

  /// The target namespace, not that of elements which are added without one.
  std::u16string_view GetNamespace() const override { return m_targetNamespace; }

 protected:
  ~CElementCol() override;

  std::u16string_view GetTargetNamespace() const override { return m_targetNamespace; }
  /// @throws CKestValidationException for an invalid count, before anything is written.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  /// Adds @p child and all siblings behind it.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;
  /// Adds @p child and the siblings behind it up to the first with another name.
  virtual CXmlElement* FromXmlLockElementName_Int(std::u16string_view name, std::u16string_view ns,
                                                  CXmlElement* parent, CXmlElement* child,
                                                  CSerializationContext const& context,
                                                  bool isOptionalChoice);

 private:
  friend class CElement;
  friend class KestXmlLib20Data::CElementInfo;  // calls FromXmlLockElementName_Int

  CSmartPtr<CElementCol> CloneWithoutElements() const;
  template <typename IsTaken>
  CXmlElement* ReadWhile(IsTaken isTaken, CXmlElement* parent, CXmlElement* child,
                         CSerializationContext const& context);

  std::u16string m_targetNamespace;
};

}  // namespace KestXmlLib20

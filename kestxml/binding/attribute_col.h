// The attributes of open content.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

class CAttribute;

/// The attributes that an attribute wildcard of a schema takes, those of an element of open
/// content, or those that a context adds to the root. Reading leaves none out: xsi:type and
/// xsi:schemaLocation are attributes like any other.
///
/// For the restriction on namespaces see CXmlObjectBase::IsNamespaceValid. Only what says so tests
/// it.
class KESTXML_API CAttributeCol : public CXmlCollection, private CInstanceMonitor {
 public:
  /// @param ns the namespace of attributes that are added without one. When it is empty the first
  ///   token of @p restriction is, unless that is a keyword or shorter than two units.
  CAttributeCol(char16_t const* ns, char16_t const* restriction, char16_t const* targetNamespace);

  /// Adds without testing the namespace.
  CSmartPtr<CAttribute> Add(CAttribute* attribute);
  /// Adds an attribute in the collection's namespace, empty where no @p value is given.
  /// @throws CKestInvalidNamespaceException when the restriction does not admit that.
  CSmartPtr<CAttribute> Add(char16_t const* name);
  CSmartPtr<CAttribute> Add(char16_t const* name, char16_t const* value);
  /// The same in the namespace @p ns.
  CSmartPtr<CAttribute> Add(char16_t const* name, char16_t const* value, char16_t const* ns);

  // For these see CXmlCollection. None of them tests the namespace.
  void AddAfter(CAttribute const* after, CAttribute* attribute);
  void AddBefore(CAttribute const* before, CAttribute* attribute);
  CSmartPtr<CAttribute> Item(std::int32_t index) const;

  CKestIterator<CAttribute> begin() const { return CKestIterator<CAttribute>(GetFirstNode()); }
  CKestIterator<CAttribute> end() const { return {}; }

  /// A collection of clones.
  CSmartPtr<CAttributeCol> Clone() const;

 protected:
  ~CAttributeCol() override;

  /// Writes the attributes into the start tag that @p writer has open.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  /// Adds all attributes of @p element.
  /// @throws CKestInvalidNamespaceException for one that the restriction does not admit.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

 private:
  CSmartPtr<CAttribute> AppendNew(char16_t const* name, char16_t const* value, char16_t const* ns);

  std::u16string m_namespaceRestriction;
  std::u16string m_targetNamespace;
};

}  // namespace KestXmlLib20

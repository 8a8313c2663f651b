// An attribute of open content.
#pragma once

#include <string>
#include <string_view>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

/// An attribute that no metadata describes: two names and a text. CAttributeCol makes them, and
/// reads them. In the texts that it takes null is empty.
class KESTXML_API CAttribute : public CXmlObjectBase, private CInstanceMonitor {
 public:
  std::u16string const& GetName() const { return m_name; }
  void SetName(char16_t const* name);
  std::u16string const& GetValue() const { return m_value; }
  void SetValue(char16_t const* value);
  std::u16string_view GetNamespace() const override { return m_namespace; }
  void SetNamespace(char16_t const* ns);

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  CSmartPtr<CAttribute> Clone() const;

 protected:
  CAttribute(char16_t const* name, char16_t const* value, char16_t const* ns);
  ~CAttribute() override;

  std::u16string_view GetTargetNamespace() const override { return m_namespace; }
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  /// @throws CKestException always: the collection reads its attributes.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

  // Called after a change; for derived classes.
  void FireOnChangeName() {}
  void FireOnChangeNamespace() {}
  void FireOnChangeText() {}

 private:
  friend class CAttributeCol;

  std::u16string m_name;
  std::u16string m_value;
  std::u16string m_namespace;
};

}  // namespace KestXmlLib20

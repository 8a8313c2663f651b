// The least that an object must be: it has no content, and reads and writes nothing.
#pragma once

#include <string_view>

#include "kestxml/binding/xml_object_base.h"

namespace KestXmlLib20 {

class BareObject : public CXmlObjectBase {
 public:
  /// @param deleted set to true when the object ends.
  explicit BareObject(bool* deleted = nullptr) : m_deleted(deleted) {}

  using CXmlObjectBase::GetElementName;
  using CXmlObjectBase::SetElementName;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return {}; }

 protected:
  ~BareObject() override {
    if (m_deleted) *m_deleted = true;
  }
  std::u16string_view GetTargetNamespace() const override { return {}; }
  void ToXml_Int(CXmlWriter*, bool, char16_t const*, CSerializationContext const&,
                 bool) const override {}
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const&,
                           bool) override {
    return child;
  }

 private:
  bool* m_deleted;
};

}  // namespace KestXmlLib20

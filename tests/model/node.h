// An object that holds any document without mixed content: what is read is written.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

class Node : public CXmlObjectBase {
 public:
  struct Attribute {
    std::u16string name, ns, value;
    bool operator==(Attribute const&) const = default;
  };

  Node() = default;
  explicit Node(char16_t const* name, std::u16string text = {}, std::u16string ns = {});
  ~Node() override;

  std::u16string ns;
  std::vector<Attribute> attributes;
  std::u16string text;  ///< white space between children is not kept
  std::vector<CSmartPtr<Node>> children;

  /// Adds a child and gives it, as a place to add more to.
  Node& Add(char16_t const* name, std::u16string childText = {}, std::u16string childNs = {});

  /// Whether names, attributes, text and children are the same.
  bool operator==(Node const& other) const;

  using CXmlObjectBase::GetElementName;
  using CXmlObjectBase::SetElementName;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return ns; }

 protected:
  std::u16string_view GetTargetNamespace() const override { return ns; }
  /// Before a root it writes the processing instructions of the context.
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

  using CXmlObjectBase::FromXml_Int;
  using CXmlObjectBase::ToXml_Int;

 private:
  void Clear();
};

/// The outline, for failed comparisons.
void PrintTo(Node const& node, std::ostream* out);

}  // namespace KestXmlLib20

// Any XML document as objects: elements with their names, attributes and text.
#pragma once

#include <map>
#include <ostream>
#include <vector>

#include "kestxml/kestxml.h"

namespace KestDemo {

struct Name {
  std::u16string uri;
  std::u16string local;
  auto operator<=>(Name const&) const = default;
};

struct Attribute {
  Name name;
  std::u16string value;
  bool operator==(Attribute const&) const = default;
};

/// An element with all that it holds. As the root of a document it is written under the prefixes
/// that it was read with.
class CAnyElement : public KestXmlLib20::CXmlObjectBase {
 public:
  static constexpr bool kMayBeIndented = false;  // it would add to the texts

  Name name;
  std::vector<Attribute> attributes;
  std::u16string text;  ///< joined, whichever side of the children it stood on
  std::vector<KestXmlLib20::CSmartPtr<CAnyElement>> children;

  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return name.uri; }

  /// The prefixes do not count.
  bool operator==(CAnyElement const& other) const;

 protected:
  std::u16string_view GetTargetNamespace() const override { return name.uri; }
  void AttributesToXml_Int(KestXmlLib20::CXmlWriter* writer,
                           KestXmlLib20::CSerializationContext const& context) const override;
  void ToXml_Int(KestXmlLib20::CXmlWriter* writer, bool registerNamespaces,
                 char16_t const* namespaceUri, KestXmlLib20::CSerializationContext const& context,
                 bool isOptionalChoice) const override;
  KestXmlLib20::CXmlElement* FromXml_Int(KestXmlLib20::CXmlElement* element,
                                         KestXmlLib20::CXmlElement* child,
                                         KestXmlLib20::CSerializationContext const& context,
                                         bool isOptionalChoice) override;

 private:
  void NotePrefixes(KestXmlLib20::CXmlElement const& root);

  std::map<std::u16string, std::u16string> m_prefixes;  // by URI; filled in a root only
};

/// Prints what elements there are, how many, how deep and how large.
void Print(std::ostream& out, CAnyElement const& root);

}  // namespace KestDemo

#include "tests/model/node.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/unicode.h"

namespace KestXmlLib20 {

Node::Node(char16_t const* name, std::u16string text_, std::u16string ns_)
    : ns(std::move(ns_)), text(std::move(text_)) {
  SetElementName(name);
}

Node::~Node() = default;

Node& Node::Add(char16_t const* name, std::u16string childText, std::u16string childNs) {
  children.emplace_back(new Node(name, std::move(childText), std::move(childNs)));
  return *children.back();
}

bool Node::operator==(Node const& other) const {
  auto const same = [](auto const& left, auto const& right) { return *left == *right; };
  return GetElementName() == other.GetElementName() && ns == other.ns && text == other.text &&
         attributes == other.attributes &&
         std::equal(children.begin(), children.end(), other.children.begin(), other.children.end(),
                    same);
}

void Node::ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                     CSerializationContext const& context, bool /*isOptionalChoice*/) const {
  if (registerNamespaces) {
    for (auto const& text_ : context.GetProcessingInstructions()) {
      writer->WriteProcessingInstruction(text_);
    }
  }
  writer->StartElement(GetElementName(), namespaceUri);
  for (auto const& [name, uri, value] : attributes) {
    writer->WriteAttribute(name, uri, value, ItemType_string);
  }
  writer->WriteText(text, ItemType_string, false);
  for (auto const& child : children) {
    ToXml_Int(child.Get(), writer, false, child->ns.c_str(), context, false);
  }
  writer->EndElement();
}

void Node::Clear() {
  attributes.clear();
  children.clear();
}

CXmlElement* Node::FromXml_Int(CXmlElement* element, CXmlElement* child,
                               CSerializationContext const& context, bool /*isOptionalChoice*/) {
  Clear();
  SetElementName(element->GetLocalName().data());
  ns = element->GetNamespaceURI();
  for (auto const* attribute : element->GetAttributes()) {
    attributes.push_back({std::u16string(attribute->GetLocalName()),
                          std::u16string(attribute->GetNamespaceURI()),
                          std::u16string(attribute->GetValue())});
  }
  bool const isLayout =
      child && element->GetText().find_first_not_of(u" \t\n") == std::u16string_view::npos;
  text = isLayout ? std::u16string_view() : element->GetText();
  for (; child; child = child->GetNextSiblingElement()) {
    FromXml_Int(&Add(u""), child, child->GetFirstElement(), context, false);
  }
  return nullptr;
}

void PrintTo(Node const& node, std::ostream* out) {
  *out << '<' << ToUtf8(node.GetElementName());
  for (auto const& attribute : node.attributes) {
    *out << ' ' << ToUtf8(attribute.name) << "='" << ToUtf8(attribute.value) << '\'';
  }
  *out << '>' << ToUtf8(node.text);
  for (auto const& child : node.children) PrintTo(*child, out);
  *out << "</>";
}

}  // namespace KestXmlLib20

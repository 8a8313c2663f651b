#include "examples/demo/any_document.h"

#include <algorithm>

#include "examples/demo/columns.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;

struct Tally {
  std::size_t elements = 0;
  std::size_t depth = 0;  // the greatest; the root has 1
  std::size_t attributes = 0;
  std::size_t text = 0;  // in UTF-16 units, white space included

  void Add(CAnyElement const& element, std::size_t elementDepth) {
    ++elements;
    depth = std::max(depth, elementDepth);
    attributes += element.attributes.size();
    text += element.text.size();
  }
};

using Tallies = std::map<Name, Tally>;

void Count(CAnyElement const& element, std::size_t depth, Tallies& names, Tally& total) {
  names[element.name].Add(element, depth);
  total.Add(element, depth);
  for (auto const& child : element.children) Count(*child, depth + 1, names, total);
}

void PrintRow(std::ostream& out, Tallies::value_type const& row) {
  auto const& [name, tally] = row;
  out << Grouped(tally.elements, 12) << Grouped(tally.depth, 7) << Grouped(tally.attributes, 12)
      << Grouped(tally.text, 14) << "  ";
  if (name.uri.empty())
    out << ToUtf8(name.local) << '\n';
  else
    out << Left(name.local, 23) << ' ' << ToUtf8(name.uri) << '\n';
}

}  // namespace

bool CAnyElement::operator==(CAnyElement const& other) const {
  return name == other.name && attributes == other.attributes && text == other.text &&
         std::ranges::equal(children, other.children,
                            [](auto const& left, auto const& right) { return *left == *right; });
}

void CAnyElement::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const&) const {
  for (Attribute const& attribute : attributes)
    writer->WriteAttribute(attribute.name.local, attribute.name.uri, attribute.value,
                           ItemType_string);
}

void CAnyElement::ToXml_Int(CXmlWriter* writer, bool registerNamespaces,
                            char16_t const* namespaceUri, CSerializationContext const& context,
                            bool) const {
  if (registerNamespaces)
    for (auto const& [uri, prefix] : m_prefixes) writer->AddNamespace(prefix, uri);
  writer->StartElement(name.local, namespaceUri);
  AttributesToXml_Int(writer, context);
  writer->WriteText(text, ItemType_string, false);
  for (auto const& child : children)
    child->ToXml_Int(writer, false, child->name.uri.c_str(), context, false);
  writer->EndElement();
}

CXmlElement* CAnyElement::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                      CSerializationContext const& context, bool) {
  name = {std::u16string(element->GetNamespaceURI()), std::u16string(element->GetLocalName())};
  text = element->GetText();
  attributes.clear();
  for (CXmlAttribute const* attribute : element->GetAttributes())
    attributes.push_back(
        {{std::u16string(attribute->GetNamespaceURI()), std::u16string(attribute->GetLocalName())},
         std::u16string(attribute->GetValue())});
  children.clear();
  for (; child; child = child->GetNextSiblingElement()) {
    children.emplace_back(new CAnyElement);
    children.back()->FromXml_Int(child, child->GetFirstElement(), context, false);
  }
  if (!element->GetParentElm()) NotePrefixes(*element);
  return nullptr;
}

void CAnyElement::NotePrefixes(CXmlElement const& root) {
  m_prefixes = {{std::u16string(kXmlNamespace), u"xml"}};
  std::vector<CAnyElement const*> waiting = {this};
  auto const note = [&](std::u16string const& uri) {
    if (uri.empty() || m_prefixes.count(uri)) return;
    std::u16string const prefix = root.GetDocument()->LookupAliasFromNamespace(uri);
    if (!prefix.empty()) m_prefixes.emplace(uri, prefix);
  };
  while (!waiting.empty()) {
    CAnyElement const* element = waiting.back();
    waiting.pop_back();
    note(element->name.uri);
    for (Attribute const& attribute : element->attributes) note(attribute.name.uri);
    for (auto const& child : element->children) waiting.push_back(child.Get());
  }
}

void Print(std::ostream& out, CAnyElement const& root) {
  constexpr std::size_t kMostRows = 20;
  Tallies names;
  Tally total;
  Count(root, 1, names, total);
  out << "elements " << Grouped(total.elements) << ", names " << names.size() << ", attributes "
      << Grouped(total.attributes) << ", characters of text " << Grouped(total.text) << ", levels "
      << total.depth << "\n\n";

  std::vector<Tallies::const_pointer> rows;
  for (auto const& row : names) rows.push_back(&row);
  std::ranges::stable_sort(
      rows, [](auto const* a, auto const* b) { return a->second.elements > b->second.elements; });
  out << "    elements  depth  attributes          text  name and namespace\n";
  for (std::size_t i = 0; i < std::min(rows.size(), kMostRows); ++i) PrintRow(out, *rows[i]);
  if (rows.size() > kMostRows) out << "  and " << rows.size() - kMostRows << " more names\n";
}

}  // namespace KestDemo

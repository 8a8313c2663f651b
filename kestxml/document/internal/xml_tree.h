// The tree of one document, and how a parser front end builds it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/internal/arena.h"
#include "kestxml/document/internal/name_table.h"
#include "kestxml/document/internal/text_buffer.h"
#include "kestxml/document/xml_element.h"

namespace KestXmlLib20::internal {

/// Holds nodes, names and alias map. Nodes, their attributes, values and texts are pieces of one
/// arena in the order in which elements end, so that all that came with the latest element can be
/// given back at once.
class CXmlTree {
 public:
  using ElementCallback = bool (*)(CXmlElement*);
  /// What a thread keeps for its next document at most, in bytes.
  static constexpr std::size_t kKeptBytes = std::size_t{4} * 1024 * 1024;

  /// An attribute to be: its value is @p units 16-bit units, of whatever type.
  struct NewAttribute {
    XmlName const* name;
    void const* value;
    std::uint32_t units;
  };

  /// Throws the tree away and makes ready for a load.
  void Begin(CXmlDocument const& document, ElementCallback callback,
             CSerializationLimits const& limits);
  /// Throws the tree away and keeps memory of at most kKeptBytes. False when it holds more than
  /// it is worth keeping.
  bool Trim();

  CXmlElement* GetRoot() const { return m_root; }
  std::map<std::u16string, std::u16string, std::less<>> const& GetAliases() const {
    return m_aliases;
  }

  XmlUri const* InternUri(void const* uri, std::size_t units) {
    return m_names.InternUri(uri, units);
  }
  XmlName const* InternName(XmlUri const* uri, void const* localName, std::size_t units,
                            NameTable::Spell spell) {
    return m_names.Intern(uri, localName, units, spell, &m_document);
  }
  /// Binds @p prefix to @p uri in the document's one flat alias map.
  void AddAlias(std::u16string prefix, std::u16string uri);
  /// Opens an element: the root, or a child of the latest one that is open.
  CXmlElement* AddElement(XmlName const* name, std::span<NewAttribute const> attributes);
  /// Closes the latest open element and asks the callback whether it may go. True when it went;
  /// names and URIs that came with it are then gone, too.
  bool EndElement();
  /// Appends to the text of the latest open element. Carriage returns are left out and a NUL drops
  /// what follows it in @p text, unless they are to be preserved for the whole process. They come
  /// from character references: the parser has normalised the line ends of the source.
  void AppendTextExcludingCR(void const* text, std::uint32_t units);

 private:
  struct OpenElement {
    CXmlElement* element;
    CXmlElement* previousSibling;
    CXmlElement* lastChild;
    Arena::Mark nodesBefore;
    NameTable::Mark namesBefore;
    TextBuffer text;
  };

  OpenElement& Latest() { return *m_latest; }
  std::u16string PathOfLatest() const;
  void TestLimits(std::size_t attributes);
  CXmlElement* MakeElement(CXmlElement const* parent, XmlName const* name,
                           std::span<NewAttribute const> attributes);
  void Open(CXmlElement* element, Arena::Mark const& nodesBefore);
  void SettleNames();
  void StoreText(OpenElement& open);
  void Unlink(OpenElement const& open);

  CXmlDocument const* m_document = nullptr;
  ElementCallback m_callback = nullptr;
  CSerializationLimits m_limits;
  CXmlElement* m_root = nullptr;
  std::uint64_t m_elementCount = 0;
  std::uint64_t m_declarationCount = 0;  // namespace declarations since the latest start tag
  std::size_t m_depth = 0;
  OpenElement* m_latest = nullptr;
  std::vector<OpenElement> m_open;  // the first m_depth are open, the rest keep their memory
  Arena m_nodes;
  NameTable m_names;
  // The latest texts of elements that have children, by length. In an indented document these are
  // line ends and blanks, the same again and again, so they are held once.
  std::array<std::u16string_view, 16> m_indentations;
  NameTable::Mark m_settledNames;  // those that were there before the element that comes next
  std::map<std::u16string, std::u16string, std::less<>> m_aliases;
};

}  // namespace KestXmlLib20::internal

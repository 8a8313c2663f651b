// What an independent parser saw in a document, as far as the tree keeps it.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace KestXmlLib20 {

struct ElementEvents {
  std::string name;                     ///< "{uri}local", in UTF-8 as all text here
  std::vector<std::string> attributes;  ///< "{uri}local=value", sorted
  std::string text;                     ///< all pieces that stand directly in the element
  std::vector<ElementEvents> children;
};

struct ParserEvents {
  ElementEvents root;
  std::map<std::u16string, std::u16string> namespaces;  ///< the last URI bound to each prefix
};

/// Reads a file of lines that begin with S (start), N (namespace), A (attribute), T (text) or E
/// (end); others are about what the tree does not keep.
ParserEvents ReadParserEvents(std::filesystem::path const& file);

}  // namespace KestXmlLib20

// The XML front end: turns Expat's events into a tree.
#pragma once

// The interface of the UTF-16 build of the parser.
#ifndef XML_UNICODE
#define XML_UNICODE
#endif
#include <expat.h>

#include <cstdint>
#include <exception>
#include <memory>
#include <span>
#include <vector>

#include "kestxml/document/internal/thread_spare.h"
#include "kestxml/document/internal/xml_tree.h"

namespace KestXmlLib20::internal {

struct ExpatReaderOptions {
  bool namespaces = true;  ///< else prefixes stay in local names, declarations are attributes
  bool stripCDATA = true;  ///< else a section stays in the text in its source form
};

/// Parses one document, at once or piece by piece. Prefixes are resolved by Expat; comments,
/// processing instructions and the document type declaration are passed over, and no external
/// entity is ever fetched.
class CExpatReader {
 public:
  CExpatReader(CXmlTree& tree, ExpatReaderOptions options);
  CExpatReader(CExpatReader const&) = delete;
  CExpatReader& operator=(CExpatReader const&) = delete;
  ~CExpatReader();

  /// Bytes that one call takes at most. The parser's own memory doubles what it is given, within
  /// the range of an int.
  static constexpr std::uint32_t kLargestPiece = std::uint32_t{1} << 29;

  /// Parses the next bytes of the document, the last ones with @p isFinal.
  /// @throws CKestException "... at line ..." for text that is not well-formed, and whatever an
  /// element callback or a limit throws. The reader is then of no more use.
  void ParseBuffer(unsigned char const* data, std::uint32_t length, bool isFinal);

  /// The same without a copy: memory of the parser for the next @p length bytes, at most
  /// kLargestPiece, to be filled and then parsed. @p head are the first bytes of the document.
  void* GetBuffer(std::span<unsigned char const> head, std::uint32_t length);
  void ParseFilledBuffer(std::uint32_t length, bool isFinal);

 private:
  struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };
  using Parser = std::unique_ptr<XML_ParserStruct, FreeParser>;

  // One parser of each thread waits for its next small document.
  using SpareParser = ThreadSpare<Parser>;
  static Parser TakeParser(bool namespaces, XML_Char const* encoding);

  void Initialise(std::span<unsigned char const> head);
  void Finish(XML_Status status, std::uint32_t length, bool isFinal);
  [[noreturn]] void ThrowFailure() const;

  // The one way from Expat into this class: C code must not see an exception, so the first is
  // kept until the parse call has returned, and what Expat still reports by then is not looked at.
  template <auto Event, typename... Arguments>
  static void Call(void* reader, Arguments... arguments);

  /// A namespace of names, and how names in it are spelled.
  struct Namespace {
    XmlUri const* uri = nullptr;
    NameTable::Spell spell = nullptr;
  };
  XmlName const* InternName(XML_Char const* name);
  bool IsInLatest(XML_Char const* name) const;
  XmlName const* Intern(Namespace const& ns, XML_Char const* localName);

  void OnStartElement(XML_Char const* name, XML_Char const** attributes);
  void OnEndElement(XML_Char const* name);
  void OnStartNamespace(XML_Char const* prefix, XML_Char const* uri);
  void OnCharacterData(XML_Char const* text, int length);
  void OnStartCdataSection();
  void OnEndCdataSection();

  CXmlTree& m_tree;
  ExpatReaderOptions m_options;
  Parser m_parser;
  std::exception_ptr m_failure;
  std::vector<CXmlTree::NewAttribute> m_attributes;
  Namespace m_none;    // of names without one
  Namespace m_latest;  // of the name before that had one, the likeliest of the next
  std::uint64_t m_parsedBytes = 0;
  std::uint64_t m_namedUnits = 0;  // of all names; the parser holds memory for the longest
  bool m_isComplete = false;
};

}  // namespace KestXmlLib20::internal

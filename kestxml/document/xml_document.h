// Loads a document into the read-only tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

class CBinaryData;
class CXmlElement;
namespace internal {
class CXmlTree;
struct ExpatReaderOptions;
}  // namespace internal
namespace platform {
class File;
}

/// How files are loaded: true reads a file in blocks while the parser works, so that it need not
/// fit in memory; false, the start value, reads it whole. Only what is read whole may be
/// compressed, and what is read in blocks may not be a whole number of 131,072 bytes long. One
/// setting for the process, read without a lock: set it before loads start.
KESTXML_API void AsyncFromXmlFile(bool overlapped);

/// One XML document as a tree of elements. It can be used for any number of loads: each begins by
/// throwing away what the last one built. What a failed load had built stays until then.
/// A document belongs to one thread at a time.
class KESTXML_API CXmlDocument : public CInstanceMonitor {
 public:
  /// Called with each element as it ends, its content complete. True throws the element away with
  /// all that it holds, which is how a document larger than memory is read; the answer for the
  /// root is not looked at. The callback may throw: the load then ends with that exception.
  using ElementCallback = bool (*)(CXmlElement* element);

  /// The default context and no callback.
  CXmlDocument();
  /// The context must outlive the document.
  explicit CXmlDocument(CSerializationContext const& context);
  explicit CXmlDocument(ElementCallback callback);
  CXmlDocument(ElementCallback callback, CSerializationContext const& context);
  CXmlDocument(CXmlDocument const&) = delete;
  CXmlDocument& operator=(CXmlDocument const&) = delete;
  ~CXmlDocument() override;

  /// The root; null when nothing was loaded.
  CXmlElement* GetDocumentElement();
  CXmlElement const* GetDocumentElement() const;

  // A null pointer counts as an empty name, text or block.

  /// Loads a file, gzip or zlib data included unless it is read in blocks.
  /// @throws CKestException for a file that can't be read (with an error code and, unless it is at
  /// a later block, the file's name), for text that is not well-formed ("... at line ..."), and
  /// beyond a limit.
  void Load(char16_t const* fileName);
  /// Loads text in the encoding that its byte order mark or declaration names, UTF-8 without.
  void LoadXml(char const* text);
  /// Loads UTF-16 text, whatever encoding its declaration names.
  void LoadXml(char16_t const* text);
  /// Loads bytes, gzip or zlib data included. They must stay as they are until the load ends.
  void LoadXmlStream(unsigned char const* data, std::uint32_t length);

  // JSON is made into XML and not loaded: each gives the XML document, in UTF-8, for the caller to
  // load. All of them throw CKestValidationException where the text is no JSON, with line and
  // position; CKestInvalidStateException for what has no XML; and CKestException beyond a limit,
  // and for an element that the text leaves open. See docs/json.md for what becomes what.

  /// Reads a file in UTF-8, gzip or zlib data included.
  /// @throws CKestException, with an error code and the file's name, when it can't be read.
  CBinaryData LoadJsonFile(char16_t const* fileName);
  /// Reads UTF-8 with or without a byte order mark, gzip or zlib data included.
  CBinaryData LoadJsonStream(unsigned char const* data, std::uint32_t length);
  /// Reads UTF-8.
  CBinaryData LoadJson(char const* text);
  CBinaryData LoadJson(char16_t const* text);

  /// The URI that was bound last to a prefix anywhere in the document; empty when none was. The
  /// default namespace has the empty prefix.
  std::u16string LookupNamespaceFromAlias(std::u16string_view alias) const;
  std::u16string LookupNamespaceFromAlias(char16_t const* alias) const;
  /// The lowest prefix, in the order of its 16-bit units, that is bound to @p uri; empty when
  /// none is.
  std::u16string LookupAliasFromNamespace(std::u16string_view uri) const;
  std::u16string LookupAliasFromNamespace(char16_t const* uri) const;

 protected:
  /// Throws the tree away; its memory waits for the next load.
  virtual void Cleanup();

 private:
  static CBinaryData ReadFile(char16_t const* fileName);
  void LoadWhole(char16_t const* fileName);
  void LoadInBlocks(char16_t const* fileName);
  void ParseBlocks(platform::File const& file, std::unique_ptr<unsigned char[]> block,
                   std::size_t length);
  void Parse(unsigned char const* data, std::uint32_t length);
  void ParseText(unsigned char const* data, std::uint32_t length);
  CBinaryData ParseJson(std::span<unsigned char const> bytes) const;
  internal::ExpatReaderOptions ReaderOptions() const;
  void RequireDocumentElement() const;

  CSerializationContext const* m_context;
  ElementCallback m_callback;
  SchemaType m_schemaType;
  // Where the next read of an overlapped load starts. Nothing sets it back, so a second such load
  // with the same document goes on where the first one ended.
  std::uint64_t m_readOffset = 0;
  std::unique_ptr<internal::CXmlTree> m_tree;
};

}  // namespace KestXmlLib20

// The interface through which objects write themselves, whatever the format of the output.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/document/output_form.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/item_type.h"

namespace KestXmlLib20 {

namespace internal {
class NamespaceScopes;
}

/// The writer interface and the part that its formats share: the chain of open elements with the
/// namespaces in force at each, the rule that makes up prefixes, and the limit on depth.
///
/// One writer writes one document for one thread. Calls come in this order: OpenWriter;
/// WriteProcessingInstruction, AddNamespace and SetDefaultNamespace; StartElement of the root; the
/// attributes, among them WriteTypeAttribute, WriteRawAttributes and WriteNil; WriteText and the
/// child elements; EndElement; at last CloseWriter. After a failure the writer can only be
/// destroyed.
///
/// Texts end at their first null unit. Names and URIs hold none. No text need outlive its call.
/// The order of the virtual operations is part of the interface.
class KESTXML_API CXmlWriter : public CInstanceMonitor {
 public:
  class CXmlWriterContext;
  /// From URI to prefix, ordered by the 16-bit units of the URI.
  using NamespaceMap = std::map<std::u16string, std::u16string, std::less<>>;

  CXmlWriter();
  CXmlWriter(CXmlWriter const&) = delete;
  CXmlWriter& operator=(CXmlWriter const&) = delete;
  /// Writes nothing, whatever is still open.
  ~CXmlWriter() override;

  virtual void OpenWriter();
  /// @throws CKestException when an element is still open.
  virtual void CloseWriter();

  /// Before the root: what the root declares as its default namespace. Later: the default
  /// namespace of the open element and those in it, which nothing declares.
  virtual void SetDefaultNamespace(std::u16string_view uri);
  /// Before the root: a prefix that the root declares. Later: a prefix that holds for the open
  /// element and those in it, which nothing declares. It replaces an earlier prefix of the URI.
  virtual void AddNamespace(std::u16string_view alias, std::u16string_view uri);

  virtual void WriteComment(std::u16string_view text) = 0;
  /// @p text is the whole instruction with its delimiters.
  virtual void WriteProcessingInstruction(std::u16string_view text) = 0;
  /// @p text goes into the open start tag as it stands.
  virtual void WriteRawAttributes(std::u16string_view text) = 0;
  /// An empty @p uri is no namespace.
  /// @throws CKestException when the element lies deeper than the limit.
  virtual void StartElement(std::u16string_view localName, std::u16string_view uri) = 0;
  /// @param itemType what the formatted @p text stands for, for formats with types of their own.
  /// @param isDefaultValue whether the schema's default supplied the value.
  virtual void WriteText(std::u16string_view text, ItemType itemType, bool isDefaultValue) = 0;
  /// @throws CKestException when no element is open.
  virtual void EndElement() = 0;
  // The three that follow throw CKestException unless a start tag is open.
  virtual void WriteAttribute(std::u16string_view localName, std::u16string_view uri,
                              std::u16string_view value, ItemType itemType) = 0;
  /// Writes xsi:type with the qualified name of the type as its value.
  virtual void WriteTypeAttribute(std::u16string_view uri, std::u16string_view typeName,
                                  ItemType itemType) = 0;
  /// Writes xsi:nil="true".
  virtual void WriteNil() = 0;
  /// StartElement, WriteText and EndElement in one call, which may be a shorter way.
  virtual void WriteTextElement(std::u16string_view localName, std::u16string_view uri,
                                std::u16string_view text, ItemType itemType, bool isDefaultValue);

  /// The innermost open element, null when none is.
  CXmlWriterContext* GetCurrentContext() const { return m_pCurrentContext; }

  /// How many elements may be nested in each other; 0 is no limit. The start value is that of a
  /// default CSerializationLimits.
  void SetMaxDepth(std::uint32_t value) { m_maxDepth = value; }

 protected:
  /// A prefix, and whether it was made up for the call that asked.
  struct Prefix {
    std::u16string_view text;
    bool isNew;
  };

  /// A context for an element in the current one, or for a root when none is open. It becomes
  /// current when the caller stores it in m_pCurrentContext; until then only one may be made. The
  /// writer owns it and uses it again for a later element of the same level.
  CXmlWriterContext* CreateContext(std::u16string_view localName, std::u16string_view uri);
  /// @throws CKestException when an element in @p parent, which may be null, would lie deeper than
  ///   the limit.
  void TestDepthIn(CXmlWriterContext const* parent) const;
  /// Ends the current context and makes its parent current.
  /// @throws CKestException when none is open.
  void EndContext();

  // Of the contexts, these see what holds for each. Changes are for the innermost one: the current
  // one, or the one that was made in it.

  /// A copy of the prefixes in force at @p context. FindPrefix looks for one without it.
  NamespaceMap GetEffectiveNamespaces(CXmlWriterContext const& context) const;
  /// The default namespace in force at @p context.
  std::u16string const& GetEffectiveDefaultNamespace(CXmlWriterContext const& context) const;
  /// Sets the prefix of @p uri for @p context and the elements in it.
  void AddContextNamespace(CXmlWriterContext const& context, std::u16string_view uri,
                           std::u16string_view alias);
  /// The first of AA, AB, ... AZ, BA, ... that is no prefix at the innermost context.
  std::u16string GenerateAlias() const;

  /// The prefix of @p uri at @p context, null when it has none. Valid until a prefix is set.
  std::u16string const* FindPrefix(CXmlWriterContext const& context, std::u16string_view uri) const;
  /// The same, with a generated prefix added to @p context when there is none.
  Prefix FindOrAddPrefix(CXmlWriterContext const& context, std::u16string_view uri);
  /// Whether the element's name takes a prefix: its URI is neither empty nor the default namespace.
  bool NeedsPrefix(CXmlWriterContext const& context) const;
  /// Whether no declaration is written for @p uri. Any URI that begins with that of the prefix xml
  /// counts.
  static bool IsNeverDeclared(std::u16string_view uri);
  /// The text of a line end.
  /// @throws CKestException for a value that is no EOLType.
  static std::u16string_view LineEndOf(EOLType type);

  /// The current context.
  /// @throws CKestException when no element is open.
  CXmlWriterContext& RequireOpenElement() const;
  /// The current context.
  /// @throws CKestException unless its start tag is open.
  CXmlWriterContext& RequireOpenStartTag() const;

  std::u16string m_defaultNamespace;  ///< what the root declares, as m_namespaces
  CXmlWriterContext* m_pCurrentContext = nullptr;
  NamespaceMap m_namespaces;

 private:
  std::vector<std::unique_ptr<CXmlWriterContext>> m_contexts;  // by level, for use again
  std::unique_ptr<internal::NamespaceScopes> m_scopes;         // of the open elements
  std::uint32_t m_maxDepth;
};

}  // namespace KestXmlLib20

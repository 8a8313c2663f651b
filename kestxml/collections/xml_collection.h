// A collection of objects.
#pragma once

#include <cstdint>

#include "kestxml/collections/node.h"
#include "kestxml/collections/xml_collection_base.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Counted objects in a list. Typed collections derive from it: they add operations that take and
/// give the class of their items, in terms of the protected operations here, and say how the
/// collection is written and read.
///
/// Whatever adds an item tells listeners CollectionAdd before, CollectionAddComplete after, and
/// CollectionChange; whatever removes one tells them CollectionRemove, CollectionRemoveComplete
/// and CollectionChange, the first two without an index. The destructor removes, too; what a
/// listener throws then is dropped.
///
/// Access by index is quick near both ends, and near the item that was last accessed so: the
/// collection notes that place, so that even two readers must not be two threads.
class KESTXML_API CXmlCollection : public CXmlCollectionBase {
 public:
  std::int32_t GetCount() const override { return m_count; }
  void Clear() override;
  void Remove(std::int32_t index) override;

 protected:
  CXmlCollection() = default;
  CXmlCollection(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
                 std::int32_t maxOccurs);
  ~CXmlCollection() override;

  // The adding operations take a reference to the item, which may be in the collection already. An
  // addition that fails keeps that reference for as long as the collection lives: the caller may
  // hold none of its own, and the failure must not end the item.
  // @throws CKestInvalidParamException for a null item, before listeners hear of it.

  void AppendItem(CXmlObjectBase* item);
  void PrependItem(CXmlObjectBase* item);
  /// Adds behind the first place of @p after; in front of all items when that is null.
  /// @throws CKestInvalidParamException when @p after is not in the collection; listeners have
  ///   heard of CollectionAdd then.
  void AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item);
  /// The same in front of @p before; behind all items when that is null.
  void AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item);
  /// @param index from 0 to GetCount(), which adds at the end.
  /// @throws CKestInvalidParamException for any other, before listeners hear of it.
  void AddItemAt(std::int32_t index, CXmlObjectBase* item);

  /// @param node one of this collection. It ends, and so does its item unless someone else holds a
  ///   reference.
  void RemoveNode(CNode* node);

  /// @throws CKestInvalidParamException for an index that is not from 0 to GetCount() - 1.
  CNode* GetNodeAtIndex(std::int32_t index) const;
  /// The first node that holds @p item.
  /// @throws CKestInvalidParamException when there is none.
  CNode* GetNodeForItem(CXmlObjectBase const* item) const;
  /// Null for an empty collection.
  CNode* GetFirstNode() const { return m_pFirst; }

  /// Takes all nodes out without telling anyone, linked by m_pNext from the first to the last.
  /// The caller owns them.
  struct NodeChain {
    CNode* first;
    CNode* last;
  };
  NodeChain ReleaseNodes();

  /// Writes the attributes of each item.
  void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& context) const override;

 private:
  template <typename FindNext>
  void AddItem(CXmlObjectBase* item, FindNext findNext);
  void Link(CNode* node, CNode* next);
  void Unlink(CNode* node);
  CNode* WalkTo(std::int32_t index) const;

  CNode* m_pFirst = nullptr;
  CNode* m_pLast = nullptr;
  std::int32_t m_count = 0;
  // The node that was last accessed by index; null once a change has made the index uncertain.
  mutable std::int32_t m_cursorIndex = 0;
  mutable CNode* m_pCursor = nullptr;
  CNode* m_pOrphans = nullptr;  // of additions that failed half-way, linked by m_pNext
};

}  // namespace KestXmlLib20

#include "kestxml/collections/xml_collection.h"

#include <cstdlib>
#include <memory>

#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

void DeleteChain(CNode* first) {
  while (first) {
    std::unique_ptr<CNode> const node(first);
    first = node->m_pNext;
  }
}

template <typename Notify>
void IgnoringFailure(Notify notify) {
  try {
    notify();
  } catch (...) {  // a destructor has nobody to tell
  }
}

}  // namespace

CXmlCollection::CXmlCollection(char16_t const* elementName, char16_t const* namespaceURI,
                               std::int32_t minOccurs, std::int32_t maxOccurs)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs) {}

CXmlCollection::~CXmlCollection() {
  AddRef();  // a listener that counts the sender must not bring the count to 0 a second time
  while (m_pFirst && HasEventListeners()) {
    IgnoringFailure([this] { FireOnCollectionRemove(-1); });
    Unlink(m_pFirst);
    IgnoringFailure([this] { FireOnCollectionRemoveComplete(-1); });
    IgnoringFailure([this] { FireOnCollectionChange(); });
  }
  DeleteChain(m_pFirst);
  DeleteChain(m_pOrphans);
}

void CXmlCollection::Clear() {
  while (m_count != 0) Remove(0);
}

void CXmlCollection::Remove(std::int32_t index) {
  RemoveNode(GetNodeAtIndex(index));
}

void CXmlCollection::RemoveNode(CNode* node) {
  FireOnCollectionRemove(-1);
  Unlink(node);
  FireOnCollectionRemoveComplete(-1);
  FireOnCollectionChange();
}

// findNext gives the node in front of which the new one goes, null for the end. It runs when
// listeners have been told, so a failure of it has been announced as an addition. The node holds
// the item from the start: listeners may count the item, too, without ending it.
template <typename FindNext>
void CXmlCollection::AddItem(CXmlObjectBase* item, FindNext findNext) {
  if (!item) Throw_IfPropertyIsNull(item, GetElementName().c_str());
  auto* const node = new CNode{item};
  try {
    FireOnCollectionAdd(item);
    Link(node, findNext());
  } catch (...) {
    node->m_pNext = m_pOrphans;
    m_pOrphans = node;
    throw;
  }
  FireOnCollectionAddComplete(item);
  FireOnCollectionChange();
}

void CXmlCollection::AppendItem(CXmlObjectBase* item) {
  AddItem(item, [] { return nullptr; });
}

void CXmlCollection::PrependItem(CXmlObjectBase* item) {
  AddItem(item, [this] { return m_pFirst; });
}

void CXmlCollection::AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item) {
  if (!after) return PrependItem(item);
  AddItem(item, [=, this] { return GetNodeForItem(after)->m_pNext; });
}

void CXmlCollection::AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item) {
  if (!before) return AppendItem(item);
  AddItem(item, [=, this] { return GetNodeForItem(before); });
}

void CXmlCollection::AddItemAt(std::int32_t index, CXmlObjectBase* item) {
  TestIndexToAdd(index, m_count);
  AddItem(item, [=, this] { return WalkTo(index); });
}

CNode* CXmlCollection::GetNodeAtIndex(std::int32_t index) const {
  TestIndex(index, GetCount());
  return WalkTo(index);
}

CNode* CXmlCollection::GetNodeForItem(CXmlObjectBase const* item) const {
  CXmlObjectBase const* const base = item ? item->GetBase() : nullptr;
  for (CNode* node = m_pFirst; node; node = node->m_pNext) {
    if (node->m_pItem->GetBase() == base) return node;
  }
  throw CKestInvalidParamException(u"The object was not found in the collection");
}

CXmlCollection::NodeChain CXmlCollection::ReleaseNodes() {
  NodeChain const chain{m_pFirst, m_pLast};
  m_pFirst = m_pLast = m_pCursor = nullptr;
  m_count = 0;
  return chain;
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer,
                                         CSerializationContext const& context) const {
  for (CNode const* node = m_pFirst; node; node = node->m_pNext) {
    CXmlObjectBase::AttributesToXml_Int(node->m_pItem->GetBase(), writer, context);
  }
}

void CXmlCollection::Link(CNode* node, CNode* next) {
  CNode* const previous = next ? next->m_pPrev : m_pLast;
  node->m_pNext = next;
  node->m_pPrev = previous;
  (next ? next->m_pPrev : m_pLast) = node;
  (previous ? previous->m_pNext : m_pFirst) = node;
  ++m_count;
  // Behind all others it moves no index; in the place of the cursor it takes over that index.
  if (next) m_pCursor = next == m_pCursor ? node : nullptr;
}

// Ends the node.
void CXmlCollection::Unlink(CNode* node) {
  std::unique_ptr<CNode> const owner(node);
  CNode* const next = node->m_pNext;
  (next ? next->m_pPrev : m_pLast) = node->m_pPrev;
  (node->m_pPrev ? node->m_pPrev->m_pNext : m_pFirst) = next;
  if (next || node == m_pCursor) m_pCursor = node == m_pCursor ? next : nullptr;
  --m_count;
}

// Starts at whatever is nearest. The end, or null, for an index at or beyond the count.
CNode* CXmlCollection::WalkTo(std::int32_t index) const {
  if (index >= m_count) return nullptr;
  CNode* node = m_pFirst;
  std::int32_t steps = index;
  auto const startAt = [&](CNode* start, std::int32_t distance) {
    if (std::abs(distance) >= std::abs(steps)) return;
    node = start;
    steps = distance;
  };
  startAt(m_pLast, index - (m_count - 1));
  if (m_pCursor) startAt(m_pCursor, index - m_cursorIndex);
  for (; steps > 0; --steps) node = node->m_pNext;
  for (; steps < 0; ++steps) node = node->m_pPrev;
  m_pCursor = node;
  m_cursorIndex = index;
  return node;
}

}  // namespace KestXmlLib20

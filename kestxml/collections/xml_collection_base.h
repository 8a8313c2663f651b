// What every collection shares.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// A repeating element as an object: the name and the namespace of its items' elements, how many
/// there may be, and who is told of changes. The counts are tested when the collection is written
/// or has been read; in memory it may hold any number.
///
/// The order of the virtual operations is part of the interface to generated code.
class KESTXML_API CXmlCollectionBase : public CXmlObjectBase {
 public:
  CXmlCollectionBase(CXmlCollectionBase const&) = delete;
  CXmlCollectionBase& operator=(CXmlCollectionBase const&) = delete;

  using CXmlObjectBase::GetBase;
  CXmlObjectBase* GetBase() override { return this; }
  /// That of the items.
  std::u16string_view GetNamespace() const override { return m_namespaceURI; }

  virtual std::int32_t GetCount() const = 0;
  /// Removes all items, one by one: listeners hear of each.
  virtual void Clear() = 0;
  /// @throws CKestInvalidParamException for an index outside of the collection.
  virtual void Remove(std::int32_t index) = 0;
  /// Does nothing where @p context ignores invalid counts.
  /// @throws CKestValidationException, with an empty path, when there are more items than the
  ///   maximum or fewer than the minimum.
  virtual void ValidateCount(CSerializationContext const& context) const;
  /// Whether ValidateCount passes.
  virtual bool IsValidCount(CSerializationContext const& context) const;

  std::int32_t GetMinOccurs() const { return m_minOccurs; }
  /// -1 is unbounded.
  std::int32_t GetMaxOccurs() const { return m_maxOccurs; }

  /// From now on @p listener is told of changes; one that is added twice is told twice. It must be
  /// removed before it ends, also where it is the owner of the collection: ending the collection
  /// removes its items. A listener must not change the collection while it is being told.
  void AddEventListener(IEventSink* listener);
  /// Also where it was added more than once.
  void RemoveEventListener(IEventSink* listener);

 protected:
  CXmlCollectionBase() = default;
  /// @param maxOccurs -1 is unbounded.
  CXmlCollectionBase(char16_t const* elementName, char16_t const* namespaceURI,
                     std::int32_t minOccurs, std::int32_t maxOccurs);
  ~CXmlCollectionBase() override;

  /// A collection has no element of its own that could be the root of a document.
  /// @throws CKestException always.
  std::u16string_view GetTargetNamespace() const override;

  /// @throws CKestInvalidParamException unless @p index is from 0 to @p count - 1.
  static void TestIndex(std::int32_t index, std::int32_t count);
  /// @throws CKestInvalidParamException unless @p index is from 0 to @p count, which is the end.
  static void TestIndexToAdd(std::int32_t index, std::int32_t count);

  bool HasEventListeners() const { return !m_eventListeners.empty(); }

  // Each tells every listener, in the order in which they were added; see IEventSink::MsgType.
  void FireOnCollectionChange();
  void FireOnCollectionAdd(void* item);
  void FireOnCollectionAddComplete(void* item);
  /// @param index -1 where it is not known; listeners then get no index.
  void FireOnCollectionRemove(std::int32_t index);
  void FireOnCollectionRemoveComplete(std::int32_t index);

 private:
  template <typename Fire>
  void ForEachListener(Fire fire);

  std::u16string m_namespaceURI;
  std::vector<IEventSink*> m_eventListeners;
  std::int32_t m_minOccurs = 0;
  std::int32_t m_maxOccurs = -1;
};

}  // namespace KestXmlLib20

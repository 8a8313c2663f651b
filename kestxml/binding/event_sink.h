// How a collection tells its owner that it changes.
#pragma once

#include <cstdint>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

class CXmlObjectBase;

/// Receives the notifications of collections.
class KESTXML_API IEventSink {
 public:
  /// What happened. The numbers are part of the interface.
  enum MsgType : std::int32_t {
    MsgType_CollectionChange = 0,          ///< anything; without data
    MsgType_CollectionAdd = 1,             ///< before an item is added; data: the item
    MsgType_CollectionAddComplete = 2,     ///< after it; data: the item
    MsgType_CollectionRemove = 3,          ///< before; data: the 32-bit index, null if unknown
    MsgType_CollectionRemoveComplete = 4,  ///< after; data: as for CollectionRemove
  };

  /// @param sender the collection.
  /// @param data what the type says; borrowed for the length of the call.
  virtual void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) = 0;

 protected:
  IEventSink() = default;
  IEventSink(IEventSink const&) = default;
  IEventSink& operator=(IEventSink const&) = default;
  ~IEventSink() = default;
};

}  // namespace KestXmlLib20

// A listener that notes what it is told.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kestxml/binding/event_sink.h"

namespace KestXmlLib20 {

using Events = std::vector<std::string>;

/// Notes each event as a line: its kind, "+" before and "+!" after an addition, "-" and "-!" for a
/// removal, "~" for a change; then the index where one is given.
class EventLog : public IEventSink {
 public:
  virtual ~EventLog() = default;

  void OnEvent(CXmlObjectBase* sender_, MsgType type, void* data_) override {
    static constexpr char const* kKinds[] = {"~", "+", "+!", "-", "-!"};
    events.emplace_back(kKinds[type]);
    bool const isRemoval =
        type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete;
    if (isRemoval && data_) {
      events.back() += std::to_string(*static_cast<std::int32_t*>(data_));
    } else if (!isRemoval) {
      items.push_back(data_);
    }
    sender = sender_;
  }

  Events events;
  std::vector<void*> items;  ///< the data of additions and changes
  CXmlObjectBase* sender = nullptr;
};

}  // namespace KestXmlLib20

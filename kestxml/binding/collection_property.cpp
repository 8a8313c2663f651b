// What an object has to do with collections: telling listeners of their changes, and reading one
// that is a property.
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/collections/xml_collection_base.h"

namespace KestXmlLib20 {
namespace {

constexpr std::int32_t kUnknownIndex = -1;

void TellOfRemoval(IEventSink* sink, CXmlCollectionBase* collection, IEventSink::MsgType type,
                   std::int32_t index) {
  sink->OnEvent(collection->GetBase(), type, index == kUnknownIndex ? nullptr : &index);
}

}  // namespace

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection) {
  sink->OnEvent(collection->GetBase(), MsgType_CollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                              void* item) {
  sink->OnEvent(collection->GetBase(), MsgType_CollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink,
                                                      CXmlCollectionBase* collection, void* item) {
  sink->OnEvent(collection->GetBase(), MsgType_CollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 std::int32_t index) {
  TellOfRemoval(sink, collection, MsgType_CollectionRemove, index);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink,
                                                         CXmlCollectionBase* collection,
                                                         std::int32_t index) {
  TellOfRemoval(sink, collection, MsgType_CollectionRemoveComplete, index);
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                            CXmlElement*& current, std::int32_t& count,
                                            CSerializationContext const& context) {
  if (count >= 1) return;
  CXmlElement* const next = FromXml_Int(collection, parent, current, context, false);
  if (next == current) return;
  current = next;
  collection->ValidateCount(context);
  ++count;
}

}  // namespace KestXmlLib20

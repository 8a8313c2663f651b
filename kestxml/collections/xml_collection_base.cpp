#include "kestxml/collections/xml_collection_base.h"

#include "kestxml/binding/serialization_context.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

constexpr std::int32_t kUnbounded = -1;

bool IsAbove(std::int32_t count, std::int32_t maxOccurs) {
  return maxOccurs != kUnbounded && count > maxOccurs;
}

}  // namespace

CXmlCollectionBase::CXmlCollectionBase(char16_t const* elementName, char16_t const* namespaceURI,
                                       std::int32_t minOccurs, std::int32_t maxOccurs)
    : m_namespaceURI(namespaceURI ? namespaceURI : u""),
      m_minOccurs(minOccurs),
      m_maxOccurs(maxOccurs) {
  SetElementName(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

void CXmlCollectionBase::ValidateCount(CSerializationContext const& context) const {
  if (context.GetIgnoreInvalidCollectionCounts()) return;
  std::int32_t const count = GetCount();
  if (IsAbove(count, m_maxOccurs)) {
    throw CKestValidationException(
        FormatString(u"The Maximum number of [%s] elements allowed in this collection is %d",
                     GetElementName(), m_maxOccurs),
        u"");
  }
  if (count < m_minOccurs) {
    throw CKestValidationException(
        FormatString(u"The Minimum number of [%s] elements allowed in this collection is %d",
                     GetElementName(), m_minOccurs),
        u"");
  }
}

bool CXmlCollectionBase::IsValidCount(CSerializationContext const& context) const {
  if (context.GetIgnoreInvalidCollectionCounts()) return true;
  std::int32_t const count = GetCount();
  return !IsAbove(count, m_maxOccurs) && count >= m_minOccurs;
}

void CXmlCollectionBase::AddEventListener(IEventSink* listener) {
  if (listener) m_eventListeners.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener) {
  std::erase(m_eventListeners, listener);
}

std::u16string_view CXmlCollectionBase::GetTargetNamespace() const {
  throw CKestException(
      u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
      u"(program logic error)");
}

// The message has the count where the last valid index is meant: programs compare it.
void CXmlCollectionBase::TestIndex(std::int32_t index, std::int32_t count) {
  if (index >= 0 && index < count) return;
  throw CKestInvalidParamException(
      FormatString(u"Index %d is out of range, use 0 - %d", index, count));
}

void CXmlCollectionBase::TestIndexToAdd(std::int32_t index, std::int32_t count) {
  if (index < 0 || index > count) throw CKestInvalidParamException(u"Index out of range");
}

// By index, since a listener that is called may remove itself.
template <typename Fire>
void CXmlCollectionBase::ForEachListener(Fire fire) {
  for (std::size_t i = 0; i < m_eventListeners.size(); ++i) fire(m_eventListeners[i]);
}

void CXmlCollectionBase::FireOnCollectionChange() {
  ForEachListener([this](IEventSink* sink) { FireOnCollectionChangeEvent(sink, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item) {
  ForEachListener([=, this](IEventSink* sink) { FireOnCollectionAddEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item) {
  ForEachListener(
      [=, this](IEventSink* sink) { FireOnCollectionAddCompleteEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(std::int32_t index) {
  ForEachListener([=, this](IEventSink* sink) { FireOnCollectionRemoveEvent(sink, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(std::int32_t index) {
  ForEachListener(
      [=, this](IEventSink* sink) { FireOnCollectionRemoveCompleteEvent(sink, this, index); });
}

}  // namespace KestXmlLib20

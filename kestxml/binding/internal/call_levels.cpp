#include "kestxml/binding/internal/call_levels.h"

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_element.h"

namespace KestXmlLib20::internal {
namespace {

struct Calls {
  std::uint32_t groups = 0;
  std::uint32_t reads = 0;
  // Of the outermost read: objects read and elements passed over, and those of them in vain.
  std::uint64_t work = 0;
  std::uint64_t abandoned = 0;
};

constinit thread_local Calls t_calls;

std::u16string PathOf(CXmlElement const* element) {
  return element ? element->GetXPath() : std::u16string();
}

}  // namespace

GroupLevel::GroupLevel(bool isGroup, CSerializationContext const& context,
                       CXmlElement const* element)
    : m_isGroup(isGroup) {
  if (!isGroup) return;
  std::uint32_t const bound = context.GetLimits().GetMaxDepth();
  if (ExceedsLimit(std::uint64_t{t_calls.groups} + 1, bound)) {
    CSerializationLimits::ThrowTooDeep(bound, PathOf(element));
  }
  ++t_calls.groups;
}

GroupLevel::~GroupLevel() {
  if (m_isGroup) --t_calls.groups;
}

ReadLevel::ReadLevel(bool isGroup, CSerializationContext const& context, CXmlElement const* element)
    : m_group(isGroup, context, element), m_context(context), m_element(element) {
  Calls& calls = t_calls;
  if (calls.reads++ == 0) calls.work = calls.abandoned = 0;
  m_workBefore = calls.work++;
}

ReadLevel::~ReadLevel() {
  --t_calls.reads;
}

void ReadLevel::Abandon() const {
  Calls& calls = t_calls;
  calls.abandoned += calls.work - m_workBefore;
  std::uint64_t const bound = m_context.GetLimits().GetMaxAbandonedElements();
  if (ExceedsLimit(calls.abandoned, bound)) {
    CSerializationLimits::ThrowTooManyAbandoned(bound, PathOf(m_element));
  }
}

CXmlElement* PassOver(CXmlElement const& element) {
  ++t_calls.work;
  return element.GetNextSiblingElement();
}

}  // namespace KestXmlLib20::internal

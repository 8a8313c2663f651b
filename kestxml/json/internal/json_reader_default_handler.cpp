#include "kestxml/json/internal/json_reader_default_handler.h"

#include <utility>

namespace KestXmlLib20::internal {

CJsonReaderDefaultHandler::~CJsonReaderDefaultHandler() = default;

void CJsonReaderDefaultHandler::SetInner(std::unique_ptr<IJsonReaderHandler> inner) {
  m_pInner = std::move(inner);
}

void CJsonReaderDefaultHandler::OnStartDocument() {
  if (m_pInner) m_pInner->OnStartDocument();
}

void CJsonReaderDefaultHandler::OnEndDocument() {
  if (m_pInner) m_pInner->OnEndDocument();
}

void CJsonReaderDefaultHandler::OnName(std::u16string_view name) {
  if (IsOnTop(Kind::Name)) --m_depth;
  Push(Kind::Name).name = name;
  if (m_pInner) m_pInner->OnName(name);
}

void CJsonReaderDefaultHandler::OnString(std::u16string_view value) {
  if (m_pInner) m_pInner->OnString(value);
}

void CJsonReaderDefaultHandler::OnNumber(std::u16string_view value) {
  if (m_pInner) m_pInner->OnNumber(value);
}

void CJsonReaderDefaultHandler::OnStartObject(std::int32_t depth) {
  if (IsOnTop(Kind::Array)) {
    Entry& object = Push(Kind::Object);
    Entry& array = m_entries[m_depth - 2];
    object.name = array.name;
    object.name += {u'[', static_cast<char16_t>(++array.index), u']'};
  } else if (m_depth > 0) {
    PushTakingName(Kind::Object);
  }
  if (m_pInner) m_pInner->OnStartObject(depth);
}

void CJsonReaderDefaultHandler::OnEndObject() {
  PopThrough(Kind::Object);
  if (m_pInner) m_pInner->OnEndObject();
}

void CJsonReaderDefaultHandler::OnStartArray(std::int32_t depth) {
  if (m_depth > 0) PushTakingName(Kind::Array);
  if (m_pInner) m_pInner->OnStartArray(depth);
}

void CJsonReaderDefaultHandler::OnEndArray() {
  PopThrough(Kind::Array);
  if (m_pInner) m_pInner->OnEndArray();
}

void CJsonReaderDefaultHandler::OnBoolean(bool value) {
  if (m_pInner) m_pInner->OnBoolean(value);
}

void CJsonReaderDefaultHandler::OnNull() {
  if (m_pInner) m_pInner->OnNull();
}

std::u16string CJsonReaderDefaultHandler::GetErrorPath() const {
  std::u16string path = u"$";
  for (std::size_t i = m_depth; i-- > 0;) {
    if (m_entries[i].kind != Kind::Array) path.append(u".").append(m_entries[i].name);
  }
  return path;
}

bool CJsonReaderDefaultHandler::IsOnTop(Kind kind) const {
  return m_depth > 0 && m_entries[m_depth - 1].kind == kind;
}

CJsonReaderDefaultHandler::Entry& CJsonReaderDefaultHandler::Push(Kind kind) {
  if (m_depth == m_entries.size()) m_entries.emplace_back();
  Entry& entry = m_entries[m_depth++];
  entry.name.clear();
  entry.index = -1;
  entry.kind = kind;
  return entry;
}

// A member's name becomes that of its value, which takes the entry over.
void CJsonReaderDefaultHandler::PushTakingName(Kind kind) {
  if (!IsOnTop(Kind::Name)) {
    Push(kind);
    return;
  }
  m_entries[m_depth - 1].index = -1;
  m_entries[m_depth - 1].kind = kind;
}

void CJsonReaderDefaultHandler::PopThrough(Kind kind) {
  bool isThrough = false;
  while (m_depth > 0 && !isThrough) isThrough = m_entries[--m_depth].kind == kind;
}

}  // namespace KestXmlLib20::internal

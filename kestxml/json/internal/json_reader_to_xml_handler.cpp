#include "kestxml/json/internal/json_reader_to_xml_handler.h"

#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/xml_text_writer.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20::internal {
namespace {

CKestInvalidStateException NoElementText(std::u16string_view value, CKestException const& failure) {
  return CKestInvalidStateException(
      FormatString(u"Failed to convert value '%s' to Element string value in XML.", value),
      failure);
}

}  // namespace

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip roundTrip,
                                                 IErrorPathProvider const& errorPath,
                                                 std::uint32_t maxDepth)
    : m_writer(writer), m_roundTrip(roundTrip), m_errorPath(errorPath), m_maxDepth(maxDepth) {}

CJsonReaderToXmlHandler::~CJsonReaderToXmlHandler() = default;

void CJsonReaderToXmlHandler::OnStartDocument() {
  m_openElements = 0;
  m_arrayStack.clear();
  m_writer.WriteXmlDeclaration();
}

void CJsonReaderToXmlHandler::OnEndDocument() {
  StartWaitingElement();
}

void CJsonReaderToXmlHandler::OnName(std::u16string_view name) {
  if (name.empty()) {
    throw CKestValidationException(u"JSON item has an empty Name.", m_errorPath.GetErrorPath());
  }
  StartWaitingElement();
  if (m_roundTrip == JsonRoundTrip_None) {
    BeginElement(name);
  } else if (name == u"#text") {
    m_inAttribute = false;
    m_textMember = true;
  } else if (name.front() == u'@') {
    m_inAttribute = true;
    m_currentName = name.substr(1);
  } else {
    BeginElement(name);
  }
}

void CJsonReaderToXmlHandler::OnString(std::u16string_view value) {
  WriteValue(value);
}

void CJsonReaderToXmlHandler::OnNumber(std::u16string_view value) {
  WriteValue(value);
}

// The name before the object has opened the element; only the later objects of an array have none.
void CJsonReaderToXmlHandler::OnStartObject(std::int32_t /*depth*/) {
  m_isNameOfArray = false;
  if (m_currentName.empty() && !m_arrayStack.empty()) BeginElement(m_arrayStack.back());
  StartWaitingElement();
}

// The value of "#text" has closed the element already.
void CJsonReaderToXmlHandler::OnEndObject() {
  if (!m_textMember) CloseIfElement();
  m_textMember = false;
}

// The name stays for the first object of the array, but is none for an array.
void CJsonReaderToXmlHandler::OnStartArray(std::int32_t /*depth*/) {
  if (m_currentName.empty() || m_isNameOfArray) {
    throw CKestValidationException(u"JSON Array has no Name.", m_errorPath.GetErrorPath());
  }
  m_arrayStack.push_back(m_currentName);
  m_isNameOfArray = true;
}

void CJsonReaderToXmlHandler::OnEndArray() {
  m_isNameOfArray = false;
  m_arrayStack.pop_back();
}

void CJsonReaderToXmlHandler::OnBoolean(bool value) {
  WriteValue(value ? u"true" : u"false");
}

void CJsonReaderToXmlHandler::OnNull() {
  CloseIfElement();
}

// The element waits for what comes in it: with a text alone it is written in one call. One that
// the writer would refuse does not wait, so that it is refused here.
void CJsonReaderToXmlHandler::BeginElement(std::u16string_view name) {
  m_inAttribute = false;
  m_currentName = name;
  m_isWaiting = true;
  if (ExceedsLimit(++m_openElements, m_maxDepth)) StartWaitingElement();
}

void CJsonReaderToXmlHandler::StartWaitingElement() {
  if (m_isWaiting) StartElement();
}

void CJsonReaderToXmlHandler::StartElement() try {
  m_isWaiting = false;
  m_writer.StartElement(m_currentName, {});
} catch (CKestException const& failure) {
  throw CKestInvalidStateException(
      FormatString(u"Failed to convert name '%s' to Element name in XML.", m_currentName), failure);
}

void CJsonReaderToXmlHandler::WriteValue(std::u16string_view value) {
  if (m_isWaiting) {
    m_isWaiting = false;
    WriteTextElement(value);
    EndMember();
    --m_openElements;
    return;
  }
  if (m_inAttribute) {
    WriteAttribute(value);
  } else {
    WriteText(value);
  }
  CloseIfElement();
}

void CJsonReaderToXmlHandler::WriteAttribute(std::u16string_view value) try {
  m_writer.WriteAttribute(m_currentName, {}, value, ItemType_string);
} catch (CKestException const& failure) {
  throw CKestInvalidStateException(
      FormatString(u"Failed to convert value '%s' to Attribute string value in XML.", value),
      failure);
}

void CJsonReaderToXmlHandler::WriteText(std::u16string_view value) try {
  m_writer.WriteText(value, ItemType_string, false);
} catch (CKestException const& failure) {
  throw NoElementText(value, failure);
}

void CJsonReaderToXmlHandler::WriteTextElement(std::u16string_view value) try {
  m_writer.WriteTextElement(m_currentName, {}, value, ItemType_string, false);
} catch (CKestException const& failure) {
  throw NoElementText(value, failure);
}

// An attribute has no element to close. That it was the last member stays noted, so an object that
// ends on one leaves its element open.
void CJsonReaderToXmlHandler::CloseIfElement() {
  StartWaitingElement();
  EndMember();
  if (m_inAttribute || m_openElements == 0) return;
  --m_openElements;
  m_writer.EndElement();
}

void CJsonReaderToXmlHandler::EndMember() {
  m_currentName.clear();
  m_isNameOfArray = false;
}

}  // namespace KestXmlLib20::internal

// Makes XML of what a JSON text holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/json/json_context.h"
#include "kestxml/json/json_reader_handler.h"

namespace KestXmlLib20 {
class CXmlTextWriter;
}

namespace KestXmlLib20::internal {

/// A member opens an element; a value, or the end of an object, closes the innermost one. From that
/// follows what comes back of which JSON, see docs/json.md: all of it is relied upon.
class CJsonReaderToXmlHandler final : public IJsonReaderHandler {
 public:
  /// Writer and path must outlive the handler. @p maxDepth is the writer's.
  CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip roundTrip,
                          IErrorPathProvider const& errorPath, std::uint32_t maxDepth);
  ~CJsonReaderToXmlHandler() override;

  void OnStartDocument() override;
  void OnEndDocument() override;
  /// @throws CKestValidationException for an empty name.
  void OnName(std::u16string_view name) override;
  // What the writer refuses is thrown on as the inner failure of a CKestInvalidStateException.
  void OnString(std::u16string_view value) override;
  void OnNumber(std::u16string_view value) override;
  void OnStartObject(std::int32_t depth) override;
  void OnEndObject() override;
  /// @throws CKestValidationException for an array without a name, as one in another array.
  void OnStartArray(std::int32_t depth) override;
  void OnEndArray() override;
  void OnBoolean(bool value) override;
  void OnNull() override;

 private:
  void BeginElement(std::u16string_view name);
  void StartElement();
  void StartWaitingElement();
  void WriteValue(std::u16string_view value);
  void WriteAttribute(std::u16string_view value);
  void WriteText(std::u16string_view value);
  void WriteTextElement(std::u16string_view value);
  void CloseIfElement();
  void EndMember();

  CXmlTextWriter& m_writer;
  JsonRoundTrip m_roundTrip;
  IErrorPathProvider const& m_errorPath;
  std::uint32_t m_maxDepth;
  std::size_t m_openElements = 0;            // the one that waits among them
  std::vector<std::u16string> m_arrayStack;  // the names of the arrays that are open
  std::u16string m_currentName;              // of the member whose value is to come; else empty
  bool m_isWaiting = false;                  // the innermost element is not written yet
  bool m_isNameOfArray = false;              // nothing has come since the array of that name began
  bool m_inAttribute = false;                // the member is an attribute
  bool m_textMember = false;                 // the present object has had a member "#text"
};

}  // namespace KestXmlLib20::internal

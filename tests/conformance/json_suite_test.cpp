// The JSON files of others: what must be accepted is, and what must be refused is refused, or there
// is a reason.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/json/json_context.h"
#include "kestxml/json/json_reader_handler.h"
#include "kestxml/json/json_text_reader.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/unicode.h"
#include "tests/conformance/test_data.h"
#include "tests/conformance/verdict_table.h"

namespace KestXmlLib20 {
namespace {

struct File {
  std::string name;  // without the ending
  bool isConverted;  // else it is read only
};

template <typename... Names>
bool IsOneOf(File const& file, Names... names) {
  return ((file.name == names) || ...);
}

constexpr Reason<File> kReasons[] = {
    {"accepted: one value is read, what follows it is not",
     [](File const& file) {
       return IsOneOf(file, "n_array_extra_close", "n_object_trailing_comment_open",
                      "n_object_trailing_comment_slash_open",
                      "n_object_trailing_comment_slash_open_incomplete", "n_structure_double_array",
                      "n_structure_object_with_trailing_garbage");
     }},
    {"accepted: control characters may stand in strings",
     [](File const& file) { return IsOneOf(file, "n_string_unescaped_tab"); }},
    {"accepted: a text without a value is one to the reader; the loads refuse no bytes at all",
     [](File const& file) { return !file.isConverted && IsOneOf(file, "n_structure_no_data"); }},
    {"refused: an array in an array has no name in XML",
     [](File const& file) {
       return file.isConverted && IsOneOf(file, "y_array_arraysWithSpaces");
     }},
};

class Ignore : public IJsonReaderHandler {
  void OnStartDocument() override {}
  void OnEndDocument() override {}
  void OnName(std::u16string_view) override {}
  void OnString(std::u16string_view) override {}
  void OnNumber(std::u16string_view) override {}
  void OnStartObject(std::int32_t) override {}
  void OnEndObject() override {}
  void OnStartArray(std::int32_t) override {}
  void OnEndArray() override {}
  void OnBoolean(bool) override {}
  void OnNull() override {}
};

// Whether the text is JSON.
bool IsRead(std::string const& bytes) try {
  std::u16string const text = FromUtf8(bytes);
  CJsonTextReader(text, CJsonContext(), std::make_unique<Ignore>()).Read();
  return true;
} catch (CKestException const&) {
  return false;
}

// Whether it becomes XML, under a root element so that it may be any value.
bool IsConverted(std::string const& bytes) try {
  CSerializationContext context;
  context.GetJsonContext()->SetRootElementName(u"root");
  CXmlDocument(context).LoadJsonStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                                       static_cast<std::uint32_t>(bytes.size()));
  return true;
} catch (CKestException const&) {
  return false;
}

void Judge(VerdictTable& table, File const& file, bool isAccepted) {
  if (file.name.starts_with("i_")) {
    table.LeaveOut("which may be accepted or not");
  } else if (isAccepted == file.name.starts_with("y_")) {
    table.CountSame();
  } else {
    table.Explain<File>(kReasons, file, file.name);
  }
}

TEST(JsonSuite, DiffersOnlyForAReason) {
  auto const folder = TestDataFolder() / "json";
  auto const files = FilesBelow(folder);
  if (files.empty()) GTEST_SKIP() << "No JSON files; set KESTXML_DATA.";
  VerdictTable read("JSON files, read");
  VerdictTable converted("JSON files, made into XML");
  for (auto const& file : files) {
    std::string const bytes = ReadBytes(folder / file);
    Judge(read, {file.stem().string(), false}, IsRead(bytes));
    Judge(converted, {file.stem().string(), true}, IsConverted(bytes));
  }
  read.Print();
  converted.Print();
}

}  // namespace
}  // namespace KestXmlLib20

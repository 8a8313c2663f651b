// A program of its own, which registers no version before its tests. What the guard does depends on
// the first object of a process, so each case runs in a process of its own, and ends it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "kestxml/binding/element.h"
#include "kestxml/binding/register.h"
#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/async_output.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/platform/message_channel.h"
#include "kestxml/values/binary_data.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/smart_ptr.h"
#include "kestxml/values/unicode.h"
#include "tests/model/bare_object.h"
#include "tests/model/scratch_folder.h"

namespace KestXmlLib20 {
namespace {

CSerializationContext const kContext;

// Says when it writes or reads itself, and lets a version be registered meanwhile.
class Talker : public BareObject {
 public:
  static inline void (*duringWork)() = [] {};

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CSerializationContext const&,
                 bool) const override {
    std::cerr << "writes\n";
    duringWork();
    writer->StartElement(u"a", u"");
    writer->EndElement();
  }
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, CSerializationContext const&,
                           bool) override {
    std::cerr << "reads\n";
    duringWork();
    return nullptr;
  }
};

using Operation = void (*)(Talker&);

void Try(Operation operation) {
  CSmartPtr<Talker> const object(new Talker);
  try {
    operation(*object);
    std::cerr << "done\n";
  } catch (CKestException const& exception) {
    std::cerr << "threw " << exception << '\n';
  }
}

void Nothing(Talker&) {}
void Write(Talker& object) {
  object.ToXml(false, false, EOLType_LF, kContext);
}
void Read(Talker& object) {
  object.FromXml("<a/>", kContext);
}

std::string Box(std::string const& version) {
  return "Version Mismatch Error: Please ensure your generated code is the same version as this "
         "library (Kest Runtime: v20.0, Generator: v" +
         version + ").\n";
}
std::string BoxAndThrow(std::string const& version) {
  return Box(version) + "threw Wrong Version (Kest Runtime: v20.0, Generator: v" + version + ")\n";
}

// Runs @p program in a process of its own, which must write just @p said to standard error.
template <typename Program>
void ExpectToSay(std::string const& said, Program program) {
  auto const run = [&] {
    program();
    std::exit(0);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0),
              testing::Matcher<std::string const&>(testing::Eq(said)));
}

TEST(VersionGuard, SpeaksOnTheFirstObjectAndInEachOperation) {
  struct {
    char const* name;
    void (*program)();
    std::string said;
  } const rows[] = {
      {"NoObject", [] { CSerializationContext::GetDefaultContext(); }, ""},
      {"NeverRegistered", [] { Try(Write), Try(Read); },
       Box("0.0") + BoxAndThrow("0.0") + BoxAndThrow("0.0")},
      {"OnlyTheFirstObject", [] { Try(Nothing), Try(Nothing); }, Box("0.0") + "done\ndone\n"},
      {"Registered", [] { Register(20, 0), Try(Write), Try(Read); }, "writes\ndone\nreads\ndone\n"},
      {"OtherMajor", [] { Register(19, 0), Try(Write); }, Box("19.0") + BoxAndThrow("19.0")},
      {"OtherMinor", [] { Register(20, 1), Try(Read); }, Box("20.1") + BoxAndThrow("20.1")},
      {"RegisteredBehindTheFirstObject", [] { Try(Nothing), Register(20, 0), Try(Write); },
       Box("0.0") + "done\nwrites\ndone\n"},
      {"FirstObjectWasFine", [] { Register(20, 0), Try(Nothing), Register(1, 2), Try(Write); },
       "done\n" + BoxAndThrow("1.2")},
      {"ReplacedChannel",
       [] {
         platform::SetMessageChannel(
             [](char const* title, char const*) { std::cerr << "channel: " << title << '\n'; });
         Try(Nothing);
         platform::SetMessageChannel(nullptr);
         Try(Write);
       },
       "channel: Version Mismatch Error\ndone\n" + BoxAndThrow("0.0")},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    ExpectToSay(row.said, row.program);
  }
}

CBinaryData const kBytes(std::string_view("<a/>"));

void WriteFile(Talker& object) {
  object.ToXmlFile(u"/dev/null", false, false, XmlEncoding_UTF8, EOLType_LF, kContext,
                   CompressionType_None);
}
void ReadPart(Talker& object) {
  CXmlDocument document;
  document.LoadXml("<a/>");
  object.FromXmlElement(document.GetDocumentElement(), kContext);
}

TEST(VersionGuard, StandsOnBothSidesOfEveryOperation) {
  ScratchFolder const folder;
  static std::u16string file;  // the calls are plain functions
  file = FromUtf8(folder.MakeFile("f", "<a/>"));
  // clang-format off
  struct {
    char const* name; Operation call; char const* works;
  } const rows[] = {
      {"ToXml", Write, "writes\n"},
      {"ToXmlStream", [](Talker& o) { o.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, kContext, CompressionType_None); }, "writes\n"},
      {"ToXmlFile", WriteFile, "writes\n"},
      {"ToXmlFileOverlapped", [](Talker& o) { AsyncToXmlFile(true), WriteFile(o); }, "writes\n"},
      {"FromXmlFile", [](Talker& o) { o.FromXmlFile(file.c_str(), kContext); }, "reads\n"},
      {"FromXmlOfText", [](Talker& o) { o.FromXml(u"<a/>", kContext); }, "reads\n"},
      {"FromXmlOfBytes", Read, "reads\n"},
      {"FromXmlStream", [](Talker& o) { o.FromXmlStream(kBytes, kContext); }, "reads\n"},
      {"FromXmlStreamOfBytes", [](Talker& o) { o.FromXmlStream(kBytes.GetData(), kBytes.GetLength(), kContext); }, "reads\n"},
      {"FromXmlElement", ReadPart, "reads\n"},
      {"FromXmlElementOfOpenContent", [](Talker& o) { o.FromXmlElement(CSmartPtr(new CElement(u"a")).Get(), kContext); }, "reads\n"},
  };
  // clang-format on
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    ExpectToSay(Box("21.0") + BoxAndThrow("21.0"), [&] { Register(21, 0), Try(row.call); });
    ExpectToSay(row.works + BoxAndThrow("20.1"), [&] {
      Talker::duringWork = [] { Register(20, 1); };
      Register(20, 0), Try(row.call);
    });
  }
}

}  // namespace
}  // namespace KestXmlLib20

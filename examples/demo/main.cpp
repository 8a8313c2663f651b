// kestxml_demo: tells of a purchase order in classes that describe themselves by metadata, then of
// a large list in classes that read and write themselves. kestxml_demo FILE: does the same with a
// document of the user's: a purchase order, or any other.
#include <cstring>
#include <iostream>

#include "examples/demo/any_document.h"
#include "examples/demo/columns.h"
#include "examples/demo/json_story.h"
#include "examples/demo/language_list.h"
#include "examples/demo/order_story.h"
#include "examples/demo/round_trip.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;

constexpr char const* kLanguages = "/usr/share/xml/iso-codes/iso_639-3.xml";

template <typename Object>
void Read(Object& object, std::filesystem::path const& file) {
  object.FromXmlFile(file.u16string().c_str(), CSerializationContext::GetDefaultContext());
}

template <typename Object>
bool ShowRoundTrips(Object const& object, CTemporaryDirectory const& directory) {
  std::cout << "\nWritten to files, and read into new objects:\n\n";
  bool const plain =
      ShowRoundTrip(std::cout, object, "plain", directory / "copy.xml", CompressionType_None);
  try {
    return ShowRoundTrip(std::cout, object, "gzip ", directory / "copy.xml.gz",
                         CompressionType_GZip) &&
           plain;
  } catch (CKestException const& failure) {  // as with a document of a few bytes
    std::cout << "  gzip   " << failure << '\n';
    return plain;
  }
}

template <typename Object>
bool ShowFailure(std::filesystem::path const& file) try {
  Object object;
  Read(object, file);
  std::cout << "\nThe broken document was read. That is a fault of the library.\n";
  return false;
} catch (CKestException const& failure) {
  std::cout << "    " << failure << '\n';
  return true;
}

template <typename Object>
bool Show(std::filesystem::path const& file) {
  Object object;
  double const milliseconds = Milliseconds([&] { Read(object, file); });
  std::cout << file.filename().string() << ": " << Grouped(std::filesystem::file_size(file))
            << " bytes, read in " << Fixed(milliseconds, 1) << " ms: ";
  Print(std::cout, object);

  CTemporaryDirectory const directory;
  bool const isEqual = ShowRoundTrips(object, directory);
  WriteBroken(directory / "copy.xml", directory / "broken.xml");
  std::cout << "\nThe copy with one angle bracket too many in the middle gives:\n\n";
  return ShowFailure<Object>(directory / "broken.xml") && isEqual;
}

bool ShowLanguages() {
  bool const isGood = Show<CLanguageList>(kLanguages);
  std::cout << "\nAnd a language without a name:\n\n";
  ShowMissingName(std::cout);
  return isGood;
}

void PrintTitle(char const* title) {
  std::cout << '\n' << title << '\n' << std::string(std::strlen(title), '=') << "\n\n";
}

bool ShowExamples() {
  PrintTitle("A purchase order, in classes that describe themselves by metadata");
  bool const isOrderGood = TellOrderStory(std::cout, KESTXML_DEMO_ORDER);
  PrintTitle("The purchase order as JSON");
  bool const isJsonGood = TellJsonStory(std::cout, KESTXML_DEMO_ORDER);
  PrintTitle("The languages of the world, in classes that read and write themselves");
  return ShowLanguages() && isOrderGood && isJsonGood;
}

bool IsOrder(std::filesystem::path const& file) {
  CXmlDocument document;
  document.Load(file.u16string().c_str());
  return document.GetDocumentElement()->GetLocalName() == u"order";
}

bool ShowFile(std::filesystem::path const& file) {
  return IsOrder(file) ? ShowOrder(std::cout, file) : Show<CAnyElement>(file);
}

}  // namespace
}  // namespace KestDemo

int main(int argc, char** argv) {
  KestXmlLib20::Register(20, 0);
  try {
    bool const isGood = argc > 1 ? KestDemo::ShowFile(argv[1]) : KestDemo::ShowExamples();
    return isGood ? 0 : 1;
  } catch (KestXmlLib20::CKestException const& failure) {
    std::cerr << failure << '\n';
  } catch (std::exception const& failure) {
    std::cerr << failure.what() << '\n';
  }
  return 1;
}

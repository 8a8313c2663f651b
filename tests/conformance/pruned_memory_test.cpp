// Documents larger than memory, read with an element callback. The bound is on the whole process,
// so each test needs one of its own, as the test driver gives it.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "bench/support/expat_floor.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "tests/conformance/test_data.h"

namespace KestXmlLib20 {
namespace {

constexpr long kPeakKiB = 64 * 1024;
constexpr std::uint64_t kBlock = 131'072;
constexpr std::u16string_view kText = u"what one element of a very long list holds";

long PeakMemoryKiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// A document in the working folder for as long as the object lives: a root, and in it elements
// without white space between them.
class LongDocument {
 public:
  /// @param item gives the element of a number.
  template <typename Item>
  LongDocument(std::uint64_t length, Item item) {
    std::ofstream file(m_path, std::ios::binary);
    file << "<r>";
    for (m_length = 7; m_length < length || m_length % kBlock == 0; ++m_items) {
      std::string const text = item(m_items);
      file << text;
      m_length += text.size();
    }
    file << "</r>";
  }
  ~LongDocument() { std::filesystem::remove(m_path); }
  LongDocument(LongDocument const&) = delete;
  LongDocument& operator=(LongDocument const&) = delete;

  std::filesystem::path const& GetPath() const { return m_path; }
  std::uint64_t GetItems() const { return m_items; }

 private:
  // The tests run at the same time.
  std::filesystem::path const m_path =
      std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".xml";
  std::uint64_t m_length = 0;
  std::uint64_t m_items = 0;
};

std::uint64_t prunedElements = 0;
std::uint64_t elementsWithText = 0;

bool Prune(CXmlElement* element) {
  ++prunedElements;
  if (element->GetText() == kText) ++elementsWithText;
  return true;
}

void LoadPruned(LongDocument const& file) {
  prunedElements = elementsWithText = 0;
  CXmlDocument document(Prune);
  AsyncFromXmlFile(true);
  document.Load(file.GetPath().u16string().c_str());
  AsyncFromXmlFile(false);
  EXPECT_EQ(prunedElements, file.GetItems() + 1);
  ASSERT_NE(document.GetDocumentElement(), nullptr) << "the root stays, whatever the callback says";
  EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), u"r");
  EXPECT_EQ(document.GetDocumentElement()->GetFirstElement(), nullptr);
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"");
  std::cout << prunedElements << " elements, at most " << PeakMemoryKiB() << " KiB\n";
}

class PrunedMemory : public testing::Test {
 protected:
  void SetUp() override {
#ifdef KESTXML_INSTRUMENTED
    GTEST_SKIP() << "Instrumented code needs memory of its own.";
#endif
  }
};

// 10 seconds of a processor, and 1 GB of disk.
TEST_F(PrunedMemory, DoesNotGrowWithTheDocument) {
  constexpr std::uint64_t kLength = std::uint64_t{1} << 30;
  if (std::filesystem::space(".").available < 2 * kLength) GTEST_SKIP() << "The disk is too full.";
  std::string const item = "<i>what one element of a very long list holds</i>";
  LongDocument const file(
      kLength, [&](std::uint64_t) -> auto& { return item; });
  LoadPruned(file);
  EXPECT_EQ(elementsWithText, file.GetItems());
  EXPECT_LT(PeakMemoryKiB(), kPeakKiB);
}

// The parser itself keeps each distinct name, some 160 bytes for one of these, until the load ends:
// the library must not keep them as well. 4 seconds of a processor.
TEST_F(PrunedMemory, HoldsTheNamesOfElementsInTheParserOnly) {
  LongDocument const file(std::uint64_t{10} << 20, [](std::uint64_t number) {
    return "<n" + std::to_string(number) + "/>";
  });
  EXPECT_GE(file.GetItems(), 1'000'000U);
  KestBench::ParseWithBareExpat(ReadBytes(file.GetPath()));
  long const parserKiB = PeakMemoryKiB();
  std::cout << "bare parser: " << parserKiB << " KiB\n";
  LoadPruned(file);
  EXPECT_LT(PeakMemoryKiB(), parserKiB + 8 * 1024);
}

}  // namespace
}  // namespace KestXmlLib20

// Real documents, against what an independent parser saw in each.
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <iostream>

#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/values/preserve_character_ref_cr.h"
#include "kestxml/values/unicode.h"
#include "tests/conformance/parser_events.h"
#include "tests/conformance/test_data.h"
#include "tests/model/row_name.h"
#include "tests/model/thrown.h"

namespace KestXmlLib20 {
namespace {

using std::filesystem::path;

// Its encoding is none of those that the parser knows.
constexpr char kRefused[] = "libxml2/iso-8859-5.xml";

void LoadFile(CXmlDocument& document, path const& file) {
  document.Load(file.u16string().c_str());
}

void LoadFileInBlocks(CXmlDocument& document, path const& file) {
  struct Overlapped {
    Overlapped() { AsyncFromXmlFile(true); }
    ~Overlapped() { AsyncFromXmlFile(false); }
  } const overlapped;
  LoadFile(document, file);
}

void LoadBytes(CXmlDocument& document, std::string const& bytes) {
  document.LoadXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                         static_cast<std::uint32_t>(bytes.size()));
}

void LoadFileBytes(CXmlDocument& document, path const& file) {
  LoadBytes(document, ReadBytes(file));
}

constexpr int kZlib = MAX_WBITS;
constexpr int kGzip = MAX_WBITS + 16;

template <int wrapping>
void LoadCompressed(CXmlDocument& document, path const& file) {
  std::string plain = ReadBytes(file);
  z_stream stream{};
  ASSERT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, wrapping, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::string packed(deflateBound(&stream, plain.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(plain.data());
  stream.avail_in = static_cast<uInt>(plain.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  ASSERT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  LoadBytes(document, packed);
}

std::string FullName(std::u16string_view uri, std::u16string_view localName) {
  return '{' + ToUtf8(uri) + '}' + ToUtf8(localName);
}

std::vector<std::string> AttributesOf(CXmlElement const& element) {
  std::vector<std::string> attributes;
  for (CXmlAttribute const* attribute : element.GetAttributes()) {
    attributes.push_back(FullName(attribute->GetNamespaceURI(), attribute->GetLocalName()) + '=' +
                         ToUtf8(attribute->GetValue()));
  }
  std::ranges::sort(attributes);
  return attributes;
}

// Throws about half of the elements away, with all that they hold.
bool Prune(CXmlElement* element) {
  return element->GetLocalName().front() < u'f';
}
bool IsPruned(ElementEvents const& events) {
  return static_cast<unsigned char>(events.name.at(events.name.find('}') + 1)) < 'f';
}

struct LoadCase {
  char const* name;
  void (*load)(CXmlDocument& document, path const& file);
  bool preserveCR = false;
  CXmlDocument::ElementCallback callback = nullptr;
};

class XmlEvents : public testing::TestWithParam<LoadCase> {
 protected:
  void SetUp() override {
    m_files = FilesBelow(m_folder / "events");
    if (m_files.empty()) GTEST_SKIP() << "No documents in " << m_folder << "; set KESTXML_DATA.";
    SetPreserveCharacterRefCR(GetParam().preserveCR);
  }
  void TearDown() override { SetPreserveCharacterRefCR(false); }

  // Up to the first difference.
  void ExpectSame(CXmlElement const& element, ElementEvents const& events) {
    ++m_elements;
    auto const where = [&] { return ToUtf8(element.GetXPath()); };
    EXPECT_EQ(FullName(element.GetNamespaceURI(), element.GetLocalName()), events.name) << where();
    EXPECT_EQ(AttributesOf(element), events.attributes) << where();
    EXPECT_EQ(ToUtf8(element.GetText()), TextOf(events)) << where();
    CXmlElement const* child = element.GetFirstElement();
    for (auto const& childEvents : events.children) {
      if (GetParam().callback && IsPruned(childEvents)) continue;
      ASSERT_NE(child, nullptr) << where();
      ASSERT_EQ(child->GetParentElm(), &element) << where();
      ExpectSame(*child, childEvents);
      if (HasFailure()) return;
      child = child->GetNextSiblingElement();
    }
    EXPECT_EQ(child, nullptr) << where();
  }

  path const m_folder = TestDataFolder() / "xml";
  std::vector<path> m_files;
  std::size_t m_documents = 0;
  std::size_t m_elements = 0;

 private:
  static std::string TextOf(ElementEvents const& events) {
    std::string text = events.text;
    if (!GetParam().preserveCR) std::erase(text, '\r');
    return text;
  }
};

void ExpectSameNamespaces(CXmlDocument const& document, ParserEvents const& events) {
  for (auto const& [prefix, uri] : events.namespaces) {
    EXPECT_EQ(document.LookupNamespaceFromAlias(prefix), uri) << ToUtf8(prefix);
    auto const lowest = std::ranges::find(
        events.namespaces, uri, [](auto& each) -> auto& { return each.second; });
    EXPECT_EQ(document.LookupAliasFromNamespace(uri), lowest->first) << ToUtf8(uri);
  }
}

TEST_P(XmlEvents, FollowFromTheTree) {
  for (path file : m_files) {
    ParserEvents const events = ReadParserEvents(m_folder / "events" / file);
    file.replace_extension();
    SCOPED_TRACE(file);
    CXmlDocument document(GetParam().callback);
    auto const load = [&] { GetParam().load(document, m_folder / "docs" / file); };
    if (file == kRefused) {
      EXPECT_EQ(Thrown(load), u"unknown encoding at line 1");
      continue;
    }
    load();
    ASSERT_NE(document.GetDocumentElement(), nullptr);
    ExpectSame(*document.GetDocumentElement(), events.root);
    ExpectSameNamespaces(document, events);
    ++m_documents;
  }
  std::cout << m_documents << " documents, " << m_elements << " elements\n";
}

constexpr LoadCase kLoads[] = {
    {"File", LoadFile},
    {"FileInBlocks", LoadFileInBlocks},
    {"Bytes", LoadFileBytes},
    {"Zlib", LoadCompressed<kZlib>},
    {"Gzip", LoadCompressed<kGzip>},
    {"BytesPreservingCR", LoadFileBytes, true},
    {"FileInBlocksPreservingCR", LoadFileInBlocks, true},
    {"BytesPruned", LoadFileBytes, false, Prune},
    {"FileInBlocksPruned", LoadFileInBlocks, false, Prune},
};
INSTANTIATE_TEST_SUITE_P(Loads, XmlEvents, testing::ValuesIn(kLoads), RowName());

}  // namespace
}  // namespace KestXmlLib20

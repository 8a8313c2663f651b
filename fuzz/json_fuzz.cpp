// Any bytes become XML or are refused, and alike as bytes and as text; what was read and has a JSON
// form reads back equal from it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "kestxml/kestxml.h"

namespace {

using namespace KestXmlLib20;

void Require(bool law, char const* text) {
  if (law) return;
  std::fprintf(stderr, "Broken: %s\n", text);
  std::abort();
}

// An element that holds a text or elements. White space between elements is not kept.
class CTree : public CXmlObjectBase {
 public:
  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return m_uri; }

  bool operator==(CTree const& other) const {
    return GetElementName() == other.GetElementName() && m_attributes == other.m_attributes &&
           m_text == other.m_text &&
           std::ranges::equal(m_children, other.m_children,
                              [](auto const& left, auto const& right) { return *left == *right; });
  }

  // Whether JSON can hold the tree: in no namespace, no deeper than the reader goes, no element
  // empty or with text beside elements, and no text with what the writer does not escape.
  bool HasJsonForm(int depth = 0) const {
    constexpr int kMostDepth = 98;
    if (depth > kMostDepth || !m_uri.empty() || m_text.empty() != m_isParent) return false;
    return IsPlain(m_text) && !m_text.starts_with(u"<![CDATA[") &&
           std::ranges::all_of(m_attributes,
                               [](auto const& attribute) { return IsPlain(attribute.value); }) &&
           std::ranges::all_of(m_children,
                               [=](auto const& child) { return child->HasJsonForm(depth + 1); });
  }

 protected:
  std::u16string_view GetTargetNamespace() const override { return m_uri; }

  void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CSerializationContext const& context,
                 bool) const override {
    writer->StartElement(GetElementName(), m_uri);
    for (auto const& [name, value] : m_attributes) {
      writer->WriteAttribute(name, u"", value, ItemType_string);
    }
    if (!m_isParent) writer->WriteText(m_text, ItemType_string, false);
    for (auto const& child : m_children) child->ToXml_Int(writer, false, u"", context, false);
    writer->EndElement();
  }

  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool) override {
    SetElementName(element->GetLocalName().data());
    m_uri = element->GetNamespaceURI();
    m_isParent = child != nullptr;
    m_text = TextOf(*element);
    for (auto const* attribute : element->GetAttributes()) {
      m_attributes.push_back(
          {std::u16string(attribute->GetLocalName()), std::u16string(attribute->GetValue())});
      m_uri += attribute->GetNamespaceURI();
    }
    for (; child; child = child->GetNextSiblingElement()) {
      m_children.emplace_back(new CTree);
      m_children.back()->FromXml_Int(child, child->GetFirstElement(), context, false);
    }
    return nullptr;
  }

 private:
  struct Attribute {
    std::u16string name, value;
    bool operator==(Attribute const&) const = default;
  };

  static bool IsPlain(std::u16string const& text) {
    return text.find_first_of(u"\"\\\t\r\n") == text.npos;
  }

  std::u16string TextOf(CXmlElement const& element) const {
    std::u16string_view const text = element.GetText();
    bool const isLayout = m_isParent && text.find_first_not_of(u"\t\n") == text.npos;
    return isLayout ? std::u16string() : std::u16string(text);
  }

  std::u16string m_uri;  // of the element and, to have it refused, its attributes
  bool m_isParent = false;
  std::u16string m_text;
  std::vector<Attribute> m_attributes;
  std::vector<CSmartPtr<CTree>> m_children;
};

CSerializationContext MakeContext(std::uint8_t const* data, std::size_t size) {
  CSerializationContext context;
  context.GetLimits().SetMaxDepth(200);
  context.GetLimits().SetMaxInflatedBytes(1 << 20);
  // Long texts choose by their length, so that a fuzzer finds every mode.
  context.GetJsonContext()->SetSupportRoundtrip(size % 5 == 4   ? JsonRoundTrip_None
                                                : size % 5 == 3 ? JsonRoundTrip_Attributes
                                                                : JsonRoundTrip_Full);
  if (size > 0 && data[0] == '[') context.GetJsonContext()->SetRootElementName(u"root");
  return context;
}

template <typename Load>
std::string Outcome(CSerializationContext const& context, Load load) {
  CXmlDocument document(context);
  try {
    return std::string(load(document).GetView());
  } catch (CKestException const& failure) {
    return ToUtf8(failure.GetFullMessage());
  }
}

void TestConversion(std::uint8_t const* data, std::uint32_t size,
                    CSerializationContext const& context) {
  std::string const bytes(data, data + size);
  bool const isText = !MayBeCompressed(data, size) && !bytes.starts_with("\xEF\xBB\xBF") &&
                      !bytes.empty() && bytes[0] != '\0';
  std::string const outcome =
      Outcome(context, [&](CXmlDocument& document) { return document.LoadJsonStream(data, size); });
  if (!isText) return;
  Require(outcome == Outcome(context,
                             [&](CXmlDocument& document) {
                               return document.LoadJson(FromUtf8(bytes).c_str());
                             }),
          "bytes and text convert alike");
}

void TestRoundTrip(CTree& tree, bool prettyPrint) {
  CSerializationContext const context;
  CSmartPtr<CTree> const fromText(new CTree);
  fromText->FromJson(tree.ToJson(prettyPrint, EOLType_LF, context).c_str(), context);
  Require(*fromText == tree, "text that was written reads back equal");
  CSmartPtr<CTree> const fromBytes(new CTree);
  fromBytes->FromJsonStream(
      tree.ToJsonStream(prettyPrint, XmlEncoding_UTF8, EOLType_LF, context, CompressionType_None),
      context);
  Require(*fromBytes == tree, "bytes that were written read back equal");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static bool const registered = (Register(20, 0), true);
  auto const length = static_cast<std::uint32_t>(registered ? size : 0);
  CSerializationContext const context = MakeContext(data, size);
  TestConversion(data, length, context);
  CSmartPtr<CTree> const tree(new CTree);
  try {
    tree->FromJsonStream(data, length, context);
  } catch (CKestException const&) {
    return 0;
  }
  if (!tree->HasJsonForm()) return 0;
  TestRoundTrip(*tree, false);
  TestRoundTrip(*tree, true);
  return 0;
}

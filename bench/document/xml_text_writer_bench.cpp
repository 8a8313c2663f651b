// Writing XML text: the calls that a document is made of, with their strings at hand, to UTF-8
// bytes in memory.
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bench/support/measure.h"
#include "kestxml/document/byte_text_stream.h"
#include "kestxml/document/xml_attribute.h"
#include "kestxml/document/xml_document.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_text_writer.h"

namespace KestBench {
namespace {

using namespace KestXmlLib20;

constexpr std::u16string_view kWhiteSpace = u" \t\r\n";

// Without white space at its ends, which formatting may have put there.
std::u16string_view Trimmed(std::u16string_view text) {
  std::size_t const begin = text.find_first_not_of(kWhiteSpace);
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(kWhiteSpace) + 1 - begin);
}

// A document as the calls that write it. The text of an element comes before its child elements.
class CScript {
 public:
  explicit CScript(std::string_view bytes) {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
    Add(*document.GetDocumentElement());
  }

  bool operator==(CScript const& other) const {
    return std::equal(m_calls.begin(), m_calls.end(), other.m_calls.begin(), other.m_calls.end(),
                      [&](Call const& left, Call const& right) {
                        return left.kind == right.kind && *left.name == *right.name &&
                               ValueOf(left) == other.ValueOf(right);
                      });
  }

  CBinaryData Write() const {
    CByteTextStream stream(XmlEncoding_UTF8);
    CXmlTextWriter writer(stream);
    writer.SetIndent(u"  ");
    writer.OpenWriter();
    writer.WriteXmlDeclaration();
    writer.SetDefaultNamespace(m_calls.front().name->uri);
    for (Call const& call : m_calls) Play(call, writer);
    writer.CloseWriter();
    return stream.TakeBytes();
  }

 private:
  enum class Kind : std::uint32_t { Start, Attribute, Text, End };

  struct Name {
    std::u16string local, uri;
    auto operator<=>(Name const&) const = default;
  };

  struct Call {
    Name const* name;
    std::size_t value;  // where it begins in m_text
    std::uint32_t length;
    Kind kind;
  };

  void Add(CXmlElement const& element) {
    Name const* const name = Intern(element.GetLocalName(), element.GetNamespaceURI());
    Add(Kind::Start, name, {});
    for (CXmlAttribute const* attribute : element.GetAttributes())
      Add(Kind::Attribute, Intern(attribute->GetLocalName(), attribute->GetNamespaceURI()),
          attribute->GetValue());
    if (auto const text = Trimmed(element.GetText()); !text.empty()) Add(Kind::Text, name, text);
    for (auto* child = element.GetFirstElement(); child; child = child->GetNextSiblingElement())
      Add(*child);
    Add(Kind::End, name, {});
  }

  void Add(Kind kind, Name const* name, std::u16string_view value) {
    m_calls.push_back({name, m_text.size(), static_cast<std::uint32_t>(value.size()), kind});
    m_text += value;
  }

  Name const* Intern(std::u16string_view local, std::u16string_view uri) {
    return &*m_names.insert({std::u16string(local), std::u16string(uri)}).first;
  }

  std::u16string_view ValueOf(Call const& call) const {
    return std::u16string_view(m_text).substr(call.value, call.length);
  }

  void Play(Call const& call, CXmlWriter& writer) const {
    switch (call.kind) {
      case Kind::Start:
        return writer.StartElement(call.name->local, call.name->uri);
      case Kind::Attribute:
        return writer.WriteAttribute(call.name->local, call.name->uri, ValueOf(call),
                                     ItemType_string);
      case Kind::Text:
        return writer.WriteText(ValueOf(call), ItemType_string, false);
      case Kind::End:
        return writer.EndElement();
    }
  }

  std::set<Name> m_names;
  std::u16string m_text;
  std::vector<Call> m_calls;
};

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string replaced;
  for (std::size_t at; (at = text.find(from)) != text.npos; text.remove_prefix(at + from.size()))
    replaced.append(text.substr(0, at)).append(to);
  return replaced.append(text);
}

// The orders document, with characters that need no reference as themselves.
std::string WithFewReferences(std::string text) {
  constexpr std::pair<char const*, char const*> kSpellings[] = {
      {"&quot;", "\""}, {"&apos;", "'"}, {"&#8364;", "€"}, {"&#x20AC;", "€"}};
  for (auto const& [from, to] : kSpellings) text = ReplaceAll(text, from, to);
  return text;
}

bool IsOrders(std::string_view text) {
  return text.find("\n<orders xmlns=\"urn:example:orders\">\n") != text.npos;
}

// Any document reads back as it was; the orders document comes out byte for byte.
void Check(CScript const& script, std::string const& source) {
  CBinaryData const written = script.Write();
  std::string_view const bytes(reinterpret_cast<char const*>(written.GetData()),
                               written.GetLength());
  if (CScript(bytes) != script) throw std::runtime_error("what was written reads differently");
  if (IsOrders(source) && WithFewReferences(source) != bytes)
    throw std::runtime_error("the orders document was written with other bytes");
}

// Made and checked once for each document.
CScript const& ScriptOf(BenchDocument const& document) {
  static std::map<BenchDocument const*, std::unique_ptr<CScript>> scripts;
  std::unique_ptr<CScript>& script = scripts[&document];
  if (!script) {
    script = std::make_unique<CScript>(document.bytes);
    Check(*script, document.bytes);
  }
  return *script;
}

CMeasure const g_write("write", [](benchmark::State& state, BenchDocument const& document) {
  CScript const& script = ScriptOf(document);
  for (auto _ : state) benchmark::DoNotOptimize(script.Write());
});

}  // namespace
}  // namespace KestBench

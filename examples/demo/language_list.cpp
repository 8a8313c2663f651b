#include "examples/demo/language_list.h"

#include <algorithm>
#include <functional>

#include "examples/demo/columns.h"

namespace KestDemo {
namespace {

using namespace KestXmlLib20;

struct Field {
  char16_t const* attribute;
  std::u16string CLanguage::*value;
};

// clang-format off
constexpr Field kFields[] = {
    {u"id",             &CLanguage::id},
    {u"part1_code",     &CLanguage::part1},
    {u"part2_code",     &CLanguage::part2},
    {u"status",         &CLanguage::status},
    {u"scope",          &CLanguage::scope},
    {u"type",           &CLanguage::type},
    {u"inverted_name",  &CLanguage::inverted},
    {u"reference_name", &CLanguage::reference},
    {u"name",           &CLanguage::name},
    {u"common_name",    &CLanguage::common},
};

struct Meaning {
  std::u16string_view code;
  std::u16string_view text;
};
constexpr Meaning kScopes[] = {
    {u"I", u"individual"}, {u"M", u"macrolanguage"}, {u"S", u"special"}};
constexpr Meaning kTypes[] = {
    {u"L", u"living"},  {u"E", u"extinct"},     {u"H", u"historic"},
    {u"A", u"ancient"}, {u"C", u"constructed"}, {u"S", u"special"}};
// clang-format on

template <std::size_t Size>
std::u16string_view MeaningOf(Meaning const (&meanings)[Size], std::u16string_view code) {
  auto const found = std::ranges::find(meanings, code, &Meaning::code);
  return found == std::end(meanings) ? code : found->text;
}

template <std::size_t Size>
void PrintCounts(std::ostream& out, CLanguageList const& list, std::u16string_view title,
                 Meaning const (&meanings)[Size], std::u16string CLanguage::*value) {
  out << "  " << Left(title, 10);
  for (Meaning const& meaning : meanings) {
    auto const count = std::ranges::count_if(
        list.languages, [&](auto const& language) { return (*language).*value == meaning.code; });
    out << "  " << Grouped(static_cast<std::size_t>(count)) << ' ' << ToUtf8(meaning.text);
  }
  out << '\n';
}

void PrintRow(std::ostream& out, CLanguage const& language) {
  out << "  " << Left(language.id, 6) << Left(language.part1, 5)
      << Left(MeaningOf(kScopes, language.scope), 15) << Left(MeaningOf(kTypes, language.type), 13)
      << ToUtf8(language.name) << '\n';
}

}  // namespace

bool CLanguage::operator==(CLanguage const& other) const {
  return std::ranges::all_of(
      kFields, [&](Field const& field) { return this->*field.value == other.*field.value; });
}

void CLanguage::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const&) const {
  for (Field const& field : kFields)
    if (std::u16string const& value = this->*field.value; !value.empty())
      writer->WriteAttribute(field.attribute, u"", value, ItemType_string);
}

void CLanguage::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                          CSerializationContext const& context, bool) const {
  writer->StartElement(u"iso_639_3_entry", namespaceUri);
  AttributesToXml_Int(writer, context);
  writer->EndElement();
}

CXmlElement* CLanguage::FromXml_Int(CXmlElement* element, CXmlElement* child,
                                    CSerializationContext const&, bool) {
  for (Field const& field : kFields)
    this->*field.value = element->GetAttribute(field.attribute, u"");
  if (id.empty() || name.empty())
    throw CKestValidationException(u"A language needs an id and a name.", element->GetXPath());
  return child;
}

bool CLanguageList::operator==(CLanguageList const& other) const {
  return std::ranges::equal(languages, other.languages,
                            [](auto const& left, auto const& right) { return *left == *right; });
}

void CLanguageList::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                              CSerializationContext const& context, bool) const {
  writer->StartElement(u"iso_639_3_entries", namespaceUri);
  for (auto const& language : languages)
    CXmlObjectBase::ToXml_Int(language.Get(), writer, false, namespaceUri, context, false);
  writer->EndElement();
}

CXmlElement* CLanguageList::FromXml_Int(CXmlElement*, CXmlElement* child,
                                        CSerializationContext const& context, bool) {
  languages.clear();
  for (; child && child->GetLocalName() == u"iso_639_3_entry";
       child = child->GetNextSiblingElement()) {
    CSmartPtr<CLanguage> const language(new CLanguage);
    CXmlObjectBase::FromXml_Int(language.Get(), child, child->GetFirstElement(), context, false);
    languages.push_back(language);
  }
  return child;
}

void ShowMissingName(std::ostream& out) {
  constexpr char const* kText =
      "<iso_639_3_entries>"
      "<iso_639_3_entry id='deu' name='German'/><iso_639_3_entry id='fra'/>"
      "</iso_639_3_entries>";
  try {
    CLanguageList().FromXml(kText, CSerializationContext::GetDefaultContext());
  } catch (CKestException const& failure) {
    out << failure << '\n';
  }
}

void Print(std::ostream& out, CLanguageList const& list) {
  out << Grouped(list.languages.size()) << " languages\n\n";
  PrintCounts(out, list, u"by scope", kScopes, &CLanguage::scope);
  PrintCounts(out, list, u"by type", kTypes, &CLanguage::type);

  std::vector<CLanguage const*> withShortCode;
  for (auto const& language : list.languages)
    if (!language->part1.empty()) withShortCode.push_back(language.Get());
  out << "\n  The " << withShortCode.size() << " with a code of two letters, every twentieth:\n\n";
  for (std::size_t i = 0; i < withShortCode.size(); i += 20) PrintRow(out, *withShortCode[i]);
}

}  // namespace KestDemo

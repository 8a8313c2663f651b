// Debian's list of the world's languages, ISO 639-3, as objects.
#pragma once

#include <ostream>
#include <vector>

#include "kestxml/kestxml.h"

namespace KestDemo {

/// One language: its attributes, absent ones empty.
class CLanguage : public KestXmlLib20::CXmlObjectBase {
 public:
  std::u16string id;     ///< three letters
  std::u16string part1;  ///< two letters
  std::u16string part2;  ///< three letters of the older list
  std::u16string status;
  std::u16string scope;     ///< I, M or S
  std::u16string type;      ///< L, H, E, A, C or S
  std::u16string inverted;  ///< "German, Middle High"
  std::u16string reference;
  std::u16string name;
  std::u16string common;

  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return u""; }

  bool operator==(CLanguage const& other) const;

 protected:
  std::u16string_view GetTargetNamespace() const override { return u""; }
  void AttributesToXml_Int(KestXmlLib20::CXmlWriter* writer,
                           KestXmlLib20::CSerializationContext const& context) const override;
  void ToXml_Int(KestXmlLib20::CXmlWriter* writer, bool registerNamespaces,
                 char16_t const* namespaceUri, KestXmlLib20::CSerializationContext const& context,
                 bool isOptionalChoice) const override;
  KestXmlLib20::CXmlElement* FromXml_Int(KestXmlLib20::CXmlElement* element,
                                         KestXmlLib20::CXmlElement* child,
                                         KestXmlLib20::CSerializationContext const& context,
                                         bool isOptionalChoice) override;
};

/// The document: its languages in their order.
class CLanguageList : public KestXmlLib20::CXmlObjectBase {
 public:
  static constexpr bool kMayBeIndented = true;

  std::vector<KestXmlLib20::CSmartPtr<CLanguage>> languages;

  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return u""; }

  bool operator==(CLanguageList const& other) const;

 protected:
  std::u16string_view GetTargetNamespace() const override { return u""; }
  void ToXml_Int(KestXmlLib20::CXmlWriter* writer, bool registerNamespaces,
                 char16_t const* namespaceUri, KestXmlLib20::CSerializationContext const& context,
                 bool isOptionalChoice) const override;
  KestXmlLib20::CXmlElement* FromXml_Int(KestXmlLib20::CXmlElement* element,
                                         KestXmlLib20::CXmlElement* child,
                                         KestXmlLib20::CSerializationContext const& context,
                                         bool isOptionalChoice) override;
};

/// Reads a list in which a language has no name, and prints what comes of it.
void ShowMissingName(std::ostream& out);

/// Prints how many languages there are of each kind, and a few of them.
void Print(std::ostream& out, CLanguageList const& list);

}  // namespace KestDemo

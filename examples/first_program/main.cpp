#include <kestxml/kestxml.h>

#include <iostream>

using namespace KestXmlLib20;

class CGreeting : public CXmlObjectBase {
 public:
  std::u16string text;

  CXmlObjectBase* GetBase() override { return this; }
  std::u16string_view GetNamespace() const override { return u""; }

 protected:
  std::u16string_view GetTargetNamespace() const override { return u""; }

  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child, CSerializationContext const&,
                           bool) override {
    text = element->GetText();
    return child;
  }

  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* uri, CSerializationContext const&,
                 bool) const override {
    writer->StartElement(u"greeting", uri);
    writer->WriteText(text, ItemType_string, false);
    writer->EndElement();
  }
};

int main() {
  Register(20, 0);
  auto const& context = CSerializationContext::GetDefaultContext();
  CGreeting greeting;
  greeting.FromXml("<greeting>Hello, &#x4E16;&#x754C;</greeting>", context);
  greeting.text += u" & all";
  std::cout << ToUtf8(greeting.ToXml(true, true, EOLType_LF, context));
}

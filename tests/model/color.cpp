#include "tests/model/color.h"

#include <iterator>

#include "kestxml/binding/serialization_context.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestModel {
namespace {

constexpr char16_t const* kNames[] = {u"red", u"green", u"blue"};

}  // namespace

char16_t const* ColorToString(int color) {
  if (color >= 0 && color < std::ssize(kNames)) return kNames[color];
  throw CKestInvalidValueException(FormatString(u"Invalid Color [%d]", color));
}

int StringToColor(char16_t const* text) {
  for (int color = 0; color < std::ssize(kNames); ++color) {
    if (std::u16string_view(text) == kNames[color]) return color;
  }
  throw CKestInvalidValueException(FormatString(u"Invalid Color [%s]", text));
}

void CColorCol::Add(Color color) {
  FireOnCollectionAdd(&color);
  m_colors.push_back(color);
  FireOnCollectionAddComplete(&color);
  FireOnCollectionChange();
}

void CColorCol::Remove(std::int32_t index) {
  FireOnCollectionRemove(index);
  m_colors.erase(m_colors.begin() + index);
  FireOnCollectionRemoveComplete(index);
  FireOnCollectionChange();
}

void CColorCol::Clear() {
  while (GetCount() != 0) Remove(0);
}

void CColorCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const*,
                          CSerializationContext const& context, bool) const {
  ValidateCount(context);
  for (Color const color : m_colors) {
    writer->StartElement(GetElementName(), GetNamespace());
    writer->WriteText(ColorToString(color), ItemType_string, false);
    writer->EndElement();
  }
}

CXmlElement* CColorCol::FromXml_Int(CXmlElement*, CXmlElement* child,
                                    CSerializationContext const& context, bool) {
  std::u16string const name = GetElementName();
  while (child && DoesElementNameMatch(context, child, name.c_str(), GetNamespace().data())) {
    Add(static_cast<Color>(StringToColor(child->GetText().data())));
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace KestModel

// A generated enumeration and its collection.
#pragma once

#include <cstdint>
#include <vector>

#include "tests/model/model_class.h"

namespace KestModel {

enum Color : std::int32_t { Color_red, Color_green, Color_blue };

/// @throws CKestInvalidValueException for what is no color.
char16_t const* ColorToString(int color);
int StringToColor(char16_t const* text);

class CColorCol : public CXmlCollectionBase {
 public:
  CColorCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
            std::int32_t maxOccurs)
      : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs) {}

  void Add(Color color);
  std::int32_t GetCount() const override { return static_cast<std::int32_t>(m_colors.size()); }
  void Clear() override;
  void Remove(std::int32_t index) override;

 protected:
  void ToXml_Int(CXmlWriter* writer, bool registerNamespaces, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool isOptionalChoice) override;

 private:
  std::vector<Color> m_colors;
};

/// An element with a color.
template <typename Info>
CElementInfo* ColorElement(char16_t const* name, std::int32_t index, bool nillable = false,
                           char16_t const* defaultValue = nullptr) {
  return new Info(name, u"", index, nillable, ColorToString, StringToColor, defaultValue);
}

}  // namespace KestModel

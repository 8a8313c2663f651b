// Collections as a generator emits them: of an enumeration, of one class, of a class with
// substitutions, of groups; and the collections of values with facets.
#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

#include "kestxml/collections/kest_iterator.h"
#include "kestxml/collections/value_cols.h"
#include "kestxml/collections/xml_collection.h"
#include "kestxml/document/xml_element.h"
#include "kestxml/document/xml_writer.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"
#include "tests/model/model_class.h"

namespace KestModel {

enum Color : std::int32_t { Color_red, Color_green, Color_blue };

inline constexpr char16_t const* kColors[] = {u"red", u"green", u"blue"};

inline char16_t const* ColorToString(int color) {
  if (color >= 0 && color < std::ssize(kColors)) return kColors[color];
  throw CKestInvalidValueException(FormatString(u"Invalid Color [%d]", color));
}

inline int StringToColor(char16_t const* text) {
  auto const* const found = std::ranges::find(kColors, std::u16string_view(text));
  if (found != std::end(kColors)) return static_cast<int>(found - kColors);
  throw CKestInvalidValueException(FormatString(u"Invalid Color [%s]", text));
}

template <typename Info>
CElementInfo* ColorElement(char16_t const* name, std::int32_t index, bool nillable = false,
                           char16_t const* defaultValue = nullptr) {
  return new Info(name, u"", index, nillable, ColorToString, StringToColor, defaultValue);
}

class CColorCol : public CXmlCollectionBase {
 public:
  CColorCol(char16_t const* elementName, std::int32_t minOccurs, std::int32_t maxOccurs)
      : CXmlCollectionBase(elementName, u"", minOccurs, maxOccurs) {}

  std::int32_t GetCount() const override { return static_cast<std::int32_t>(m_colors.size()); }
  void Clear() override {
    while (GetCount() != 0) Remove(0);
  }
  void Remove(std::int32_t index) override {
    m_colors.erase(m_colors.begin() + index);
    FireOnCollectionChange();
  }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CSerializationContext const& context,
                 bool) const override {
    ValidateCount(context);
    for (int const color : m_colors) {
      writer->StartElement(GetElementName(), GetNamespace());
      writer->WriteText(ColorToString(color), ItemType_string, false);
      writer->EndElement();
    }
  }
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const& context,
                           bool) override {
    std::u16string const name = GetElementName();
    while (child && DoesElementNameMatch(context, child, name.c_str(), u"")) {
      m_colors.push_back(StringToColor(child->GetText().data()));
      FireOnCollectionChange();
      child = child->GetNextSiblingElement();
    }
    return child;
  }

 private:
  std::vector<int> m_colors;
};

template <typename Col>
CSmartPtr<Col> ValueCol(char16_t const* name, std::int32_t minOccurs, std::int32_t maxOccurs,
                        char16_t const* minInclusive = nullptr) {
  return new Col(name, u"", minOccurs, maxOccurs, nullptr, -1, -1, minInclusive, nullptr, nullptr,
                 nullptr, -1, -1, -1, CWhitespaceUtils::WhitespaceRule_Collapse, nullptr);
}

template <typename Item>
CSmartPtr<CXmlObjectBase> MakeItem(CXmlElement*) {
  return new Item;
}

/// @tparam kMake the factory of items; with null from it the collection ends.
template <typename Item, CSmartPtr<CXmlObjectBase> (*kMake)(CXmlElement*) = MakeItem<Item>>
class CObjectCol : public CXmlCollection {
 public:
  CObjectCol(char16_t const* elementName, char16_t const* namespaceURI, std::int32_t minOccurs,
             std::int32_t maxOccurs)
      : CXmlCollection(elementName, namespaceURI, minOccurs, maxOccurs) {}

  void Add(Item* item) { AppendItem(item); }
  CKestIterator<Item> begin() const { return CKestIterator<Item>(GetFirstNode()); }
  CKestIterator<Item> end() const { return {}; }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                 CSerializationContext const& context, bool) const override {
    for (Item const& item : *this) {
      CXmlObjectBase::ToXml_Int(&item, writer, false, namespaceUri, context, false);
    }
  }
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, CSerializationContext const& context,
                           bool) override {
    std::u16string const name = GetElementName();
    while (child && DoesElementNameMatch(context, child, name.c_str(), GetNamespace().data())) {
      CSmartPtr<CXmlObjectBase> const item = kMake(child);
      if (!item) break;
      CXmlObjectBase::FromXml_Int(item.Get(), child, child->GetFirstElement(), context, false);
      AppendItem(item.Get());
      child = child->GetNextSiblingElement();
    }
    return child;
  }
};

/// Items that have no element of their own: each reads from where the one before ended.
template <typename Item>
class CGroupCol : public CObjectCol<Item> {
 public:
  CGroupCol() : CObjectCol<Item>(u"", u"", 0, -1) {}

 protected:
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                           CSerializationContext const& context, bool) override {
    while (child) {
      CSmartPtr<Item> const item(new Item);
      CXmlElement* const next =
          CXmlObjectBase::FromXml_Int(item.Get(), element, child, context, false);
      if (next == child) break;
      this->AppendItem(item.Get());
      child = next;
    }
    return child;
  }
};

}  // namespace KestModel

#include "tests/model/alls.h"

namespace KestModel {

Tables CForm::BuildTables() {
  return {Class(XmlElementGroupType_All, XmlElementType_Element, u"Form"),
          Table<CElementInfo>(
              {Primitive<CElementInfoAllPrimMnd>(u"Number", 0, {.type = ItemType_i4}),
               Primitive<CElementInfoAllPrimOpt>(u"Text", 1),
               ColorElement<CElementInfoAllEnumMnd>(u"Color", 2),
               ColorElement<CElementInfoAllEnumOpt>(u"Lining", 3),
               new CElementInfoAllClsMnd(u"Tag", u"", 4, XmlElementType_Element,
                                         CModelFactory::Create, CModelFactory::ClassId_Tag, true),
               new CElementInfoAllClsOpt(u"Note", u"", 5, XmlElementType_Element,
                                         CModelFactory::Create, CModelFactory::ClassId_Note),
               new CElementInfoAllAbsClsMnd(u"Shape", kShapes, 6, XmlElementType_Element,
                                            CModelFactory::CreateShape, 0),
               new CElementInfoAllAbsClsOpt(u"Inner", kShapes, 7, XmlElementType_Element,
                                            CModelFactory::CreateShape),
               new CElementInfoAllUntpdMnd(u"Head", u"", 8, u"##any", u""),
               new CElementInfoAllUntpdOpt(u"Foot", u"", 9, u"##any", u"")}),
          Table<CAttributeInfo>({})};
}

void CForm::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  // clang-format off
  switch (propertyIndex) {
    case 0: return Exchange(m_number, read, value);
    case 1: return Exchange(m_text, read, value);
    case 2: return Exchange(m_color, read, value);
    case 3: return Exchange(m_lining, read, value);
    case 4: return Exchange(m_tag, read, value);
    case 5: return Exchange(m_note, read, value);
    case 6: return Exchange(m_shape, read, value);
    case 7: return Exchange(m_inner, read, value);
    case 8: return Exchange(m_head, read, value);
    case 9: return Exchange(m_foot, read, value);
  }
  // clang-format on
}

void CForm::Init() {
  m_number = 0;
  m_text.Clear();
  m_color.SetI4(Color_red);
  m_lining.Clear();
  m_tag = new CTag;
  m_note = nullptr;
  m_shape = nullptr;
  m_inner = nullptr;
  m_head = new CElement(u"Head");
  m_foot = nullptr;
}

}  // namespace KestModel

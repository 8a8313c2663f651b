#include "examples/orders/note.h"

namespace KestOrders {

using namespace SimpleTypes;

namespace {

enum Property : std::int32_t { kTextProperty, kAuthorProperty, kInternalProperty };

}  // namespace

// An attribute that is not in the document leaves its property as Init made it, so the default of
// "internal" stands there.
constinit COrderClass::CTables CNote::s_tables([] {
  return MakeTables(SimpleContentClass(u"note", kTextProperty, kText), {},
                    {Attribute(u"author", kAuthorProperty, false, kName),
                     Attribute(u"internal", kInternalProperty, true, kBoolean, u"false")});
});

CNote::CNote(char16_t const* elementName) : COrderClass(elementName) {
  CNote::Init();
}

void CNote::Init() {
  m_text.clear();
  m_author.clear();
  m_internal = false;
}

void CNote::SetText(std::u16string const& value) {
  m_text = Checked(u"note", value, kText);
}
void CNote::SetAuthor(std::u16string const& value) {
  m_author = Checked(u"author", value, kName);
}

// The library checks values of entries before it sets them. The text of simple content has no
// entry: its setter checks it.
void CNote::AccessProperty(std::int32_t propertyIndex, bool read, KestVariant& value) {
  switch (propertyIndex) {
    case kTextProperty:
      return read ? Store(value, m_text) : SetText(value.GetString());
    case kAuthorProperty:
      return Access(m_author, read, value);
    case kInternalProperty:
      return Access(m_internal, read, value);
    default:
      ThrowUnknownProperty(propertyIndex);
  }
}

}  // namespace KestOrders

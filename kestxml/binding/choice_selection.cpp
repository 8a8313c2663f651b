// What the setters of a generated choice class do to its selection.
#include "kestxml/binding/internal/text_view.h"
#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/kest_exception.h"

namespace KestXmlLib20 {
namespace {

using internal::ViewOf;

// A property is being set (or cleared) while something is selected.
void UpdateSelection(std::u16string_view name, bool isSet, std::u16string& selection) {
  if (selection == name) {
    if (!isSet) selection.clear();
  } else if (isSet) {
    throw CKestInvalidStateException(
        FormatString(u"The Property [%s] is already set. Only one element within this class bay be "
                     u"set at a time",
                     selection));
  }
}

}  // namespace

void CXmlObjectBase::Choice_SetElementValid(bool valid, char16_t const* name,
                                            std::u16string& selection) {
  if (!valid) {
    selection.clear();
  } else if (selection != ViewOf(name)) {
    throw CKestInvalidStateException(FormatString(
        u"The Property %s is already set. Only one element within this class bay be set at a time",
        selection));
  }
}

// A null value selects, too, when nothing is selected: generated setters rely on that asymmetry.
void CXmlObjectBase::Choice_SelectElement(char16_t const* name, CXmlObjectBase* value,
                                          std::u16string& selection) {
  if (selection.empty()) {
    selection = ViewOf(name);
  } else {
    UpdateSelection(ViewOf(name), value != nullptr, selection);
  }
}

void CXmlObjectBase::Choice_CollectionChanged(char16_t const* name, std::int32_t count,
                                              std::u16string& selection) {
  if (!selection.empty()) {
    UpdateSelection(ViewOf(name), count != 0, selection);
  } else if (count >= 1) {
    selection = ViewOf(name);
  }
}

}  // namespace KestXmlLib20

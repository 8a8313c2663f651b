// How a class stands in the elements of a document.
#pragma once

#include <cstdint>

namespace KestXmlLib20Data {

/// How the element table of a class is read. The numbers are part of the interface.
enum XmlElementGroupType : std::int32_t {
  XmlElementGroupType_Sequence = 0,  ///< the entries in table order
  XmlElementGroupType_Choice = 1,    ///< one entry
  XmlElementGroupType_All = 2,       ///< the entries in any order, each at most once
};

/// Whether an object has an element of its own. Any other value is a group that has none and whose
/// attributes are not passed to the parent. The numbers are part of the interface.
enum XmlElementType : std::int32_t {
  /// Its start and end tags are written, and an entry must match the element by name.
  XmlElementType_Element = 0,
  /// It lives among the children of its parent's element, and its attributes in the start tag.
  XmlElementType_PseudoElement = 1,
};

}  // namespace KestXmlLib20Data

// The options of JSON, for reading and writing alike.
#pragma once

#include <cstdint>
#include <string>

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// How much of a document's XML structure its JSON form keeps. The numbers are part of the
/// interface.
enum JsonRoundTrip : std::int32_t {
  /// Attributes are members like any other, and text beside other members has the empty name. On
  /// reading every member is an element. Names have no prefixes.
  JsonRoundTrip_None = 0,
  /// The name of an attribute begins with "@", and text beside other members is "#text".
  JsonRoundTrip_Attributes = 1,
  /// The same with the prefixes of names, their declarations ("@xmlns", "@xmlns:p") and xsi:type.
  JsonRoundTrip_Full = 2,
};

/// Held by the CSerializationContext, see there.
class KESTXML_API CJsonContext {
 public:
  CJsonContext();
  CJsonContext(CJsonContext const&);
  CJsonContext& operator=(CJsonContext const&);
  virtual ~CJsonContext();

  /// Default JsonRoundTrip_Full. Reading with any other value compares names without namespaces.
  JsonRoundTrip GetSupportRoundtrip() const { return m_supportRoundtrip; }
  void SetSupportRoundtrip(JsonRoundTrip value) { m_supportRoundtrip = value; }

  /// When it is not empty, a text that is read counts as the value of a member of this name, which
  /// becomes the root element. Default empty: the one member of the outermost object is the root.
  std::u16string GetRootElementName() const { return m_rootElementName; }
  /// Null is the empty name.
  void SetRootElementName(char16_t const* name);

  /// Whether a text that is read may have comments between its tokens: // to the end of the line,
  /// and those between /* and */. Default true.
  bool GetAllowComments() const { return m_allowComments; }
  /// Sets what GetAllowComments gives; callers know the setter by this name.
  void GetAllowComments(bool value) { m_allowComments = value; }

 private:
  JsonRoundTrip m_supportRoundtrip = JsonRoundTrip_Full;
  std::u16string m_rootElementName;
  bool m_allowComments = true;
};

}  // namespace KestXmlLib20

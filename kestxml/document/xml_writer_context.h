// What a writer knows about one open element.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/document/xml_writer.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// One element that was started and has not ended. The writer makes it, and owns it.
class KESTXML_API CXmlWriter::CXmlWriterContext : public CInstanceMonitor {
 public:
  CXmlWriterContext();
  CXmlWriterContext(CXmlWriterContext const&) = delete;
  CXmlWriterContext& operator=(CXmlWriterContext const&) = delete;
  ~CXmlWriterContext() override;

  std::u16string_view GetNamespaceURI() const { return m_namespaceURI; }
  std::u16string_view GetLocalName() const { return m_localName; }
  CXmlWriterContext* GetParent() const { return m_pParent; }

  std::int32_t m_childCount = 0;  ///< child elements started so far
  bool m_startTagOpen = true;     ///< attributes are possible only while it is true
  std::int32_t m_depth = 0;       ///< parent's plus 1; a writer may change it for its indentation
  bool m_writerState = false;     ///< for the writer's own use
  /// Where the element's children stand in an array, for formats that have arrays: 0 no array,
  /// 1 set before the items of a collection, 2 set by the writer once the array was opened, 3 set
  /// after the last item.
  std::int32_t m_arrayState = 0;

 private:
  friend class CXmlWriter;

  inline void Begin(CXmlWriterContext* parent, std::u16string_view localName,
                    std::u16string_view uri, std::u16string_view firstDefault);

  std::u16string m_nameStorage;
  std::u16string m_uriStorage;
  std::u16string_view m_localName;         // of m_nameStorage
  std::u16string_view m_namespaceURI;      // of m_uriStorage, or what the root declares as default
  CXmlWriterContext* m_pParent = nullptr;  // set as long as the element is open; null for a root
  std::uint32_t m_level = 0;               // how many elements it lies in
};

}  // namespace KestXmlLib20

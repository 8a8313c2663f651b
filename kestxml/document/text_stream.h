// Where the text of a writer goes.
#pragma once

#include <cstdint>

#include "kestxml/document/output_form.h"
#include "kestxml/document/string_buffer.h"
#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// A text buffer with an encoding. Writers append to the buffer directly and offer a Flush whenever
/// it holds kFlushLength units or more. This class keeps all text in the buffer.
class KESTXML_API CTextStream : protected CInstanceMonitor {
 public:
  /// Units in the buffer from which a writer offers a flush.
  static constexpr std::uint32_t kFlushLength = 4096;

  explicit CTextStream(XmlEncoding encoding);
  CTextStream(CTextStream const&) = delete;
  CTextStream& operator=(CTextStream const&) = delete;
  ~CTextStream() override;

  /// Begins a text: clears the buffer.
  virtual void Open();
  /// Ends the text.
  virtual void Close();
  virtual void Flush();

  CStringBuffer& GetBuffer() { return m_buffer; }
  XmlEncoding GetEncoding() const { return m_encoding; }

 protected:
  CStringBuffer m_buffer;
  XmlEncoding m_encoding;
};

}  // namespace KestXmlLib20

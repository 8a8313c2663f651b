// Reads JSON text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

class CJsonContext;
class IJsonReaderHandler;

/// Reports what a JSON text holds to a handler. It knows nothing of XML.
///
/// It takes the JSON of RFC 8259 with these departures, which callers rely on:
/// - One value is read; what follows it is ignored. A text without a value has no events but
///   OnStartDocument and OnEndDocument, and is no error.
/// - Line feeds vanish wherever they stand, from strings and numbers too. Other control characters
///   may stand in strings.
/// - A number ends where no more digit may follow, without a look at what does.
/// - `\u` and any four units stand for one hexadecimal digit: that of the upper half of the low
///   byte of the first unit. So `\u0041` is "3", the half of the byte 0x30 of its first "0".
/// - Objects and arrays lie in at most 99 others.
class KESTXML_API CJsonTextReader : public CInstanceMonitor {
 public:
  /// @param text must stay until Read returns.
  /// @param handler if it is an IErrorPathProvider, failures have its path.
  CJsonTextReader(std::u16string_view text, CJsonContext const& context,
                  std::unique_ptr<IJsonReaderHandler> handler);
  CJsonTextReader(CJsonTextReader const&) = delete;
  CJsonTextReader& operator=(CJsonTextReader const&) = delete;
  ~CJsonTextReader() override;

  /// To be called once.
  /// @throws CKestValidationException with line and position, both from 1, of the unit at which the
  /// text stops being JSON; and what the handler throws.
  void Read();

 private:
  std::unique_ptr<IJsonReaderHandler> m_pHandler;
  std::int32_t m_maxDepth = 100;
  bool m_allowComments;
  std::u16string m_rootElementName;
  std::u16string_view m_text;
};

}  // namespace KestXmlLib20

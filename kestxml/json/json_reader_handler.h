// What a reader of JSON text reports, and to whom.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kestxml/platform/api.h"
#include "kestxml/values/instance_monitor.h"

namespace KestXmlLib20 {

/// Receives the events of one JSON text in their order. Texts are valid until the call returns. An
/// exception ends the reading. The order of the operations is part of the interface.
class KESTXML_API IJsonReaderHandler : public CInstanceMonitor {
 public:
  ~IJsonReaderHandler() override;

  virtual void OnStartDocument() = 0;
  virtual void OnEndDocument() = 0;
  /// The name of a member, also when no colon follows.
  virtual void OnName(std::u16string_view name) = 0;
  virtual void OnString(std::u16string_view value) = 0;
  /// @p value as it stands in the text.
  virtual void OnNumber(std::u16string_view value) = 0;
  /// @p depth counts the objects and arrays around it, from 0.
  virtual void OnStartObject(std::int32_t depth) = 0;
  virtual void OnEndObject() = 0;
  virtual void OnStartArray(std::int32_t depth) = 0;
  virtual void OnEndArray() = 0;
  virtual void OnBoolean(bool value) = 0;
  virtual void OnNull() = 0;
};

/// Knows where in the text its user stands. A handler that offers it too gives the failures of a
/// reader their path.
class KESTXML_API IErrorPathProvider {
 public:
  virtual std::u16string GetErrorPath() const = 0;

 protected:
  ~IErrorPathProvider();
};

}  // namespace KestXmlLib20

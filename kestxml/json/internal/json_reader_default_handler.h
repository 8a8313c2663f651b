// Knows where in a JSON text its reader stands.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kestxml/json/json_reader_handler.h"

namespace KestXmlLib20::internal {

/// Keeps the path for messages and hands every event on.
class CJsonReaderDefaultHandler final : public IJsonReaderHandler, public IErrorPathProvider {
 public:
  ~CJsonReaderDefaultHandler() override;

  /// Who gets the events; null for nobody, as at the start.
  void SetInner(std::unique_ptr<IJsonReaderHandler> inner);

  void OnStartDocument() override;
  void OnEndDocument() override;
  void OnName(std::u16string_view name) override;
  void OnString(std::u16string_view value) override;
  void OnNumber(std::u16string_view value) override;
  void OnStartObject(std::int32_t depth) override;
  void OnEndObject() override;
  void OnStartArray(std::int32_t depth) override;
  void OnEndArray() override;
  void OnBoolean(bool value) override;
  void OnNull() override;

  /// "$", and a point and the name for each member that is open, the innermost first. An object of
  /// an array has the array's name, "[", its index from 0 as one 16-bit unit, not in digits, and
  /// "]". Callers know the paths in this form.
  std::u16string GetErrorPath() const override;

 private:
  enum class Kind : std::uint8_t { Array, Name, Object };
  struct Entry {
    std::u16string name;
    std::int32_t index;  // of the last object of an array, -1 before
    Kind kind;
  };

  bool IsOnTop(Kind kind) const;
  Entry& Push(Kind kind);
  void PushTakingName(Kind kind);
  void PopThrough(Kind kind);

  std::vector<Entry> m_entries;  // those beyond m_depth wait to be used again
  std::size_t m_depth = 0;
  std::unique_ptr<IJsonReaderHandler> m_pInner;
};

}  // namespace KestXmlLib20::internal
